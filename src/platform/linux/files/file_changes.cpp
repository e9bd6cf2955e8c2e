#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

#include "frame/utf8.h"
#include "platform/linux/files/file_descriptor.h"
#include "platform/linux/files/file_errors.h"
#include "platform/linux/files/file_facts.h"
#include "platform/linux/files/files.h"
#include "platform/linux/files/folder_entries.h"
#include "platform/linux/files/path_text.h"
#include "platform/linux/files/paths.h"
#include "platform/linux/files/patient_lock.h"
#include "platform/linux/files/whole_file.h"
#include "platform/linux/text/letter_case.h"

namespace tovera {
namespace {

/// Writes behind what the file holds, or leaves it as it was. Writers of this kind take turns. 0 or errno.
int writeBehind(const FileDescriptor& file, const std::string& path, std::string_view bytes) {
    if (const int error = lockPatiently(file, path)) return error;
    struct stat facts {};
    if (fstat(file.get(), &facts) != 0) return errno;
    int error = 0;
    while (!bytes.empty() && error == 0) {
        const auto count = write(file.get(), bytes.data(), bytes.size());
        if (count < 0 && errno != EINTR) error = errno;
        if (count > 0) bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    if (error != 0 && ftruncate(file.get(), facts.st_size) != 0) return errno;
    return error;
}

/// `*` stands for any number of characters, `?` for one; the case of letters doesn't count.
bool isLike(std::u16string_view name, std::u16string_view pattern) {
    if (pattern.empty()) return name.empty();
    if (pattern[0] == u'*') {
        for (std::size_t skipped = 0; skipped <= name.size(); ++skipped)
            if (isLike(name.substr(skipped), pattern.substr(1))) return true;
        return false;
    }
    return !name.empty() && (pattern[0] == u'?' || capital(pattern[0]) == capital(name[0])) &&
           isLike(name.substr(1), pattern.substr(1));
}

bool isFolder(const std::string& path) {
    const auto facts = factsOfTarget(path);
    return facts && S_ISDIR(facts->st_mode);
}

/// A path that names something here.
std::string ownPath(const Bstr& path) {
    if (beforeNul(path).empty()) raise(ErrorNumber::PathAccess);
    auto found = foundHostPath(path);
    if (found.empty() || !isFolder(folderOf(found))) raise(ErrorNumber::PathNotFound);
    return found;
}

}  // namespace

void LinuxFiles::append(const Bstr& path, std::string_view bytes) {
    const auto name = ownPath(path);
    // A pipe would hold the caller, and a device is no file.
    const auto facts = factsOfTarget(name);
    if (facts && !S_ISREG(facts->st_mode)) raise(ErrorNumber::PathAccess);
    const FileDescriptor file(
        open(name.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_NONBLOCK | O_CLOEXEC, 0666));
    const int error = file.isOpen() ? writeBehind(file, name, bytes) : errno;
    if (error != 0) raiseFileError(error);
}

void LinuxFiles::changeFolder(const Bstr& path) {
    const auto folder = foundHostPath(path);
    if (!isFolder(folder)) raise(ErrorNumber::PathNotFound);
    if (chdir(folder.c_str()) != 0) raiseFileError(errno);
}

std::vector<Bstr> LinuxFiles::filesLike(const Bstr& pattern) {
    const auto written = hostPath(pattern);
    const auto folder = foundPath(folderOf(written));
    const auto wanted = fromUtf8(written.substr(written.rfind('/') + 1));
    std::vector<Bstr> names;
    for (const auto& entry : entriesOf(folder)) {
        const auto name = fromUtf8(entry);
        if (!isLike(name, wanted)) continue;
        const auto facts = factsOfTarget(folder + entry);
        if (facts && S_ISREG(facts->st_mode)) names.emplace_back(name);
    }
    return names;
}

void LinuxFiles::copy(const Bstr& source, const Bstr& target) {
    const auto from = ownPath(source);
    const auto facts = factsOfTarget(from);
    if (!facts) raiseFileError(errno);
    if (!S_ISREG(facts->st_mode)) raise(ErrorNumber::PathAccess);
    const auto to = ownPath(target);
    if (isFolder(to)) raise(ErrorNumber::PathAccess);
    FileBytes bytes;
    int error = readFile(from, bytes);
    if (error == 0) error = changeFile(to, [&](std::string_view) { return std::string(bytes.view()); });
    if (error != 0) raiseFileError(error);
}

void LinuxFiles::remove(const Bstr& path) {
    const auto name = ownPath(path);
    const auto facts = factsOf(name);
    if (facts && S_ISDIR(facts->st_mode)) raise(ErrorNumber::FileNotFound);
    if (unlink(name.c_str()) != 0) raiseFileError(errno);
}

}  // namespace tovera
