#include <olectl.h>

#include "client/library.h"

// The rules of the object model: identity, class factories, and when the component may be unloaded.
namespace tovera::client {
namespace {

constexpr IID nobodysInterface{0x0BADF00D, 0x1234, 0x4321, {1, 2, 3, 4, 5, 6, 7, 8}};

struct ObjectRules : ::testing::Test {
    /// The call is refused, and nothing stands at its address; without one it is refused as well.
    template <class Call>
    static void expectNothing(HRESULT status, Call call) {
        void* found = &found;
        EXPECT_EQ(call(&found), status);
        EXPECT_EQ(found, nullptr);
        EXPECT_EQ(call(nullptr), E_POINTER);
    }

    const Component& component = Component::loaded();
    Pointer<_Cls_Date> dates = component.create<Cls_Date, _Cls_Date>();
};

TEST_F(ObjectRules, IdentityIsOneAndInterfacesReachEachOther) {
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
    for (const auto& unknown : {nobodysInterface, __uuidof(_Cls_Math), IID_IClassFactory, IID_IPersist})
        expectNothing(E_NOINTERFACE, [&](void** found) { return dates->QueryInterface(unknown, found); });
}

TEST_F(ObjectRules, ReferencesAreCounted) {
    EXPECT_EQ(dates->AddRef(), 2U);
    EXPECT_EQ(dates.as<ISupportErrorInfo>(IID_ISupportErrorInfo)->AddRef(), 4U);
    EXPECT_EQ(dates->Release(), 2U);
    long seconds = 0;
    EXPECT_EQ(dates->Chrono(1, 2, &seconds), S_OK);
    EXPECT_EQ(dates->Chrono(-2147483647 - 1, 2147483647, &seconds), static_cast<HRESULT>(0x800A0006));
    EXPECT_EQ(dates->Release(), 1U) << "a call gives back the reference that it takes, also when it fails";
}

TEST_F(ObjectRules, ErrorAndTypeInformation) {
    const auto support = dates.as<ISupportErrorInfo>(IID_ISupportErrorInfo);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(__uuidof(_Cls_Date)), S_OK);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(__uuidof(_Cls_Math)), S_FALSE);
    const auto provider = dates.as<IProvideClassInfo>(IID_IProvideClassInfo);
    Pointer<ITypeInfo> info;
    ASSERT_EQ(provider->GetClassInfo(info.out()), S_OK);
    EXPECT_EQ(documentationOf(info.get()).name, "Cls_Date");
    ASSERT_EQ(dates->GetTypeInfo(0, 0, info.out()), S_OK);
    EXPECT_EQ(documentationOf(info.get()).name, "_Cls_Date");
    expectNothing(DISP_E_BADINDEX, [&](void** found) {
        return dates->GetTypeInfo(1, 0, reinterpret_cast<ITypeInfo**>(found));
    });
    UINT count = 0;
    EXPECT_EQ(dates->GetTypeInfoCount(&count), S_OK);
    EXPECT_EQ(count, 1U);
    EXPECT_EQ(provider->GetClassInfo(nullptr), E_POINTER);
    EXPECT_EQ(dates->GetTypeInfoCount(nullptr), E_POINTER);
}

TEST_F(ObjectRules, ClassFactoriesRefuseWhatTheyHaveNot) {
    const auto classObject = [&](REFCLSID id, REFIID interfaceId) {
        return [&](void** found) { return component.classObject(id, interfaceId, found); };
    };
    expectNothing(CLASS_E_CLASSNOTAVAILABLE, classObject(nobodysInterface, IID_IClassFactory));
    expectNothing(CLASS_E_CLASSNOTAVAILABLE, classObject(__uuidof(_Cls_Date), IID_IClassFactory));
    expectNothing(E_NOINTERFACE, classObject(__uuidof(Cls_Date), IID_IDispatch));
    const auto factory = component.factory(__uuidof(Cls_Date));
    const auto instance = [&](IUnknown* outer, REFIID interfaceId) {
        return [=, &interfaceId](void** found) { return factory->CreateInstance(outer, interfaceId, found); };
    };
    expectNothing(CLASS_E_NOAGGREGATION, instance(dates.get(), IID_IUnknown));
    expectNothing(E_NOINTERFACE, instance(nullptr, __uuidof(_Cls_Math)));
}

TEST_F(ObjectRules, UnloadingWaitsForObjectsFactoriesAndLocks) {
    auto conversion = component.create<Cls_Conversion, _Cls_Conversion>();
    dates.Reset();
    EXPECT_FALSE(component.canUnloadNow());
    conversion.Reset();
    EXPECT_TRUE(component.canUnloadNow());
    auto factory = component.factory(__uuidof(Cls_Date));
    EXPECT_EQ(factory->AddRef(), 2U);
    EXPECT_EQ(factory->Release(), 1U);
    EXPECT_EQ(factory->LockServer(FALSE), E_FAIL) << "there is none";
    EXPECT_FALSE(component.canUnloadNow());
    for (const BOOL lock : {TRUE, TRUE, FALSE}) factory->LockServer(lock);
    factory.Reset();
    EXPECT_FALSE(component.canUnloadNow());
    component.factory(__uuidof(Cls_Math))->LockServer(FALSE);
    EXPECT_TRUE(component.canUnloadNow());
}

/// The numbers and texts that the file's own properties show.
TEST_F(ObjectRules, VersionBlock) {
    DWORD ignored = 0;
    const auto* const file = component.file().c_str();
    std::string block(GetFileVersionInfoSizeW(file, &ignored), '\0');
    ASSERT_TRUE(GetFileVersionInfoW(file, 0, static_cast<DWORD>(block.size()), block.data()));
    void* found = nullptr;
    UINT length = 0;
    ASSERT_TRUE(VerQueryValueW(block.data(), L"\\", &found, &length));
    const auto& fixed = *static_cast<VS_FIXEDFILEINFO*>(found);
    EXPECT_TRUE(fixed.dwFileVersionMS == 0x10000 && fixed.dwFileVersionLS == 0);
    EXPECT_TRUE(fixed.dwProductVersionMS == 0x10000 && fixed.dwProductVersionLS == 0);
    const std::pair<std::wstring, const wchar_t*> texts[] = {
        {L"FileVersion", L"1.00"},    {L"ProductVersion", L"1.00"},         {L"ProductName", L"HoldDLL"},
        {L"InternalName", L"TOVERA"}, {L"OriginalFilename", L"TOVERA.dll"}, {L"OLESelfRegister", L""},
    };
    for (const auto& [name, text] : texts) {
        const auto path = L"\\StringFileInfo\\040904B0\\" + name;
        ASSERT_TRUE(VerQueryValueW(block.data(), path.c_str(), &found, &length)) << utf8(name);
        EXPECT_STREQ(static_cast<const wchar_t*>(found), text);
    }
}

}  // namespace
}  // namespace tovera::client
