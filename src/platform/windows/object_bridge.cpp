#include "platform/windows/object_bridge.h"

#include "platform/windows/module.h"

namespace tovera {
namespace {

/// Whether the functions of an interface are of this file. There are objects that say yes to any identifier.
bool isOfThisFile(IUnknown* any) {
    const auto* const functions = *reinterpret_cast<const wchar_t* const*>(any);
    HMODULE file = nullptr;
    return GetModuleHandleExW(
               GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
               functions, &file) &&
           file == ownModule();
}

}  // namespace

const IID& ownObjectId() {
    static const char place = 0;
    // The address makes it differ from that of another copy, loaded from another file.
    static const IID id{static_cast<unsigned long>(reinterpret_cast<std::uintptr_t>(&place)),
                        0x4A0E,
                        0x4B57,
                        {0x9C, 0x31, 0x60, 0xD2, 0x8E, 0x17, 0xAA, 0x05}};
    return id;
}

Object* ownObjectOf(const ComPointer<IUnknown>& any) {
    const auto own = any.as<OwnObject>(ownObjectId());
    return own && isOfThisFile(own.get()) ? own->ownObject() : nullptr;
}

IDispatch* dispatchOf(const ObjectRef& object) {
    if (!object) return nullptr;
    auto* const source = dynamic_cast<DispatchSource*>(object.get());
    if (!source) raise(ErrorNumber::TypeMismatch);
    IDispatch* const dispatch = source->dispatch();
    dispatch->AddRef();
    return dispatch;
}

}  // namespace tovera
