#include "language/language_entry.h"

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
    const Conversions convert(services);
    ObjectRef fileSystem;
    Bstr folder;
    VariantBool exists = False;
    step([&] { fileSystem = services.createObject(u"Scripting.FileSystemObject"); });
    step(
        [&] { folder = convert.to<Bstr>(callMember(fileSystem, u"getParentFolderName", Reference(&file))); });
    step([&] {
        exists = convert.to<VariantBool>(callMember(fileSystem, u"FolderExists", Reference(&folder)));
    });
    if (exists) return;
    step([&] { callMember(fileSystem, u"CreateFolder", Reference(&folder)); });
    if (step.error.number == systemPathNotFound)
        step.error.number = static_cast<I4>(ErrorNumber::PathNotFound);
}

}  // namespace tovera
