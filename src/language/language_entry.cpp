#include "language/language_entry.h"

#include "frame/file_system.h"

namespace tovera {
namespace {

/// The status of the system itself for a missing parent folder (an HRESULT). There are file system objects
/// that answer with it instead of error 76.
constexpr auto systemPathNotFound = static_cast<I4>(0x80070003U);

}  // namespace

Bstr LireEntreeLangue(Platform& platform, Bstr file, Bstr section, Bstr key, Bstr defaultValue) {
    FixedText<255> buffer(u'\0');
    const auto count =
        platform.call(&Profiles::GetPrivateProfileStringA, section, key, defaultValue, buffer, file);
    return left(buffer.view(), static_cast<std::size_t>(count));
}

void createMissingFolder(FailuresIgnored& step, Services& services, Bstr& file) {
    ObjectRef object;
    Bstr folder;
    bool exists = false;
    step([&] { object = FileSystem::create(services); });
    const FileSystem fileSystem(services, object);
    step([&] { folder = fileSystem.parentFolderName(file); });
    step([&] { exists = fileSystem.folderExists(folder); });
    if (exists) return;
    step([&] { fileSystem.createFolder(folder); });
    if (step.error.number == systemPathNotFound)
        step.error.number = static_cast<I4>(ErrorNumber::PathNotFound);
}

}  // namespace tovera
