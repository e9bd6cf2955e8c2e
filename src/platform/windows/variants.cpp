#include "platform/windows/variants.h"

#include <utility>

#include "frame/error.h"
#include "platform/windows/arrays.h"
#include "platform/windows/object_bridge.h"
#include "platform/windows/texts.h"

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

}  // namespace

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

SystemVariant SystemVariant::changed(const VARIANT& variant, VARTYPE tag) {
    SystemVariant result;
    const HRESULT status = VariantChangeType(&result.get(), const_cast<VARIANT*>(&variant), 0, tag);
    if (status == DISP_E_OVERFLOW) raise(ErrorNumber::Overflow);
    if (FAILED(status)) raise(ErrorNumber::TypeMismatch);
    return result;
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
