#include "frame/file_system.h"

#include "frame/conversions.h"

namespace tovera {

bool FileSystem::ask(std::u16string_view question, Bstr& path) const {
    const auto answer = callMember(object_, question, Reference(&path));
    return static_cast<bool>(Conversions(services_).to<VariantBool>(answer));
}

Bstr FileSystem::partOf(std::u16string_view question, Bstr& path) const {
    return Conversions(services_).to<Bstr>(callMember(object_, question, Reference(&path)));
}

bool FileSystem::fileExists(Bstr& path) const {
    return ask(u"FileExists", path);
}

bool FileSystem::folderExists(Bstr& path) const {
    return ask(u"FolderExists", path);
}

Bstr FileSystem::fileName(Bstr& path) const {
    return partOf(u"getFileName", path);
}

Bstr FileSystem::parentFolderName(Bstr& path) const {
    return partOf(u"getParentFolderName", path);
}

void FileSystem::createFolder(Bstr& path) const {
    callMember(object_, u"CreateFolder", Reference(&path));
}

}  // namespace tovera
