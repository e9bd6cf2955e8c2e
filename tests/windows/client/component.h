#pragma once

#include <gtest/gtest.h>

#include "KADRELDLL.h"
#include "client/com.h"

namespace tovera::client {

/// The component's file, which lies beside this program, loaded as the system loads it, without any
/// registration.
class Component {
  public:
    static const Component& loaded() {
        static const Component component;
        return component;
    }

    const std::wstring& file() const { return file_; }
    HMODULE module() const { return module_; }

    HRESULT classObject(REFCLSID classId, REFIID interfaceId, void** found) const {
        return call<HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**)>("DllGetClassObject")(
            classId, interfaceId, found);
    }
    bool canUnloadNow() const { return run("DllCanUnloadNow") == S_OK; }
    HRESULT run(const char* name) const { return call<HRESULT(STDAPICALLTYPE*)()>(name)(); }

    Pointer<IClassFactory> factory(REFCLSID classId) const {
        Pointer<IClassFactory> found;
        EXPECT_EQ(classObject(classId, IID_IClassFactory, found.outAny()), S_OK);
        return found;
    }

    /// A new object through its class factory.
    template <class Interface>
    Pointer<Interface> create(REFCLSID classId) const {
        Pointer<Interface> made;
        EXPECT_EQ(factory(classId)->CreateInstance(nullptr, __uuidof(Interface), made.outAny()), S_OK);
        return made;
    }
    template <class Class, class Interface>
    Pointer<Interface> create() const {
        return create<Interface>(__uuidof(Class));
    }

  private:
    Component() : file_(MAX_PATH, L'\0') {
        file_.resize(GetModuleFileNameW(nullptr, file_.data(), MAX_PATH));
        file_.replace(file_.find_last_of(L'\\') + 1, file_.npos, L"TOVERA.dll");
        module_ = LoadLibraryW(file_.c_str());
    }

    template <class Function>
    Function call(const char* name) const {
        return reinterpret_cast<Function>(reinterpret_cast<void (*)()>(GetProcAddress(module_, name)));
    }

    std::wstring file_;
    HMODULE module_;
};

}  // namespace tovera::client
