#include "platform/linux/files/file_system_object.h"

#include <cerrno>
#include <optional>
#include <sys/stat.h>

#include "frame/component.h"
#include "platform/linux/files/file_errors.h"
#include "platform/linux/files/paths.h"

namespace tovera {
namespace {

constexpr std::u16string_view separators = u"/\\";

/// Whether a folder stands at a path, or a file; nothing when neither does.
std::optional<bool> isFolder(const std::string& path) {
    struct stat facts {};
    if (path.empty() || stat(path.c_str(), &facts) != 0) return {};
    return S_ISDIR(facts.st_mode);
}

/// Length of the drive and of the separator behind it, which belong to no name.
std::size_t rootLength(std::u16string_view path) {
    const std::size_t drive = path.size() >= 2 && path[1] == u':' ? 2 : 0;
    return drive + (path.substr(drive).find_first_of(separators) == 0 ? 1 : 0);
}

std::u16string_view withoutTrailingSeparators(std::u16string_view path) {
    const auto last = path.find_last_not_of(separators);
    return path.substr(0, std::max(last + 1, rootLength(path)));
}

std::size_t placeOfLastName(std::u16string_view path) {
    const auto last = path.find_last_of(separators);
    return std::max(last == std::u16string_view::npos ? 0 : last + 1, rootLength(path));
}

}  // namespace

/// A folder that was made, with what callers ask of one.
class FolderObject {
  public:
    explicit FolderObject(Bstr path) : path_(std::move(path)) {}
    Bstr Path() { return path_; }
    Bstr Name() { return withoutTrailingSeparators(path_).substr(placeOfLastName(path_)); }

  private:
    Bstr path_;
};

class FileSystemObject {
  public:
    explicit FileSystemObject(Services& services) : services_(services) {}

    VariantBool FileExists(const Bstr& FileSpec) {
        return VariantBool(isFolder(foundHostPath(FileSpec)) == false);
    }
    VariantBool FolderExists(const Bstr& FolderSpec) {
        return VariantBool(isFolder(foundHostPath(FolderSpec)) == true);
    }

    Bstr GetFileName(const Bstr& Path) {
        const auto path = withoutTrailingSeparators(Path);
        return path.substr(placeOfLastName(path));
    }

    Bstr GetParentFolderName(const Bstr& Path) {
        const auto path = withoutTrailingSeparators(Path);
        const auto place = placeOfLastName(path);
        return place == path.size() ? std::u16string_view()
                                    : withoutTrailingSeparators(path.substr(0, place));
    }

    /// One level only. Error 58 when a file or a folder of that name stands there, 76 when the folder above
    /// is missing.
    ObjectRef CreateFolder(const Bstr& Path) {
        if (Path.empty()) raise(ErrorNumber::InvalidCall);
        const auto path = foundHostPath(withoutTrailingSeparators(Path));
        if (path.empty()) raise(ErrorNumber::PathNotFound);
        if (mkdir(path.c_str(), 0777) != 0) {
            if (errno == ENOENT) raise(ErrorNumber::PathNotFound);
            raiseFileError(errno);
        }
        return makeObject<ComponentObjectOf<FolderObject>>(services_, Path);
    }

  private:
    Services& services_;
};

template <>
struct ClassTable<FolderObject> {
    static constexpr std::string_view name = "Folder";
    static constexpr std::string_view help = "";
    static constexpr std::tuple members{
        propertyRead<&FolderObject::Path>("Path"),
        propertyRead<&FolderObject::Name>("Name"),
    };
};

template <>
struct ClassTable<FileSystemObject> {
    using C = FileSystemObject;
    static constexpr std::string_view name = "FileSystemObject";
    static constexpr std::string_view help = "";
    static constexpr std::tuple members{
        method<&C::FileExists>("FileExists", "", "FileSpec"),
        method<&C::FolderExists>("FolderExists", "", "FolderSpec"),
        method<&C::GetFileName>("GetFileName", "", "Path"),
        method<&C::GetParentFolderName>("GetParentFolderName", "", "Path"),
        method<&C::CreateFolder>("CreateFolder", "", "Path"),
    };
};

ObjectRef makeFileSystemObject(Services& services) {
    return makeObject<ComponentObjectOf<FileSystemObject>>(services, services);
}

}  // namespace tovera
