#include "client/invocation.h"

namespace tovera::client {

Invocation invoke(IDispatch* object, const std::wstring& member, std::vector<Argument> arguments, WORD kind,
                  ITypeInfo* slots) {
    Invocation call;
    std::vector<LPOLESTR> names{const_cast<LPOLESTR>(member.c_str())};
    std::vector<VARIANT> given;  // the last argument first; named ones stand in front of those by place
    for (auto argument = arguments.rbegin(); argument != arguments.rend(); ++argument) {
        if (!argument->name.empty()) names.push_back(argument->name.data());
        given.push_back(argument->value.get());
    }
    std::vector<DISPID> ids(names.size());
    call.status =
        object->GetIDsOfNames(IID_NULL, names.data(), static_cast<UINT>(names.size()), 0, ids.data());
    if (FAILED(call.status)) return call;
    std::vector<DISPID> named(ids.begin() + 1, ids.end());
    if (kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) named = {DISPID_PROPERTYPUT};
    DISPPARAMS parameters{given.data(), named.data(), static_cast<UINT>(given.size()),
                          static_cast<UINT>(named.size())};
    EXCEPINFO exception{};
    auto* const result = call.result.out();
    call.status =
        slots ? slots->Invoke(object, ids[0], kind, &parameters, result, &exception, &call.argumentAtFault)
              : object->Invoke(ids[0], IID_NULL, 0, kind, &parameters, result, &exception,
                               &call.argumentAtFault);
    *call.description.textOut() = exception.bstrDescription;
    *call.source.textOut() = exception.bstrSource;
    call.code = exception.scode;
    return call;
}

void expectResult(IDispatch* object, const std::wstring& member, std::vector<Argument> arguments,
                  const Value& result) {
    const auto call = invoke(object, member, std::move(arguments));
    EXPECT_EQ(call.status, S_OK) << utf8(member) << " " << utf8(call.description.text());
    EXPECT_EQ(call.result, result) << utf8(member);
}

}  // namespace tovera::client
