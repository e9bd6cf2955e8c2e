#include <cerrno>
#include <cstdio>

#include "platform/linux/files/file_access.h"
#include "platform/linux/files/file_attributes.h"
#include "platform/linux/files/in_place.h"
#include "platform/linux/files/path_text.h"
#include "platform/linux/files/whole_file.h"

namespace tovera {
namespace {

/// What is known of a file that is to change.
struct OldFile {
    FileDescriptor file;
    struct stat facts {};
    FileBytes bytes;
};

/// Which way a file was changed, or that it has to be written in place.
enum class Replacing { Done, Failed, Impossible };

/// The new bytes get the name of the old file, and all that goes with it.
Replacing replace(const FileDescriptor& folder, const char* name, const OldFile& old, std::string_view bytes,
                  int& error) {
    const bool isThere = old.file.isOpen();
    FileDescriptor file;
    std::string newName;
    error = createNew(folder, isThere ? 0600 : 0666, file, newName);
    if (error == EACCES || error == EPERM || error == EEXIST)
        return isThere ? Replacing::Impossible : Replacing::Failed;
    if (error != 0) return Replacing::Failed;
    const bool isLike = !isThere || takeAttributes(file, old.file, old.facts);
    if (isLike) error = writeWhole(file.get(), bytes);
    if (isLike && error == 0 && renameat(folder.get(), newName.c_str(), folder.get(), name) != 0)
        error = errno;
    if (isLike && error == 0) {
        fsync(folder.get());
        return Replacing::Done;
    }
    unlinkat(folder.get(), newName.c_str(), 0);
    // In a folder of others a file of theirs can't be replaced, though it may be written.
    return isThere && (!isLike || error == EPERM || error == EACCES) ? Replacing::Impossible
                                                                     : Replacing::Failed;
}

/// Opens the file that is to change; a missing one stays closed.
int openOld(const FileDescriptor& folder, const char* name, const std::string& path, OldFile& old) {
    const auto open = [&] {
        old.file = FileDescriptor(openat(folder.get(), name, readFlags | O_NOFOLLOW));
        return factsOfRegular(old.file, old.facts);
    };
    int error = open();
    if (error == ENOENT) return 0;
    if (error == 0 && faccessat(folder.get(), name, W_OK, AT_EACCESS) != 0) error = errno;
    if (error == 0) error = restoreUnfinished(folder, name, old.facts, path);
    if (error == 0) error = open();
    return error != 0 ? error : readWhole(old.file, old.facts, old.bytes);
}

/// With a name beside the wanted one first, under the folder's lock.
int makeBeside(const FileDescriptor& folder, const std::string& folderPath, const char* name,
               std::string_view bytes, mode_t mode) {
    FileDescriptor lockFile;
    if (const int error = lockFolder(folder, folderPath, lockFile)) return error;
    FileDescriptor file;
    std::string newName;
    if (const int error = createNew(folder, mode, file, newName)) return error;
    int error = fchmod(file.get(), mode) == 0 ? writeWhole(file.get(), bytes) : errno;
    if (error == 0 && linkat(folder.get(), newName.c_str(), folder.get(), name, 0) != 0) error = errno;
    unlinkat(folder.get(), newName.c_str(), 0);
    return error;
}

}  // namespace

int changeFile(const std::string& path, const FileChange& change) {
    auto target = path;
    if (const int error = followLinks(target)) return error;
    if (target.empty() || target.ends_with('/')) return EISDIR;
    const auto folder = openFolder(folderOf(target));
    if (!folder.isOpen()) return errno;
    FileDescriptor lockFile;
    if (const int error = lockFolder(folder, folderOf(target), lockFile)) return error;

    const auto* const name = target.c_str() + (target.rfind('/') + 1);
    OldFile old;
    if (const int error = openOld(folder, name, target, old)) return error;
    const auto changed = change(old.bytes.view());
    if (!changed) return 0;
    int error = 0;
    if (replace(folder, name, old, *changed, error) != Replacing::Impossible) return error;
    const FileDescriptor file(openat(folder.get(), name, writeFlags));
    return file.isOpen() ? writeInPlace(file, old.facts, target, old.bytes.view(), *changed) : errno;
}

int makeFile(const std::string& path, std::string_view bytes, mode_t mode) {
    const auto folder = openFolder(folderOf(path));
    if (!folder.isOpen()) return errno;
    const auto* const name = path.c_str() + (path.rfind('/') + 1);
    int error = 0;
    if (const auto file = createNameless(folder, mode); file.isOpen()) {
        error = fchmod(file.get(), mode) == 0 ? writeWhole(file.get(), bytes) : errno;
        if (error == 0) error = giveName(file, folder, name);
    } else if (lacksNameless(errno)) {
        error = makeBeside(folder, folderOf(path), name, bytes, mode);
    } else {
        error = errno;
    }
    if (error == 0) fsync(folder.get());
    return error;
}

}  // namespace tovera
