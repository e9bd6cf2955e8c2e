#include "platform/user_files.h"

#include <cerrno>
#include <filesystem>

#include "platform/linux/files/file_errors.h"
#include "platform/linux/files/paths.h"
#include "platform/linux/files/whole_file.h"

namespace tovera {

std::string ownPathOf(std::u16string_view path) {
    const auto found = foundHostPath(path);
    if (found.empty()) raise(ErrorNumber::PathNotFound);
    std::error_code failure;
    auto file = std::filesystem::canonical(found, failure).string();
    if (failure) raiseFileError(failure.value());
    return file;
}

std::string bytesOfFile(const std::string& ownPath) {
    FileBytes bytes;
    if (const int error = readFile(ownPath, bytes)) raiseFileError(error);
    return std::string(bytes.view());
}

void replaceBytes(const std::string& ownPath, std::string_view oldBytes, std::string newBytes) {
    using std::filesystem::perms;
    constexpr auto anyWriter = perms::owner_write | perms::group_write | perms::others_write;
    std::error_code ignored;
    if ((std::filesystem::status(ownPath, ignored).permissions() & anyWriter) == perms::none)
        raiseFileError(EACCES);
    bool stale = false;
    const int error = changeFile(ownPath, [&](std::string_view present) -> std::optional<std::string> {
        stale = present != oldBytes;
        if (stale) return {};
        return std::move(newBytes);
    });
    if (error != 0) raiseFileError(error);
    if (stale) raise(ErrorNumber::PathAccess);
}

}  // namespace tovera
