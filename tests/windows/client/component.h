#pragma once

#include <gtest/gtest.h>

#include "KADRELDLL.h"
#include "client/com.h"

namespace tovera::client {

/// The component's file, loaded as the system loads it, without any registration.
class Component {
  public:
    static const Component& loaded();

    const std::wstring& file() const { return file_; }
    HMODULE module() const { return module_; }

    HRESULT classObject(REFCLSID classId, REFIID interfaceId, void** found) const {
        return call<HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**)>("DllGetClassObject")(
            classId, interfaceId, found);
    }
    bool canUnloadNow() const { return run("DllCanUnloadNow") == S_OK; }
    HRESULT run(const char* name) const { return call<HRESULT(STDAPICALLTYPE*)()>(name)(); }

    Pointer<IClassFactory> factory(REFCLSID classId) const;

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
    Component();

    template <class Function>
    Function call(const char* name) const {
        return reinterpret_cast<Function>(reinterpret_cast<void (*)()>(GetProcAddress(module_, name)));
    }

    std::wstring file_;
    HMODULE module_;
};

}  // namespace tovera::client
