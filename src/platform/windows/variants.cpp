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

/// Stores a value and gives its tag.
struct Store {
    VARIANT& to;

    VARTYPE operator()(Empty) const { return VT_EMPTY; }
    VARTYPE operator()(Null) const { return VT_NULL; }
    VARTYPE operator()(UI1 number) const { return to.bVal = number, VT_UI1; }
    VARTYPE operator()(I2 number) const { return to.iVal = number, VT_I2; }
    VARTYPE operator()(I4 number) const { return to.lVal = number, VT_I4; }
    VARTYPE operator()(R4 number) const { return to.fltVal = number, VT_R4; }
    VARTYPE operator()(R8 number) const { return to.dblVal = number, VT_R8; }
    VARTYPE operator()(Date date) const { return to.date = date.days, VT_DATE; }
    VARTYPE operator()(VariantBool truth) const { return to.boolVal = truth.raw, VT_BOOL; }
    VARTYPE operator()(ErrorCode error) const { return to.scode = error.code, VT_ERROR; }
    VARTYPE operator()(const ExactNumber& number) const {
        to.decVal.scale = number.decimals;
        to.decVal.sign = number.isNegative ? DECIMAL_NEG : BYTE{0};
        to.decVal.Hi32 = number.high;
        to.decVal.Lo64 = number.low;
        return VT_DECIMAL;
    }
    VARTYPE operator()(const Bstr& text) const { return to.bstrVal = allocateText(text), VT_BSTR; }
    VARTYPE operator()(const ObjectRef& object) const {
        return to.pdispVal = dispatchOf(object), VT_DISPATCH;
    }
    VARTYPE operator()(const StringArray& array) const {
        return to.parray = makeArray(array, VT_BSTR), static_cast<VARTYPE>(VT_ARRAY | VT_BSTR);
    }
    VARTYPE operator()(const Reference&) const { raise(ErrorNumber::TypeMismatch); }
};

SystemVariant changed(const VARIANT& variant, VARTYPE tag) {
    SystemVariant result;
    const HRESULT status = VariantChangeType(&result.get(), const_cast<VARIANT*>(&variant), 0, tag);
    if (status == DISP_E_OVERFLOW) raise(ErrorNumber::Overflow);
    if (FAILED(status)) raise(ErrorNumber::TypeMismatch);
    return result;
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

SystemVariant::SystemVariant(const Variant& value) {
    if (value.is<Reference>()) {
        *this = SystemVariant(dereferenced(value));
        return;
    }
    variant_.vt = std::visit(Store{variant_}, value.value());
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
