#include "platform/windows/foreign_object.h"

#include <string>

#include "platform/windows/foreign_call.h"
#include "platform/windows/interface_ids.h"

namespace tovera {
namespace {

class ForeignEnumerator : public Enumerator {
  public:
    explicit ForeignEnumerator(ComPointer<IEnumVARIANT> elements) : elements_(std::move(elements)) {}

    std::optional<Variant> next() override {
        SystemVariant element;
        const HRESULT status = elements_->Next(1, &element.get(), nullptr);
        if (FAILED(status)) throw AutomationError(static_cast<ReturnCode>(status), {});
        if (status != S_OK) return {};
        return valueOf(element.get());
    }

  private:
    ComPointer<IEnumVARIANT> elements_;
};

}  // namespace

std::optional<MemberId> ForeignObject::memberNamed(std::u16string_view name) {
    std::wstring text(name.begin(), name.end());
    LPOLESTR names = text.data();
    DISPID member = DISPID_UNKNOWN;
    const HRESULT status = dispatch_->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &member);
    if (status == DISP_E_UNKNOWNNAME || status == DISP_E_MEMBERNOTFOUND) return {};
    if (FAILED(status)) throw AutomationError(static_cast<ReturnCode>(status), {});
    return member;
}

ReturnCode ForeignObject::invoke(MemberId member, CallKind kind, std::span<Variant> arguments,
                                 Variant& result, ErrorRecord& failure) noexcept {
    try {
        // The object may drop its last reference during the call.
        const ComPointer<IDispatch> held(dispatch_);
        result = valueOf(callForeign(*held.get(), member, kind, arguments).get());
    } catch (...) {
        result = {};
        failure = recordOfCurrentException();
    }
    return failure.code;
}

std::unique_ptr<Enumerator> ForeignObject::elements() {
    try {
        const auto found =
            callForeign(*dispatch_.get(), DISPID_NEWENUM, CallKind::Method | CallKind::Read, {});
        if (found.get().vt == VT_UNKNOWN || found.get().vt == VT_DISPATCH) {
            auto elements = ComPointer<IUnknown>(found.get().punkVal).as<IEnumVARIANT>(IID_IEnumVARIANT);
            if (elements) return std::make_unique<ForeignEnumerator>(std::move(elements));
        }
    } catch (const AutomationError& error) {
        if (error.number() != static_cast<I4>(ErrorNumber::NoSuchMember)) throw;
    }
    raise(ErrorNumber::NotEnumerable);
}

ObjectRef ForeignObject::query(const InterfaceId& interfaceId) {
    auto found = dispatch_.as<IDispatch>(systemId(interfaceId));
    if (!found) raise(ErrorNumber::NoSuchInterface);
    return makeObject<ForeignObject>(std::move(found));
}

}  // namespace tovera
