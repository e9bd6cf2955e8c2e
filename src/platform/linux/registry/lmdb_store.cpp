#include "platform/linux/registry/lmdb_store.h"

#if __has_include(<lmdb.h>)

#include <cerrno>
#include <iostream>

#include "platform/linux/registry/lmdb_environment.h"
#include "platform/linux/registry/registry_status.h"

namespace tovera {
namespace {

constexpr int mostAttempts = 64;
constexpr int mustReopen = MDB_PANIC;

}  // namespace

LmdbStore::LmdbStore(std::string folder) : folder_(std::move(folder)) {
    lmdb();  // made first, so that it is there until the store has been closed
}

LmdbStore::~LmdbStore() {
    if (isOpen()) close();
}

I4 LmdbStore::run(Purpose purpose, WorkReference work) {
    const std::lock_guard guard(mutex_);
    for (int attempt = 1;; ++attempt) {
        try {
            open();
            return purpose == Purpose::Read ? runRead(work) : runWrite(work);
        } catch (const StoreFailure& failure) {
            if (attempt == mostAttempts || !recover(failure)) return statusOf(failure, purpose);
        }
    }
}

I4 LmdbStore::runRead(WorkReference work) {
    beginReading();
    struct Reset {
        MDB_txn* transaction;
        ~Reset() { lmdb().txn_reset(transaction); }
    } const reset{reader_};
    StoreTransaction transaction(reader_);
    return work(transaction);
}

/// The one reading transaction is kept and renewed, which costs next to nothing.
void LmdbStore::beginReading() {
    if (reader_) {
        requireSuccess(lmdb().txn_renew(reader_));
    } else {
        requireSuccess(
            lmdb().txn_begin(environment_, static_cast<MDB_txn*>(nullptr), unsigned{MDB_RDONLY}, &reader_));
    }
}

I4 LmdbStore::runWrite(WorkReference work) {
    if (readOnly_) throw StoreFailure{EACCES};
    prepareForWriting();
    WriteTransaction writing(environment_);
    if (isReplaced()) throw StoreFailure{mustReopen};
    StoreTransaction transaction(writing.get());
    const auto status = work(transaction);
    if (status != registryStatus::success) return status;
    unsynced_ = true;
    writing.commit();
    return status;
}

/// Whether something was done about a failure, so that another attempt makes sense.
bool LmdbStore::recover(const StoreFailure& failure) {
    if (!environment_) return false;
    switch (failure.code) {
        case MDB_MAP_FULL: {
            MDB_envinfo info{};
            lmdb().env_info(environment_, &info);
            growTo(info.me_mapsize * 2);
            return true;
        }
        case MDB_MAP_RESIZED:
            growTo(0);
            return true;
        case MDB_READERS_FULL: {
            int dead = 0;
            lmdb().reader_check(environment_, &dead);
            return dead > 0;
        }
        case mustReopen:
            close();
            return true;
        default:
            if (!failure.isDamage()) return false;
            std::cerr << "tovera: the store in " << folder_ << " is damaged: an entry can't be read"
                      << std::endl;
            close();  // the file is checked when it is opened again
            return false;
    }
}

/// Size 0 takes over the size that another process has chosen.
void LmdbStore::growTo(std::size_t size) {
    if (reader_) lmdb().txn_abort(std::exchange(reader_, nullptr));
    lmdb().env_set_mapsize(environment_, size);
}

I4 LmdbStore::statusOf(const StoreFailure& failure, Purpose purpose) const {
    if (failure.isDamage()) return registryStatus::registryCorrupt;
    if (failure.code == EIO && isRoomGone()) return registryStatus::diskFull;
    if (const auto status = registryStatus::ofSystemError(failure.code);
        status != registryStatus::cannotWrite) {
        return status;
    }
    if (!environment_) return registryStatus::cannotOpen;
    return purpose == Purpose::Read ? registryStatus::cannotRead : registryStatus::cannotWrite;
}

}  // namespace tovera

#endif
