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
        return getClassObject_(classId, interfaceId, found);
    }
    bool canUnloadNow() const { return canUnloadNow_() == S_OK; }
    HRESULT registerServer() const { return register_(); }
    HRESULT unregisterServer() const { return unregister_(); }

    Pointer<IClassFactory> factory(REFCLSID classId) const;

    /// A new object through its class factory.
    template <class Class, class Interface>
    Pointer<Interface> create() const {
        void* made = nullptr;
        const HRESULT status = factory(__uuidof(Class))->CreateInstance(nullptr, __uuidof(Interface), &made);
        EXPECT_EQ(status, S_OK);
        return Pointer<Interface>(static_cast<Interface*>(made));
    }

  private:
    Component();

    std::wstring file_;
    HMODULE module_;
    decltype(&DllGetClassObject) getClassObject_;
    decltype(&DllCanUnloadNow) canUnloadNow_;
    HRESULT(STDAPICALLTYPE* register_)();
    HRESULT(STDAPICALLTYPE* unregister_)();
};

/// What a failed call by slot leaves behind: its code, and the record of the thread with number, description,
/// source and interface.
void expectFailure(HRESULT status, int number, const std::wstring& description, REFIID interfaceId);

}  // namespace tovera::client
