#include "platform/linux/files/in_place.h"

#include <cerrno>
#include <cstdint>
#include <fcntl.h>
#include <filesystem>
#include <iostream>
#include <string>

#include "platform/linux/files/data_folder.h"
#include "platform/linux/files/file_access.h"
#include "platform/linux/files/file_facts.h"
#include "platform/linux/files/path_text.h"
#include "platform/linux/files/whole_file.h"

namespace tovera {
namespace {

constexpr mode_t forUserAlone = 0600;
/// In seconds: how much later than its saved bytes a file was written last that an ended writer has left.
constexpr time_t longestWrite = 60;

std::string savedFile(const struct stat& facts) {
    return dataFolder() + "/unfinished/" + std::to_string(facts.st_dev) + '-' + std::to_string(facts.st_ino);
}

/// Room is taken first, so that a full disk is found before a byte is changed.
int overwrite(const FileDescriptor& file, std::string_view bytes) {
    const auto size = static_cast<off_t>(bytes.size());
    if (size > 0 && fallocate(file.get(), FALLOC_FL_KEEP_SIZE, 0, size) != 0 && errno != EOPNOTSUPP)
        return errno;
    for (std::size_t done = 0; done < bytes.size();) {
        const auto count =
            pwrite(file.get(), bytes.data() + done, bytes.size() - done, static_cast<off_t>(done));
        if (count < 0 && errno != EINTR) return errno;
        if (count > 0) done += static_cast<std::size_t>(count);
    }
    return ftruncate(file.get(), size) == 0 && fsync(file.get()) == 0 ? 0 : errno;
}

/// The path stands in front of the bytes: another file may have the number of one that is gone.
int save(const std::string& saved, const std::string& path, std::string_view bytes) {
    std::error_code ignored;
    std::filesystem::create_directories(folderOf(saved), ignored);
    std::filesystem::permissions(folderOf(saved), std::filesystem::perms::owner_all, ignored);
    unlink(saved.c_str());
    return makeFile(saved, (path + '\0').append(bytes), forUserAlone);
}

}  // namespace

int writeInPlace(const FileDescriptor& file, const struct stat& facts, const std::string& path,
                 std::string_view oldBytes, std::string_view newBytes) {
    const auto saved = savedFile(facts);
    if (const int error = save(saved, path, oldBytes)) return error;
    const int error = overwrite(file, newBytes);
    if (error != 0 && overwrite(file, oldBytes) != 0) {
        std::cerr << "tovera: " << path << " is damaged; its bytes are kept in " << saved << std::endl;
        return error;
    }
    unlink(saved.c_str());
    return error;
}

int restoreUnfinished(const FileDescriptor& folder, const char* name, const struct stat& facts,
                      const std::string& path) {
    const auto saved = savedFile(facts);
    const auto savedFacts = factsOf(saved);
    if (!savedFacts) return 0;
    FileBytes bytes;
    if (const int error = readFile(saved, bytes)) return error;
    const auto beginning = path + '\0';
    const bool isOlder = facts.st_mtime > savedFacts->st_mtime + longestWrite;
    if (!bytes.view().starts_with(beginning) || isOlder) {
        const auto kept = saved + "-" + std::to_string(savedFacts->st_mtime);
        std::cerr << "tovera: what an interrupted change has left is kept in " << kept << std::endl;
        return rename(saved.c_str(), kept.c_str()) == 0 ? 0 : errno;
    }
    const FileDescriptor file(openat(folder.get(), name, writeFlags));
    if (!file.isOpen()) return errno;
    if (const int error = overwrite(file, bytes.view().substr(beginning.size()))) return error;
    std::cerr << "tovera: an interrupted change of " << path << " is undone" << std::endl;
    unlink(saved.c_str());
    return 0;
}

}  // namespace tovera
