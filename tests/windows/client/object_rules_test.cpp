#include <olectl.h>

#include "client/component.h"

// The rules of the object model: identity, class factories, and when the component may be unloaded.
namespace tovera::client {
namespace {

const Component& component() {
    return Component::loaded();
}

constexpr IID nobodysInterface{0x0BADF00D, 0x1234, 0x4321, {1, 2, 3, 4, 5, 6, 7, 8}};

TEST(ObjectRules, IdentityIsOneAndInterfacesReachEachOther) {
    const auto dates = component().create<Cls_Date, _Cls_Date>();
    const auto identity = dates.as<IUnknown>(IID_IUnknown);
    const IID interfaces[] = {IID_IUnknown, IID_IDispatch, __uuidof(_Cls_Date), IID_ISupportErrorInfo,
                              IID_IProvideClassInfo};
    for (const auto& from : interfaces) {
        const auto first = dates.as<IUnknown>(from);
        ASSERT_TRUE(first);
        EXPECT_EQ(first.as<IUnknown>(IID_IUnknown).get(), identity.get());
        for (const auto& to : interfaces) EXPECT_TRUE(first.as<IUnknown>(to));
    }
    EXPECT_EQ(dates.as<IUnknown>(IID_IDispatch).get(), static_cast<IUnknown*>(dates.get()));
    void* found = &found;
    for (const auto& unknown : {nobodysInterface, __uuidof(_Cls_Math), IID_IClassFactory, IID_IPersist}) {
        EXPECT_EQ(dates->QueryInterface(unknown, &found), E_NOINTERFACE);
        EXPECT_EQ(found, nullptr);
    }
    EXPECT_EQ(dates->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
}

TEST(ObjectRules, ReferencesAreCounted) {
    const auto dates = component().create<Cls_Date, _Cls_Date>();
    EXPECT_EQ(dates->AddRef(), 2U);
    EXPECT_EQ(dates.as<ISupportErrorInfo>(IID_ISupportErrorInfo)->AddRef(), 4U);
    EXPECT_EQ(dates->Release(), 2U);
    EXPECT_EQ(dates->Release(), 1U);
    long seconds = 0;
    EXPECT_EQ(dates->Chrono(1, 2, &seconds), S_OK);
    EXPECT_EQ(dates->Chrono(-2147483647 - 1, 2147483647, &seconds), static_cast<HRESULT>(0x800A0006));
    EXPECT_EQ(dates->AddRef(), 2U) << "a call gives back the reference that it takes, also when it fails";
    dates->Release();
}

TEST(ObjectRules, ErrorInformationIsOfferedForTheClassesInterface) {
    const auto dates = component().create<Cls_Date, _Cls_Date>();
    const auto support = dates.as<ISupportErrorInfo>(IID_ISupportErrorInfo);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(__uuidof(_Cls_Date)), S_OK);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(__uuidof(_Cls_Math)), S_FALSE);
}

TEST(ObjectRules, TypeInformation) {
    const auto dates = component().create<Cls_Date, _Cls_Date>();
    const auto provider = dates.as<IProvideClassInfo>(IID_IProvideClassInfo);
    const auto guidOf = [](const Pointer<ITypeInfo>& info) {
        TYPEATTR* attributes = nullptr;
        info->GetTypeAttr(&attributes);
        const GUID guid = attributes->guid;
        info->ReleaseTypeAttr(attributes);
        return guid;
    };
    Pointer<ITypeInfo> info;
    ASSERT_EQ(provider->GetClassInfo(info.out()), S_OK);
    EXPECT_TRUE(IsEqualGUID(guidOf(info), __uuidof(Cls_Date)));
    EXPECT_EQ(provider->GetClassInfo(nullptr), E_POINTER);
    UINT count = 0;
    EXPECT_EQ(dates->GetTypeInfoCount(&count), S_OK);
    EXPECT_EQ(count, 1U);
    EXPECT_EQ(dates->GetTypeInfoCount(nullptr), E_POINTER);
    ASSERT_EQ(dates->GetTypeInfo(0, 0, info.out()), S_OK);
    EXPECT_TRUE(IsEqualGUID(guidOf(info), __uuidof(_Cls_Date)));
    EXPECT_EQ(dates->GetTypeInfo(1, 0, info.out()), DISP_E_BADINDEX);
    EXPECT_EQ(dates->GetTypeInfo(0, 0, nullptr), E_POINTER);
}

TEST(ObjectRules, ClassFactories) {
    void* found = &found;
    EXPECT_EQ(component().classObject(nobodysInterface, IID_IClassFactory, &found),
              CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(found, nullptr);
    EXPECT_EQ(component().classObject(__uuidof(_Cls_Date), IID_IClassFactory, &found),
              CLASS_E_CLASSNOTAVAILABLE);
    found = &found;
    EXPECT_EQ(component().classObject(__uuidof(Cls_Date), IID_IDispatch, &found), E_NOINTERFACE);
    EXPECT_EQ(found, nullptr);
    EXPECT_EQ(component().classObject(__uuidof(Cls_Date), IID_IClassFactory, nullptr), E_POINTER);

    const auto factory = component().factory(__uuidof(Cls_Date));
    const auto other = component().create<Cls_Math, IUnknown>();
    found = &found;
    EXPECT_EQ(factory->CreateInstance(other.get(), IID_IUnknown, &found), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(found, nullptr);
    found = &found;
    EXPECT_EQ(factory->CreateInstance(nullptr, __uuidof(_Cls_Math), &found), E_NOINTERFACE);
    EXPECT_EQ(found, nullptr);
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
}

TEST(ObjectRules, UnloadingWaitsForObjectsAndLocks) {
    ASSERT_TRUE(component().canUnloadNow());
    auto dates = component().create<Cls_Date, _Cls_Date>();
    auto conversion = component().create<Cls_Conversion, _Cls_Conversion>();
    EXPECT_FALSE(component().canUnloadNow());
    dates.reset();
    EXPECT_FALSE(component().canUnloadNow());
    conversion.reset();
    EXPECT_TRUE(component().canUnloadNow());
    const auto factory = component().factory(__uuidof(Cls_Date));
    factory->LockServer(TRUE);
    factory->LockServer(TRUE);
    factory->LockServer(FALSE);
    EXPECT_FALSE(component().canUnloadNow());
    factory->LockServer(FALSE);
    EXPECT_TRUE(component().canUnloadNow());
}

/// The numbers and texts that the file's own properties show.
TEST(ObjectRules, VersionBlock) {
    DWORD ignored = 0;
    const auto& file = component().file();
    std::string block(GetFileVersionInfoSizeW(file.c_str(), &ignored), '\0');
    ASSERT_TRUE(GetFileVersionInfoW(file.c_str(), 0, static_cast<DWORD>(block.size()), block.data()));
    VS_FIXEDFILEINFO* fixed = nullptr;
    void* found = nullptr;
    UINT length = 0;
    ASSERT_TRUE(VerQueryValueW(block.data(), L"\\", &found, &length));
    fixed = static_cast<VS_FIXEDFILEINFO*>(found);
    EXPECT_EQ(fixed->dwFileVersionMS, 0x10000U);
    EXPECT_EQ(fixed->dwFileVersionLS, 0U);
    EXPECT_EQ(fixed->dwProductVersionMS, 0x10000U);
    const std::pair<const wchar_t*, const wchar_t*> texts[] = {
        {L"FileVersion", L"1.00"},    {L"ProductVersion", L"1.00"},         {L"ProductName", L"HoldDLL"},
        {L"InternalName", L"TOVERA"}, {L"OriginalFilename", L"TOVERA.dll"}, {L"OLESelfRegister", L""},
    };
    for (const auto& [name, text] : texts) {
        const auto path = std::wstring(L"\\StringFileInfo\\040904B0\\") + name;
        ASSERT_TRUE(VerQueryValueW(block.data(), path.c_str(), &found, &length)) << utf8(name);
        EXPECT_STREQ(static_cast<const wchar_t*>(found), text);
    }
}

}  // namespace
}  // namespace tovera::client
