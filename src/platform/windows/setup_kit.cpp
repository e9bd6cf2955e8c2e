#include "platform/setup_kit.h"

#include "frame/error.h"
#include "frame/last_error.h"
#include "platform/windows/com_pointer.h"
#include "platform/windows/entry_point.h"
#include "platform/windows/system_shell.h"

namespace tovera {
namespace {

/// The kit's own function, for which the system has no declaration.
using CreateShellLink = I4(__stdcall*)(const char*, const char*, const char*, const char*);

/// Nothing where the kit isn't installed, as on most systems, or is of another width than the host.
CreateShellLink functionOfTheKit() {
    try {
        return reinterpret_cast<CreateShellLink>(
            reinterpret_cast<void*>(findEntryPoint(L"VB6stkit", "fCreateShellLink")));
    } catch (const AutomationError&) {
        return nullptr;
    }
}

std::wstring wide(const AnsiText& text) {
    const auto bytes = text.terminated();
    const auto size = static_cast<int>(bytes.size());
    std::wstring units(bytes.size(), L'\0');
    units.resize(
        static_cast<std::size_t>(MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, units.data(), size)));
    return units;
}

/// The file of that name in the current folder.
std::wstring inCurrentFolder(const std::wstring& name) {
    std::wstring path(GetFullPathNameW(name.c_str(), 0, nullptr, nullptr), L'\0');
    path.resize(GetFullPathNameW(name.c_str(), static_cast<DWORD>(path.size()), path.data(), nullptr));
    return path;
}

/// The link as the shell makes it. Nonzero on success.
I4 makeLink(const std::wstring& name, const std::wstring& target, const std::wstring& arguments) {
    ComPointer<IShellLinkW> link;
    void* made = nullptr;
    if (FAILED(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW, &made)))
        raise(ErrorNumber::FileNotFound);
    *link.out() = static_cast<IShellLinkW*>(made);
    const auto file = link.as<IPersistFile>(IID_IPersistFile);
    const auto folder = target.substr(0, target.find_last_of(L'\\') + 1);
    const bool done = file && SUCCEEDED(link->SetPath(target.c_str())) &&
                      SUCCEEDED(link->SetArguments(arguments.c_str())) &&
                      SUCCEEDED(link->SetWorkingDirectory(folder.c_str())) &&
                      SUCCEEDED(file->Save(inCurrentFolder(name + L".lnk").c_str(), TRUE));
    return done ? 1 : 0;
}

class WindowsSetupKit : public SetupKit {
    I4 fCreateShellLink(const AnsiText& folder, const AnsiText& name, const AnsiText& target,
                        const AnsiText& arguments) override {
        static const auto function = functionOfTheKit();
        const auto result = function ? function(folder.addressOrNull(), name.addressOrNull(),
                                                target.addressOrNull(), arguments.addressOrNull())
                                     : makeLink(wide(name), wide(target), wide(arguments));
        lastError() = static_cast<I4>(GetLastError());
        return result;
    }
};

}  // namespace

SetupKit& homeSetupKit() {
    static WindowsSetupKit port;
    return port;
}

}  // namespace tovera
