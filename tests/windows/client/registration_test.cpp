#include <aclapi.h>
#include <map>

#include "client/invocation.h"
#include "client/published_tables.h"

// Registration by the system's own tool, what it makes possible, and that nothing of it stays.
namespace tovera::client {
namespace {

/// Every key and value below a key, as "path\" and "path\name".
using Snapshot = std::map<std::wstring, std::wstring>;

void collect(HKEY key, const std::wstring& path, Snapshot& snapshot) {
    snapshot[path + L"\\"] = L"";
    std::wstring name(16384, L'\0');
    std::wstring data(16384, L'\0');
    for (DWORD i = 0;; ++i) {
        auto length = static_cast<DWORD>(name.size());
        auto size = static_cast<DWORD>(data.size() * sizeof(wchar_t));
        DWORD type = 0;
        if (RegEnumValueW(key, i, name.data(), &length, nullptr, &type, reinterpret_cast<BYTE*>(data.data()),
                          &size) != ERROR_SUCCESS)
            break;
        snapshot[path + L"\\" + name.substr(0, length)] =
            std::to_wstring(type) + L" " + data.substr(0, (size + 1) / sizeof(wchar_t));
    }
    for (DWORD i = 0;; ++i) {
        auto length = static_cast<DWORD>(name.size());
        if (RegEnumKeyExW(key, i, name.data(), &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS)
            break;
        HKEY child = nullptr;
        if (RegOpenKeyExW(key, name.c_str(), 0, KEY_READ, &child) != ERROR_SUCCESS) continue;
        collect(child, path + L"\\" + name.substr(0, length), snapshot);
        RegCloseKey(child);
    }
}

Snapshot takeSnapshot() {
    Snapshot snapshot;
    const std::pair<HKEY, const wchar_t*> roots[] = {{HKEY_LOCAL_MACHINE, L"LM"}, {HKEY_CURRENT_USER, L"CU"}};
    for (const auto& [root, name] : roots) {
        HKEY classes = nullptr;
        if (RegOpenKeyExW(root, L"Software\\Classes", 0, KEY_READ, &classes) != ERROR_SUCCESS) continue;
        collect(classes, name, snapshot);
        RegCloseKey(classes);
    }
    return snapshot;
}

DWORD regsvr32(const std::wstring& arguments) {
    auto command = L"regsvr32 /s " + arguments + L" \"" + Component::loaded().file() + L"\"";
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                        &process))
        return GetLastError();
    DWORD status = 0;
    WaitForSingleObject(process.hProcess, INFINITE);
    GetExitCodeProcess(process.hProcess, &status);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return status;
}

std::wstring wide(std::string_view ascii) {
    return {ascii.begin(), ascii.end()};
}

void expectCreation(std::string_view name) {
    SCOPED_TRACE(name);
    CLSID classId;
    ASSERT_EQ(CLSIDFromProgID((L"KADRELDLL." + wide(name)).c_str(), &classId), S_OK);
    Text progId;
    LPOLESTR found = nullptr;
    EXPECT_EQ(ProgIDFromCLSID(classId, &found), S_OK);
    EXPECT_EQ(found, L"KADRELDLL." + wide(name));
    CoTaskMemFree(found);
    void* made = nullptr;
    ASSERT_EQ(CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, &made), S_OK);
    const Pointer<IDispatch> object(static_cast<IDispatch*>(made));
    Pointer<ITypeInfo> info;
    ASSERT_EQ(object->GetTypeInfo(0, 0, info.out()), S_OK);
    Text interfaceName;
    info->GetDocumentation(MEMBERID_NIL, interfaceName.out(), nullptr, nullptr, nullptr);
    EXPECT_EQ(interfaceName.str(), L"_" + wide(name));
}

void expectThreadingModel() {
    LPOLESTR text = nullptr;
    StringFromCLSID(__uuidof(Cls_Date), &text);
    const auto key = std::wstring(L"CLSID\\") + text + L"\\InprocServer32";
    CoTaskMemFree(text);
    wchar_t value[MAX_PATH]{};
    DWORD size = sizeof value;
    EXPECT_EQ(
        RegGetValueW(HKEY_CLASSES_ROOT, key.c_str(), L"ThreadingModel", RRF_RT_REG_SZ, nullptr, value, &size),
        ERROR_SUCCESS);
    EXPECT_STREQ(value, L"Apartment");
    size = sizeof value;
    RegGetValueW(HKEY_CLASSES_ROOT, key.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, value, &size);
    EXPECT_EQ(_wcsicmp(value, Component::loaded().file().c_str()), 0);
}

/// Calls an object of this thread from another apartment, by way of the system's marshalling.
DWORD WINAPI callFromElsewhere(void* parameter) {
    CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    long seconds = -1;
    {
        void* found = nullptr;
        CoGetInterfaceAndReleaseStream(static_cast<IStream*>(parameter), __uuidof(_Cls_Date), &found);
        const Pointer<_Cls_Date> dates(static_cast<_Cls_Date*>(found));
        if (dates) dates->Chrono(82800, 3600, &seconds);
    }
    CoUninitialize();
    return static_cast<DWORD>(seconds);
}

void expectCallsFromOtherApartments() {
    const auto dates = Component::loaded().create<Cls_Date, _Cls_Date>();
    IStream* stream = nullptr;
    ASSERT_EQ(CoMarshalInterThreadInterfaceInStream(__uuidof(_Cls_Date), dates.get(), &stream), S_OK);
    const HANDLE thread = CreateThread(nullptr, 0, callFromElsewhere, stream, 0, nullptr);
    DWORD index = 0;
    HANDLE handle = thread;
    EXPECT_EQ(CoWaitForMultipleHandles(0, 30000, 1, &handle, &index), S_OK);
    DWORD seconds = 0;
    GetExitCodeThread(thread, &seconds);
    CloseHandle(thread);
    EXPECT_EQ(seconds, 7200U);
}

TEST(Registration, LeavesTheRegistryAsItWas) {
    const auto before = takeSnapshot();
    ASSERT_EQ(regsvr32(L""), 0U);
    const auto registered = takeSnapshot();
    EXPECT_NE(registered, before);
    EXPECT_EQ(regsvr32(L""), 0U) << "a second time";
    EXPECT_EQ(takeSnapshot(), registered);
    for (const auto& published : publishedClasses) expectCreation(published.name);
    expectThreadingModel();
    expectCallsFromOtherApartments();
    Pointer<ITypeLib> library;
    GUID id = __uuidof(Cls_InitREG);
    id.Data1 -= 2;
    EXPECT_EQ(LoadRegTypeLib(id, 1, 0, 0, library.out()), S_OK);
    ASSERT_EQ(regsvr32(L"/u"), 0U);
    EXPECT_EQ(takeSnapshot(), before);
    EXPECT_EQ(regsvr32(L"/u"), 0U) << "a second time";
    EXPECT_EQ(takeSnapshot(), before);
}

/// A stand-in for the machine's part of the registry, for this process alone.
class OwnMachine {
  public:
    OwnMachine() {
        RegCreateKeyW(HKEY_CURRENT_USER, L"Software\\TOVERA machine", &key_);
        HKEY classes = nullptr;
        RegCreateKeyW(key_, L"Software\\Classes", &classes);
        RegCloseKey(classes);
        RegOverridePredefKey(HKEY_LOCAL_MACHINE, key_);
    }
    OwnMachine(const OwnMachine&) = delete;
    OwnMachine& operator=(const OwnMachine&) = delete;
    ~OwnMachine() {
        RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
        if (denied_) {
            setRights(nullptr);
            RegCloseKey(denied_);
        }
        RegDeleteTreeW(key_, nullptr);
        RegCloseKey(key_);
        RegDeleteKeyW(HKEY_CURRENT_USER, L"Software\\TOVERA machine");
    }

    /// From here on nobody may write to a key of it.
    void deny(const wchar_t* path) {
        RegCreateKeyW(key_, path, &denied_);
        ACL nobody{};
        InitializeAcl(&nobody, sizeof nobody, ACL_REVISION);
        setRights(&nobody);
    }

  private:
    void setRights(ACL* rights) const {
        SECURITY_DESCRIPTOR descriptor{};
        InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION);
        SetSecurityDescriptorDacl(&descriptor, TRUE, rights, FALSE);
        EXPECT_EQ(RegSetKeySecurity(denied_, DACL_SECURITY_INFORMATION, &descriptor), ERROR_SUCCESS);
    }

    HKEY key_ = nullptr;
    HKEY denied_ = nullptr;
};

TEST(Registration, WithoutRightsForAllUsersItIsForTheCurrentOne) {
    OwnMachine machine;
    machine.deny(L"Software\\Classes");
    const auto before = takeSnapshot();
    EXPECT_EQ(Component::loaded().registerServer(), S_OK);
    const auto after = takeSnapshot();
    EXPECT_TRUE(after.contains(L"CU\\KADRELDLL.Cls_Date\\"));
    EXPECT_FALSE(after.contains(L"LM\\KADRELDLL.Cls_Date\\"));
    EXPECT_EQ(Component::loaded().unregisterServer(), S_OK);
    EXPECT_EQ(takeSnapshot(), before);
}

TEST(Registration, OneThatFailsLeavesNothingBehind) {
    const OwnMachine machine;
    HKEY libraries = nullptr;  // where no key can be made: the way to a key that isn't there
    DWORD disposition = 0;
    RegCreateKeyExW(HKEY_LOCAL_MACHINE, L"Software\\Classes\\TypeLib", 0, nullptr, REG_OPTION_CREATE_LINK,
                    KEY_ALL_ACCESS, nullptr, &libraries, &disposition);
    const std::wstring nowhere = L"\\Registry\\Machine\\TOVERA nowhere\\at all";
    RegSetValueExW(libraries, L"SymbolicLinkValue", 0, REG_LINK,
                   reinterpret_cast<const BYTE*>(nowhere.data()),
                   static_cast<DWORD>(nowhere.size() * sizeof(wchar_t)));
    RegCloseKey(libraries);
    const auto before = takeSnapshot();
    EXPECT_TRUE(FAILED(Component::loaded().registerServer()));
    EXPECT_EQ(takeSnapshot(), before);
    EXPECT_FALSE(before.contains(L"LM\\KADRELDLL.Cls_Date\\"));
}

}  // namespace
}  // namespace tovera::client
