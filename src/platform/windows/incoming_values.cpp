#include "platform/windows/incoming_values.h"

#include <cstring>
#include <string>

#include "frame/conversions.h"
#include "platform/platform.h"
#include "platform/windows/arrays.h"
#include "platform/windows/foreign_call.h"
#include "platform/windows/interface_ids.h"
#include "platform/windows/object_bridge.h"
#include "platform/windows/texts.h"
#include "platform/windows/wide_text.h"

namespace tovera {
namespace {

/// A late-bound object of another program, reached through its `IDispatch`.
class ForeignObject : public Counted<>, public DispatchSource {
  public:
    explicit ForeignObject(ComPointer<IDispatch> dispatch) : dispatch_(std::move(dispatch)) {}

    std::optional<MemberId> memberNamed(std::u16string_view name) override;
    ReturnCode invoke(MemberId member, CallKind kind, std::span<Variant> arguments, Variant& result,
                      ErrorRecord& failure) noexcept override;
    std::unique_ptr<Enumerator> elements() override;
    ObjectRef query(const InterfaceId& interfaceId) override;
    IDispatch* dispatch() noexcept override { return dispatch_.get(); }

  private:
    ComPointer<IDispatch> dispatch_;
};

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

void takeBack(const Reference& variable, const VARIANT& left) {
    Conversions(home().services).store(variable, valueOf(left));
}

std::optional<MemberId> ForeignObject::memberNamed(std::u16string_view name) {
    std::wstring text = wide(name);
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
        result = valueOf(callForeign(*held.get(), member, kind, arguments, &takeBack).get());
    } catch (...) {
        result = {};
        failure = recordOfCurrentException();
    }
    return failure.code;
}

std::unique_ptr<Enumerator> ForeignObject::elements() {
    try {
        const auto found =
            callForeign(*dispatch_.get(), DISPID_NEWENUM, CallKind::Method | CallKind::Read, {}, &takeBack);
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

ExactNumber exactOf(std::int64_t number, UI1 decimals) {
    const auto bits = static_cast<std::uint64_t>(number);
    return {number < 0 ? ~bits + 1 : bits, 0, decimals, number < 0};
}

ExactNumber exactOf(const DECIMAL& number) {
    return {number.Lo64, number.Hi32, number.scale, (number.sign & DECIMAL_NEG) != 0};
}

/// A number type that the frame hasn't got.
Variant numberOf(const VARIANT& variant) {
    const bool isSmall = variant.vt == VT_I1 || variant.vt == VT_UI2 || variant.vt == VT_INT;
    const SystemVariant number = SystemVariant::changed(variant, isSmall ? VT_I4 : VT_R8);
    return isSmall ? Variant(I4{number.get().lVal}) : Variant(R8{number.get().dblVal});
}

/// A value that stands in the `VARIANT` itself.
Variant ownValueOf(const VARIANT& variant) {
    if (variant.vt & VT_ARRAY) return arrayOf(variant.parray, variant.vt & VT_TYPEMASK);
    switch (variant.vt) {
        case VT_EMPTY:
            return {};
        case VT_NULL:
            return Null{};
        case VT_UI1:
            return UI1{variant.bVal};
        case VT_I2:
            return I2{variant.iVal};
        case VT_I4:
            return I4{variant.lVal};
        case VT_R4:
            return R4{variant.fltVal};
        case VT_R8:
            return R8{variant.dblVal};
        case VT_DATE:
            return Date{variant.date};
        case VT_BSTR:
            return textOf(variant.bstrVal);
        case VT_BOOL:
            return VariantBool::ofBits(variant.boolVal);
        case VT_ERROR:
            return ErrorCode{variant.scode};
        case VT_DISPATCH:
        case VT_UNKNOWN:
            return objectOf(variant.punkVal);
        case VT_I8:
            return exactOf(variant.llVal, 0);
        case VT_UI8:
            return ExactNumber{variant.ullVal};
        case VT_CY:
            return exactOf(variant.cyVal.int64, 4);
        case VT_DECIMAL:
            return exactOf(variant.decVal);
        default:
            return numberOf(variant);
    }
}

}  // namespace

ObjectRef objectOf(IUnknown* unknown) {
    if (!unknown) return {};
    const ComPointer<IUnknown> given(unknown);
    if (auto* const own = ownObjectOf(given)) return ObjectRef(own);
    auto dispatch = given.as<IDispatch>(IID_IDispatch);
    if (!dispatch) raise(ErrorNumber::TypeMismatch);
    return makeObject<ForeignObject>(std::move(dispatch));
}

Variant valueOf(const VARIANT& variant, int chain) {
    if (!(variant.vt & VT_BYREF)) return ownValueOf(variant);
    if (!variant.byref || chain == 0) raise(ErrorNumber::TypeMismatch);
    if (variant.vt == (VT_BYREF | VT_VARIANT)) return valueOf(*variant.pvarVal, chain - 1);
    VARIANT copy{};
    const auto tag = static_cast<VARTYPE>(variant.vt & ~VT_BYREF);
    if (sizeOf(tag) == 0) raise(ErrorNumber::TypeMismatch);
    // A borrowed copy: the variable keeps what it owns.
    std::memcpy(placeOf(copy, tag), variant.byref, sizeOf(tag));
    copy.vt = tag;
    return ownValueOf(copy);
}

}  // namespace tovera
