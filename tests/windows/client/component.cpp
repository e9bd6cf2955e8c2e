#include "client/component.h"

namespace tovera::client {
namespace {

/// The component lies beside this program.
std::wstring besideThisProgram(const wchar_t* name) {
    std::wstring path(MAX_PATH, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), MAX_PATH));
    return path.substr(0, path.find_last_of(L'\\') + 1) + name;
}

template <class Function>
Function function(HMODULE module, const char* name) {
    return reinterpret_cast<Function>(reinterpret_cast<void (*)()>(GetProcAddress(module, name)));
}

}  // namespace

Component::Component()
    : file_(besideThisProgram(L"TOVERA.dll")),
      module_(LoadLibraryW(file_.c_str())),
      getClassObject_(function<decltype(getClassObject_)>(module_, "DllGetClassObject")),
      canUnloadNow_(function<decltype(canUnloadNow_)>(module_, "DllCanUnloadNow")),
      register_(function<decltype(register_)>(module_, "DllRegisterServer")),
      unregister_(function<decltype(unregister_)>(module_, "DllUnregisterServer")) {}

const Component& Component::loaded() {
    static const Component component;
    return component;
}

Pointer<IClassFactory> Component::factory(REFCLSID classId) const {
    void* found = nullptr;
    EXPECT_EQ(classObject(classId, IID_IClassFactory, &found), S_OK);
    return Pointer<IClassFactory>(static_cast<IClassFactory*>(found));
}

void expectFailure(HRESULT status, int number, const std::wstring& description, REFIID interfaceId) {
    EXPECT_EQ(static_cast<unsigned long>(status), 0x800A0000UL + static_cast<unsigned long>(number));
    Pointer<IErrorInfo> record;
    ASSERT_EQ(GetErrorInfo(0, record.out()), S_OK);
    Text text;
    Text source;
    GUID failed{};
    record->GetDescription(text.out());
    record->GetSource(source.out());
    record->GetGUID(&failed);
    EXPECT_EQ(utf8(text.str()), utf8(description));
    EXPECT_EQ(source.str(), L"KADRELDLL");
    EXPECT_TRUE(IsEqualGUID(failed, interfaceId));
}

}  // namespace tovera::client
