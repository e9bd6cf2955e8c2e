#pragma once

#include <vector>

#include "client/component.h"

namespace tovera::client {

/// An argument of a call through `Invoke`, by place or by its parameter's name.
struct Argument {
    template <class T>
    Argument(T given) : value(std::move(given)) {}
    Argument(std::wstring parameter, Value given) : name(std::move(parameter)), value(std::move(given)) {}

    std::wstring name;
    Value value;
};

/// A call through `GetIDsOfNames` and `Invoke`, and all that it gave back.
struct Invocation {
    HRESULT status = S_OK;
    Value result, description, source;
    HRESULT code = S_OK;
    UINT argumentAtFault = 999;
};

/// Arguments in their declared order, those with a name last. With the description of the slots the call goes
/// straight to the member's slot, as early-bound ones do.
Invocation invoke(IDispatch* object, const std::wstring& member, std::vector<Argument> arguments,
                  WORD kind = DISPATCH_METHOD | DISPATCH_PROPERTYGET, ITypeInfo* slots = nullptr);

/// The call goes well and gives this.
void expectResult(IDispatch* object, const std::wstring& member, std::vector<Argument> arguments,
                  const Value& result);

}  // namespace tovera::client
