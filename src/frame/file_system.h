#pragma once

#include "frame/object.h"
#include "frame/services.h"

namespace tovera {

/// A `Scripting.FileSystemObject` with the five operations that the component relies on. Each is a late-bound
/// call, for which the path crosses as a variable.
class FileSystem {
  public:
    /// Error 429 where it can't be created.
    explicit FileSystem(Services& services) : FileSystem(services, create(services)) {}
    /// On an object that has been created; with nothing, each operation raises error 91.
    FileSystem(Services& services, ObjectRef object) : services_(services), object_(std::move(object)) {}
    static ObjectRef create(Services& services) {
        return services.createObject(u"Scripting.FileSystemObject");
    }

    bool fileExists(Bstr& path) const;
    bool folderExists(Bstr& path) const;
    /// The last component of a path.
    Bstr fileName(Bstr& path) const;
    /// The path without its last component and the separator before it; empty for a bare name.
    Bstr parentFolderName(Bstr& path) const;
    /// Makes that one folder.
    void createFolder(Bstr& path) const;

  private:
    bool ask(std::u16string_view question, Bstr& path) const;
    Bstr partOf(std::u16string_view question, Bstr& path) const;

    Services& services_;
    ObjectRef object_;
};

}  // namespace tovera
