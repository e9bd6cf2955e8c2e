#include "platform/windows/variants.h"

#include <cstring>
#include <new>
#include <utility>

#include "frame/checked.h"
#include "frame/conversions.h"
#include "platform/windows/arrays.h"
#include "platform/windows/object_bridge.h"

namespace tovera {
namespace {

// Tags and union members of plain values, in one place for both directions.
// clang-format off
template <class T> struct Tagged;
template <> struct Tagged<UI1> { static constexpr VARTYPE tag = VT_UI1; static auto& in(auto& v) { return v.bVal; } };
template <> struct Tagged<I2> { static constexpr VARTYPE tag = VT_I2; static auto& in(auto& v) { return v.iVal; } };
template <> struct Tagged<I4> { static constexpr VARTYPE tag = VT_I4; static auto& in(auto& v) { return v.lVal; } };
template <> struct Tagged<R4> { static constexpr VARTYPE tag = VT_R4; static auto& in(auto& v) { return v.fltVal; } };
template <> struct Tagged<R8> { static constexpr VARTYPE tag = VT_R8; static auto& in(auto& v) { return v.dblVal; } };
template <> struct Tagged<Empty> { static constexpr VARTYPE tag = VT_EMPTY; };
template <> struct Tagged<Null> { static constexpr VARTYPE tag = VT_NULL; };
template <> struct Tagged<Date> { static constexpr VARTYPE tag = VT_DATE; };
template <> struct Tagged<Bstr> { static constexpr VARTYPE tag = VT_BSTR; };
template <> struct Tagged<ObjectRef> { static constexpr VARTYPE tag = VT_DISPATCH; };
template <> struct Tagged<ErrorCode> { static constexpr VARTYPE tag = VT_ERROR; };
template <> struct Tagged<VariantBool> { static constexpr VARTYPE tag = VT_BOOL; };
template <> struct Tagged<StringArray> { static constexpr VARTYPE tag = VT_ARRAY | VT_BSTR; };
template <> struct Tagged<Reference> { static constexpr VARTYPE tag = VT_VARIANT; };
// clang-format on

struct Store {
    VARIANT& to;

    void operator()(Empty) const {}
    void operator()(Null) const {}
    void operator()(const Bstr& text) const { to.bstrVal = allocateText(text); }
    void operator()(VariantBool truth) const { to.boolVal = truth.raw; }
    void operator()(Date date) const { to.date = date.days; }
    void operator()(ErrorCode error) const { to.scode = error.code; }
    void operator()(const ObjectRef& object) const { to.pdispVal = dispatchOf(object); }
    void operator()(const StringArray& array) const { to.parray = makeArray(array, VT_BSTR); }
    void operator()(const Reference&) const { raise(ErrorNumber::TypeMismatch); }
    template <class Number>
    void operator()(Number number) const {
        Tagged<Number>::in(to) = number;
    }
};

SystemVariant changed(const VARIANT& variant, VARTYPE tag) {
    SystemVariant result;
    const HRESULT status = VariantChangeType(&result.get(), const_cast<VARIANT*>(&variant), 0, tag);
    if (status == DISP_E_OVERFLOW) raise(ErrorNumber::Overflow);
    if (FAILED(status)) raise(ErrorNumber::TypeMismatch);
    return result;
}

/// A number type that the frame hasn't got.
Variant numberOf(const VARIANT& variant) {
    const bool isSmall = variant.vt == VT_I1 || variant.vt == VT_UI2 || variant.vt == VT_INT;
    const SystemVariant number = changed(variant, isSmall ? VT_I4 : VT_R8);
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
        default:
            return numberOf(variant);
    }
}

}  // namespace

BSTR allocateText(const Bstr& text) {
    if (text.isNull()) return nullptr;
    const auto view = text.view();
    const auto length = narrow<UINT>(view.size());
    BSTR const allocated = SysAllocStringLen(reinterpret_cast<const wchar_t*>(view.data()), length);
    if (!allocated) throw std::bad_alloc();
    return allocated;
}

Bstr textOf(BSTR text) {
    if (!text) return {};
    return std::u16string(reinterpret_cast<const char16_t*>(text), SysStringLen(text));
}

VARTYPE tagOf(const Variant& value) {
    return std::visit([]<class T>(const T&) { return Tagged<T>::tag; }, value.value());
}

Variant valueOf(const VARIANT& variant) {
    if (!(variant.vt & VT_BYREF)) return ownValueOf(variant);
    if (variant.vt == (VT_BYREF | VT_VARIANT)) return valueOf(*variant.pvarVal);
    VARIANT copy{};
    const auto tag = static_cast<VARTYPE>(variant.vt & ~VT_BYREF);
    if (sizeOf(tag) == 0) raise(ErrorNumber::TypeMismatch);
    // A borrowed copy: the variable keeps what it owns.
    std::memcpy(placeOf(copy, tag), variant.byref, sizeOf(tag));
    copy.vt = tag;
    return ownValueOf(copy);
}

SystemVariant::SystemVariant(const Variant& value) {
    if (value.is<Reference>()) {
        *this = SystemVariant(dereferenced(value));
        return;
    }
    std::visit(Store{variant_}, value.value());
    variant_.vt = tagOf(value);
}

SystemVariant& SystemVariant::operator=(SystemVariant&& other) noexcept {
    clear();
    variant_ = other.release();
    return *this;
}

VARIANT SystemVariant::release() {
    return std::exchange(variant_, VARIANT{});
}

SystemVariant SystemVariant::as(VARTYPE tag) const {
    return changed(variant_, tag);
}

std::size_t sizeOf(VARTYPE tag) {
    if (tag & VT_ARRAY) return sizeof(SAFEARRAY*);
    switch (tag) {
        case VT_I1:
        case VT_UI1:
            return 1;
        case VT_I2:
        case VT_UI2:
        case VT_BOOL:
            return 2;
        case VT_I8:
        case VT_UI8:
        case VT_R8:
        case VT_CY:
        case VT_DATE:
            return 8;
        case VT_DECIMAL:
            return sizeof(DECIMAL);
        case VT_BSTR:
        case VT_DISPATCH:
        case VT_UNKNOWN:
            return sizeof(void*);
        case VT_I4:
        case VT_UI4:
        case VT_INT:
        case VT_UINT:
        case VT_R4:
        case VT_ERROR:
            return 4;
        default:
            return 0;
    }
}

void* placeOf(VARIANT& variant, VARTYPE tag) {
    return tag == VT_DECIMAL ? static_cast<void*>(&variant) : &variant.byref;
}

}  // namespace tovera
