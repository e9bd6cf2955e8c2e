#include <aclapi.h>
#include <algorithm>
#include <fstream>
#include <set>
#include <sstream>

#include "client/library.h"

// Registration by the system's own tool, what it makes possible, and that nothing of it stays.
namespace tovera::client {
namespace {

/// The keys of both bitnesses, each where it really is.
constexpr REGSAM allKeys = KEY_READ | KEY_WOW64_64KEY;

/// All keys below a key, each in brackets and behind its values.
std::wstring treeOf(HKEY parent, const std::wstring& name, const std::wstring& path) {
    HKEY key = nullptr;
    if (RegOpenKeyExW(parent, name.c_str(), 0, allKeys, &key) != ERROR_SUCCESS) return {};
    std::wstring all, found(16384, L'\0'), data(16384, L'\0');
    DWORD length = 16384, size = 32768;
    for (DWORD i = 0; RegEnumValueW(key, i, found.data(), &length, nullptr, nullptr,
                                    reinterpret_cast<BYTE*>(data.data()), &size) == ERROR_SUCCESS;
         ++i, length = 16384, size = 32768)
        all += found.substr(0, length) + L"=" + data.substr(0, size / 2) + L"\n";
    for (DWORD i = 0; RegEnumKeyW(key, i, found.data(), length) == ERROR_SUCCESS; ++i)
        all += treeOf(key, found.c_str(), path + L"\\" + found.c_str());
    RegCloseKey(key);
    return all + L"[" + path + L"]\n";
}

std::wstring snapshot() {
    return treeOf(HKEY_LOCAL_MACHINE, L"Software\\Classes", L"LM") +
           treeOf(HKEY_CURRENT_USER, L"Software\\Classes", L"CU");
}

std::multiset<std::string> linesOf(const std::wstring& text) {
    std::istringstream lines(utf8(text));
    std::multiset<std::string> all;
    for (std::string line; std::getline(lines, line);) all.insert(line);
    return all;
}

/// The registry is again what it was; if not, the lines that have come and gone are told.
void expectUnchanged(const std::wstring& before) {
    const auto old = linesOf(before), now = linesOf(snapshot());
    std::vector<std::string> come, gone;
    std::ranges::set_difference(now, old, std::back_inserter(come));
    std::ranges::set_difference(old, now, std::back_inserter(gone));
    EXPECT_EQ(come, std::vector<std::string>());
    EXPECT_EQ(gone, std::vector<std::string>());
}

int regsvr32(const std::wstring& arguments) {
    return _wsystem((L"regsvr32 /s " + arguments + L" \"" + Component::loaded().file() + L"\"").c_str());
}

std::size_t countOf(const std::wstring& text, const std::wstring& what) {
    std::size_t count = 0;
    for (auto at = text.find(what); at != text.npos; at = text.find(what, at + 1)) ++count;
    return count;
}

void expectCreation(const std::string& name) {
    SCOPED_TRACE(name);
    const auto progId = L"KADRELDLL." + std::wstring(name.begin(), name.end());
    CLSID classId;
    ASSERT_EQ(CLSIDFromProgID(progId.c_str(), &classId), S_OK);
    LPOLESTR found = nullptr;
    EXPECT_EQ(ProgIDFromCLSID(classId, &found), S_OK);
    EXPECT_EQ(found, progId);
    CoTaskMemFree(found);
    Pointer<IDispatch> object;
    Pointer<ITypeInfo> info;
    ASSERT_EQ(CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, object.outAny()), S_OK);
    ASSERT_EQ(object->GetTypeInfo(0, 0, info.out()), S_OK);
    EXPECT_EQ(documentationOf(info.get()).name, "_" + name);
}

/// Calls an object of another thread by way of the system's marshalling, which the registration makes
/// possible.
DWORD WINAPI callFromElsewhere(void* stream) {
    CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    long seconds = -1;
    Pointer<_Cls_Date> dates;
    CoGetInterfaceAndReleaseStream(static_cast<IStream*>(stream), __uuidof(_Cls_Date), dates.outAny());
    if (dates) dates->Chrono(82800, 3600, &seconds);
    dates.Reset();
    CoUninitialize();
    return static_cast<DWORD>(seconds);
}

void expectCallsFromOtherApartments() {
    const auto dates = Component::loaded().create<Cls_Date, _Cls_Date>();
    IStream* stream = nullptr;
    ASSERT_EQ(CoMarshalInterThreadInterfaceInStream(__uuidof(_Cls_Date), dates.get(), &stream), S_OK);
    HANDLE thread = CreateThread(nullptr, 0, callFromElsewhere, stream, 0, nullptr);
    DWORD index = 0, seconds = 0;
    EXPECT_EQ(CoWaitForMultipleHandles(0, 30000, 1, &thread, &index), S_OK);
    GetExitCodeThread(thread, &seconds);
    CloseHandle(thread);
    EXPECT_EQ(seconds, 7200U);
}

TEST(Registration, LeavesTheRegistryAsItWas) {
    const auto before = snapshot();
    ASSERT_EQ(regsvr32(L""), 0);
    const auto registered = snapshot();
    EXPECT_EQ(regsvr32(L""), 0) << "a second time";
    expectUnchanged(registered);
    const Library library;
    std::size_t classes = 0;
    for (unsigned i = 0; i < publishedNames.size(); ++i) {
        if (!publishedNames[i].starts_with("Cls_") || !library.at(i + 1)) continue;
        expectCreation(publishedNames[i]);
        ++classes;
    }
    const std::wstring apartment = L"ThreadingModel=Apartment";
    EXPECT_EQ(countOf(registered, apartment), countOf(before, apartment) + classes);
    expectCallsFromOtherApartments();
    Pointer<ITypeLib> registeredLibrary;
    EXPECT_EQ(LoadRegTypeLib(library.attributes().guid, 1, 0, 0, registeredLibrary.out()), S_OK);
    for (const auto* again : {"", "a second time"}) {
        ASSERT_EQ(regsvr32(L"/u"), 0) << again;
        SCOPED_TRACE(again);
        expectUnchanged(before);
    }
}

constexpr bool has64Bits = sizeof(void*) == 8;

/// The system's programs of the other bitness.
const std::wstring otherPrograms = has64Bits ? L"C:\\windows\\syswow64\\" : L"C:\\windows\\sysnative\\";

/// The component of the other bitness, as the build and the zip have it; empty when it isn't there.
std::wstring otherComponent() {
    auto file = Component::loaded().file();
    const std::wstring own = has64Bits ? L"windows64\\" : L"windows\\";
    const auto place = file.rfind(own);
    if (place == file.npos) return {};
    file.replace(place, own.size(), has64Bits ? L"windows\\" : L"windows64\\");
    return GetFileAttributesW(file.c_str()) == INVALID_FILE_ATTRIBUTES ? L"" : file;
}

/// What a script of the other bitness gets from an object that it makes by its ProgID.
std::string calledByTheOther() {
    std::ofstream("C:\\other.vbs") << "WScript.Echo CreateObject(\"KADRELDLL.Cls_Date\").Chrono(1, 3)";
    _wsystem((otherPrograms + L"cscript //nologo C:\\other.vbs >C:\\other.txt").c_str());
    std::string line;
    std::getline(std::ifstream("C:\\other.txt"), line);
    return line.substr(0, line.find('\r'));
}

TEST(Registration, EitherBitnessWorksWithoutTheOther) {
    const auto other = otherComponent();
    const auto registerOther = [&](const wchar_t* arguments) {
        return _wsystem((otherPrograms + L"regsvr32 /s " + arguments + L" \"" + other + L"\"").c_str());
    };
    calledByTheOther();  // the script's own host registers itself at its first run
    const auto before = snapshot();
    if (other.empty() || registerOther(L"") != 0) GTEST_SKIP() << "no component of the other bitness here";
    const auto onlyOther = snapshot();
    EXPECT_EQ(calledByTheOther(), "2");
    ASSERT_EQ(regsvr32(L""), 0);
    expectCreation("Cls_Date");
    EXPECT_EQ(calledByTheOther(), "2");
    ASSERT_EQ(regsvr32(L"/u"), 0);
    EXPECT_EQ(calledByTheOther(), "2");
    ASSERT_EQ(registerOther(L""), 0) << "which sets the library's folder again";
    expectUnchanged(onlyOther);
    ASSERT_EQ(regsvr32(L""), 0);
    ASSERT_EQ(registerOther(L"/u"), 0);
    expectCreation("Cls_Date");
    ASSERT_EQ(regsvr32(L"/u"), 0);
    expectUnchanged(before);
}

/// The same where no program of the other bitness runs: what its registration leaves is written by hand.
TEST(Registration, WhatTheOtherBitnessNeedsStays) {
    const std::wstring classes = L"Software\\Classes\\";
    const Library library;
    LPOLESTR classId = nullptr, libraryId = nullptr;
    GUID first = library.attributes().guid;
    first.Data1 += 2;
    StringFromCLSID(first, &classId);
    StringFromCLSID(library.attributes().guid, &libraryId);
    const auto before = snapshot();
    ASSERT_EQ(regsvr32(L""), 0);
    const auto classOfOther = classes + L"CLSID\\" + classId;
    const auto file = classes + L"TypeLib\\" + libraryId + L"\\1.0\\0\\" + (has64Bits ? L"win32" : L"win64");
    CoTaskMemFree(classId);
    CoTaskMemFree(libraryId);
    const REGSAM otherView = has64Bits ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;
    HKEY key = nullptr;
    for (const auto& [name, view] : {std::pair(classOfOther, otherView), std::pair(file, REGSAM{0})}) {
        RegCreateKeyExW(HKEY_LOCAL_MACHINE, name.c_str(), 0, nullptr, 0, KEY_WRITE | view, nullptr, &key,
                        nullptr);
        RegCloseKey(key);
    }
    ASSERT_EQ(regsvr32(L"/u"), 0);
    const auto left = snapshot();
    EXPECT_EQ(countOf(left, L"[LM\\KADRELDLL.Cls_Date\\Clsid]"), 1U);
    EXPECT_GT(countOf(left, L"\\1.0\\HELPDIR]"), countOf(before, L"\\1.0\\HELPDIR]"));
    EXPECT_EQ(countOf(left, L"ThreadingModel="), countOf(before, L"ThreadingModel="));
    RegDeleteKeyExW(HKEY_LOCAL_MACHINE, classOfOther.c_str(), otherView, 0);
    RegDeleteKeyW(HKEY_LOCAL_MACHINE, file.c_str());
    ASSERT_EQ(regsvr32(L"/u"), 0);
    expectUnchanged(before);
}

/// A stand-in for the machine's part of the registry, for this process alone.
class OwnMachine {
  public:
    OwnMachine() {
        RegCreateKeyW(HKEY_CURRENT_USER, L"Software\\TOVERA machine", &key_);
        RegCreateKeyW(key_, L"Software\\Classes", &classes_);
        RegOverridePredefKey(HKEY_LOCAL_MACHINE, key_);
    }
    OwnMachine(const OwnMachine&) = delete;
    OwnMachine& operator=(const OwnMachine&) = delete;
    ~OwnMachine() {
        RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
        setRights(nullptr);
        RegCloseKey(classes_);
        RegDeleteTreeW(key_, nullptr);
        RegCloseKey(key_);
        RegDeleteKeyW(HKEY_CURRENT_USER, L"Software\\TOVERA machine");
    }

    /// From here on nobody may write to its classes.
    void deny() {
        ACL nobody{};
        InitializeAcl(&nobody, sizeof nobody, ACL_REVISION);
        setRights(&nobody);
    }

    /// Has a key where nothing can be made: the way to a key that isn't there.
    void makeDeadEnd(const wchar_t* name) {
        HKEY link = nullptr;
        const std::wstring nowhere = L"\\Registry\\Machine\\TOVERA nowhere\\at all";
        RegCreateKeyExW(classes_, name, 0, nullptr, REG_OPTION_CREATE_LINK, KEY_ALL_ACCESS, nullptr, &link,
                        nullptr);
        RegSetValueExW(link, L"SymbolicLinkValue", 0, REG_LINK, reinterpret_cast<const BYTE*>(nowhere.data()),
                       static_cast<DWORD>(nowhere.size() * sizeof(wchar_t)));
        RegCloseKey(link);
    }

  private:
    void setRights(ACL* rights) const {
        SECURITY_DESCRIPTOR descriptor{};
        InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION);
        SetSecurityDescriptorDacl(&descriptor, TRUE, rights, FALSE);
        EXPECT_EQ(RegSetKeySecurity(classes_, DACL_SECURITY_INFORMATION, &descriptor), ERROR_SUCCESS);
    }

    HKEY key_ = nullptr, classes_ = nullptr;
};

TEST(Registration, WithoutRightsForAllUsersItIsForTheCurrentOne) {
    OwnMachine machine;
    machine.deny();
    EXPECT_EQ(Component::loaded().run("DllRegisterServer"), S_OK);
    EXPECT_EQ(Component::loaded().run("DllUnregisterServer"), S_OK);
    const auto before = snapshot();
    for (const auto* parent : {L"CLSID", L"Interface", L"TypeLib"})
        EXPECT_EQ(countOf(before, L"[CU\\" + std::wstring(parent) + L"]"), 1U) << "stays, though empty";
    EXPECT_EQ(Component::loaded().run("DllRegisterServer"), S_OK);
    const auto after = snapshot();
    EXPECT_EQ(countOf(after, L"[CU\\KADRELDLL.Cls_Date]"), 1U);
    EXPECT_EQ(countOf(after, L"[LM\\KADRELDLL.Cls_Date]"), 0U);
    EXPECT_EQ(Component::loaded().run("DllUnregisterServer"), S_OK);
    expectUnchanged(before);
}

TEST(Registration, OneThatFailsLeavesNothingBehind) {
    OwnMachine machine;
    machine.makeDeadEnd(L"TypeLib");
    const auto before = snapshot();
    EXPECT_EQ(countOf(before, L"[LM"), 1U) << "an empty machine";
    EXPECT_TRUE(FAILED(Component::loaded().run("DllRegisterServer")));
    expectUnchanged(before);
}

}  // namespace
}  // namespace tovera::client
