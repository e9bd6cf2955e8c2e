#if __has_include(<lmdb.h>)

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <pthread.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <thread>
#include <unistd.h>
#include <utility>

#include "platform/linux/files/file_descriptor.h"
#include "platform/linux/files/file_facts.h"
#include "platform/linux/files/folder_entries.h"
#include "platform/linux/registry/lmdb_check.h"
#include "platform/linux/registry/lmdb_environment.h"
#include "platform/linux/registry/lmdb_store.h"

namespace tovera {
namespace {

constexpr std::size_t firstMapSize = std::size_t{16} << 20;
constexpr unsigned mostReaders = 1024;
constexpr const char* dataFile = "data.mdb";
constexpr const char* lockFile = "lock.mdb";
constexpr const char* copyFile = "copy.mdb";
constexpr const char* restoredFile = "restored";
constexpr const char* damagedFile = "damaged-";

/// Counts the forks that led to this process: what LMDB has open doesn't survive one.
std::atomic<unsigned> forks{0};

unsigned forkGeneration() {
    static const int registered = pthread_atfork(nullptr, nullptr, [] { ++forks; });
    static_cast<void>(registered);
    return forks.load(std::memory_order_relaxed);
}

/// Keeps other processes out while the store is opened, checked or replaced.
class FolderGuard {
  public:
    explicit FolderGuard(const std::string& folder)
        : descriptor_(::open((folder + "/guard").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600)) {
        if (descriptor_.isOpen()) flock(descriptor_.get(), LOCK_EX);
    }

  private:
    FileDescriptor descriptor_;
};

/// LMDB maps its table of readers, and a page of that which finds no room on the disk ends the process: the
/// room is taken before, while the file is new and nobody has it open.
void makeRoomForReaders(const std::string& file) {
    constexpr off_t size = off_t{80} << 10;  // more than the table of `mostReaders` takes
    const auto facts = factsOfTarget(file);
    if (facts && facts->st_size > 0) return;
    const FileDescriptor table(::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    if (!table.isOpen() || fallocate(table.get(), 0, 0, size) == 0) return;
    if (errno == ENOSPC || errno == EDQUOT || errno == EFBIG) throw StoreFailure{errno};
}

/// Another process may write to the head while it is read; damage stays.
bool isHeadDamaged(const std::string& file) {
    constexpr int attempts = 3;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        if (hasSoundHead(file)) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return true;
}

Bytes textBytes(std::string_view text) {
    return std::as_bytes(std::span(text));
}

/// What tells one run of the machine from the next.
std::string startOfMachine() {
    std::string id;
    std::getline(std::ifstream("/proc/sys/kernel/random/boot_id"), id);
    return id;
}

constexpr std::string_view startKey = "start of the machine";

}  // namespace

bool LmdbStore::isOpen() const {
    return environment_ && generation_ == forkGeneration();
}

/// Another process has set the file aside, or it was deleted: what is written here would be lost.
bool LmdbStore::isReplaced() const {
    const auto facts = factsOfTarget(file(dataFile));
    return !facts || facts->st_ino != inode_;
}

/// LMDB tells a write that ended early, for want of room, as an input or output error.
bool LmdbStore::isRoomGone() const {
    constexpr std::uint64_t littleRoom = std::uint64_t{1} << 20;
    struct statvfs disk {};
    if (statvfs(folder_.c_str(), &disk) == 0 && disk.f_bavail * disk.f_frsize < littleRoom) return true;
    rlimit limit{};
    const auto facts = factsOfTarget(file(dataFile));
    const auto size = facts ? static_cast<std::uint64_t>(facts->st_size) : 0;
    return getrlimit(RLIMIT_FSIZE, &limit) == 0 && size + littleRoom > limit.rlim_cur;
}

void LmdbStore::open() {
    if (isOpen()) return;
    // After a fork the parent's environment is of no use, and closing it would disturb the parent.
    environment_ = nullptr;
    reader_ = nullptr;
    unsynced_ = preparedForWriting_ = readOnly_ = false;
    generation_ = forkGeneration();

    std::error_code ignored;
    std::filesystem::create_directories(folder_, ignored);
    const FolderGuard guard(folder_);
    try {
        takeRestored();
        openEnvironment();
        checkFile();
    } catch (const StoreFailure& failure) {
        if (environment_) {
            close();
        } else if (failure.isDamage()) {
            setAside();
        }
        throw;
    }
}

void LmdbStore::openEnvironment() {
    const auto facts = factsOfTarget(file(dataFile));
    const auto size = facts ? static_cast<std::size_t>(facts->st_size) : 0;
    if (facts && isHeadDamaged(file(dataFile))) throw StoreFailure::damage();
    makeRoomForReaders(file(lockFile));
    const auto attempt = [&](unsigned flags) {
        requireSuccess(lmdb().env_create(&environment_));
        requireSuccess(lmdb().env_set_mapsize(environment_, std::max(firstMapSize, size * 2)));
        requireSuccess(lmdb().env_set_maxreaders(environment_, mostReaders));
        const int code = lmdb().env_open(environment_, folder_.c_str(), flags | MDB_NOTLS, mode_t{0600});
        if (code != MDB_SUCCESS) lmdb().env_close(std::exchange(environment_, nullptr));
        return code;
    };
    int code = attempt(MDB_NOSYNC);
    if (code == EACCES || code == EROFS || code == EPERM) {
        readOnly_ = true;
        code = attempt(MDB_RDONLY | MDB_NOLOCK);
    }
    if (code != MDB_SUCCESS && !facts) unlink(file(dataFile).c_str());  // an empty one is taken for damaged
    requireSuccess(code);
    if (const auto opened = factsOfTarget(file(dataFile))) inode_ = opened->st_ino;
    int dead = 0;
    lmdb().reader_check(environment_, &dead);
}

/// The check needs a file that stands still, which it does while this process could write to it.
void LmdbStore::checkFile() {
    if (readOnly_) {
        if (!isSoundStore(file(dataFile))) {
            std::cerr << "tovera: the store in " << folder_ << " is damaged" << std::endl;
            throw StoreFailure::damage();
        }
        beginReading();
        MDB_dbi opened = 0;
        const int code = lmdb().dbi_open(reader_, static_cast<const char*>(nullptr), 0U, &opened);
        lmdb().txn_reset(reader_);
        return requireSuccess(code);
    }
    const WriteTransaction still(environment_);
    if (!isSoundStore(file(dataFile))) {
        setAside();  // while no other process can write to it
        throw StoreFailure::damage();
    }
    MDB_dbi opened = 0;
    requireSuccess(lmdb().dbi_open(still.get(), static_cast<const char*>(nullptr), 0U, &opened));
}

void LmdbStore::close() {
    if (reader_) lmdb().txn_abort(std::exchange(reader_, nullptr));
    if (unsynced_) lmdb().env_sync(environment_, 1);
    lmdb().env_close(std::exchange(environment_, nullptr));
    unsynced_ = preparedForWriting_ = false;
}

std::string LmdbStore::nameForDamaged() const {
    static std::atomic<unsigned> count{0};
    return file(damagedFile) + std::to_string(std::time(nullptr)) + '-' + std::to_string(getpid()) +
           (count++ == 0 ? "" : '-' + std::to_string(count));
}

/// Gives the damaged file a name of its own and goes back to the last good copy, or to an empty store where
/// there is none.
void LmdbStore::setAside() {
    using std::filesystem::copy_options;
    isLossTold_ = true;
    std::error_code failed;
    std::error_code copying;
    const bool hasCopy =
        isSoundStore(file(copyFile)) && std::filesystem::copy_file(file(copyFile), file(restoredFile),
                                                                   copy_options::overwrite_existing, copying);
    const auto kept = nameForDamaged();
    std::filesystem::rename(file(dataFile), kept, failed);
    if (failed) {
        std::cerr << "tovera: the store in " << folder_ << " is damaged" << std::endl;
        return;
    }
    std::filesystem::remove(file(lockFile), failed);
    std::cerr << "tovera: the store in " << folder_ << " was damaged; its file is kept as " << kept
              << std::endl;
    if (hasCopy) takeRestored();
}

/// The copy that is to take the place of a damaged file, if it is there: a restoration may have been
/// interrupted.
bool LmdbStore::takeRestored() const {
    std::error_code failed;
    const bool isReady =
        std::filesystem::exists(file(restoredFile), failed) && isSoundStore(file(restoredFile));
    if (!isReady || std::filesystem::exists(file(dataFile), failed)) return false;
    std::filesystem::rename(file(restoredFile), file(dataFile), failed);
    if (!failed)
        std::cerr << "tovera: a copy from an earlier start of the machine takes its place" << std::endl;
    return !failed;
}

void LmdbStore::keepDamaged() {
    const auto kept = nameForDamaged();
    std::error_code failed;
    std::filesystem::copy_file(file(dataFile), kept, failed);
    if (failed) {
        std::cerr << "tovera: the store in " << folder_ << " is damaged and can't be kept" << std::endl;
        throw StoreFailure{failed.value()};
    }
    std::cerr << "tovera: the store in " << folder_ << " is damaged; its file as it is now is kept as "
              << kept << std::endl;
}

void LmdbStore::tellOfEarlierLoss() {
    const std::lock_guard guard(mutex_);
    if (std::exchange(isLossTold_, true)) return;
    for (const auto& name : entriesOf(folder_)) {
        if (!name.starts_with(damagedFile)) continue;
        std::cerr << "tovera: something that isn't in the registry was asked for; it may be in "
                  << file(name.c_str()) << ", which was damaged. This is told as long as that file is there."
                  << std::endl;
        return;
    }
}

/// The first change since the machine was started leaves a synced copy behind. A store that can't be copied,
/// for want of room, is used all the same.
void LmdbStore::prepareForWriting() {
    if (preparedForWriting_) return;
    const FolderGuard guard(folder_);
    const auto start = startOfMachine();
    beginReading();
    const auto noted = StoreTransaction(reader_).get(textBytes(startKey));
    const bool isNoted = noted && std::ranges::equal(*noted, textBytes(start));
    const bool isEmpty = !noted;
    lmdb().txn_reset(reader_);
    if (!isNoted) {
        if (!isEmpty) makeCopy();
        WriteTransaction writing(environment_);
        StoreTransaction(writing.get()).put(textBytes(startKey), textBytes(start));
        writing.commit();
    }
    preparedForWriting_ = true;
}

void LmdbStore::makeCopy() {
    const auto made = file("copy.new");
    std::error_code ignored;
    std::filesystem::remove(made, ignored);
    const FileDescriptor copy(::open(made.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    if (!copy.isOpen()) return;
    const bool isWhole =
        lmdb().env_copyfd2(environment_, copy.get(), unsigned{MDB_CP_COMPACT}) == MDB_SUCCESS &&
        fsync(copy.get()) == 0;
    if (isWhole) {
        std::filesystem::rename(made, file(copyFile), ignored);
    } else {
        std::filesystem::remove(made, ignored);
    }
}

}  // namespace tovera

#endif
