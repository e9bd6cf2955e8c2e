#include "platform/windows/caller_variables.h"

#include <algorithm>

#include "frame/error.h"
#include "platform/windows/arrays.h"

namespace tovera {
namespace {

/// A reference to the copy of a variable with this tag; one that holds no variable's type goes by value.
Variant referenceTo(Variant& copy, VARTYPE tag) {
    if (tag == VT_VARIANT || copy.is<ExactNumber>()) return Reference(&copy);
    return std::visit(
        [&]<class T>(const T&) {
            if constexpr (IsAlternativeOf<T*, Reference>::value) {
                return Variant(Reference(copy.as<T>()));
            } else {
                return copy;
            }
        },
        copy.value());
}

SAFEARRAY* arrayAt(void* address) {
    return *static_cast<SAFEARRAY**>(address);
}

bool isArray(const VARIANT& variant) {
    return (variant.vt & VT_ARRAY) && !(variant.vt & VT_BYREF);
}

/// An array in a `VARIANT` is a variable of its own, so that the type of its elements stays: scripts make
/// arrays of `VARIANT`s, and reach the elements of no others.
VARIANT arrayIn(VARIANT& variant) {
    VARIANT reference{};
    reference.vt = static_cast<VARTYPE>(VT_BYREF | variant.vt);
    reference.pparray = &variant.parray;
    return reference;
}

SystemVariant arrayValue(const StringArray& array, VARTYPE tag) {
    SystemVariant made;
    made.get().parray = makeArray(array, tag & VT_TYPEMASK);
    made.get().vt = tag;
    return made;
}

/// The array that a variable is to hold; one that is locked keeps its bounds.
SystemVariant arrayFor(void* address, VARTYPE tag, const Variant& value) {
    const auto* const array = value.as<StringArray>();
    if (!array) raise(ErrorNumber::TypeMismatch);
    SystemVariant made = arrayValue(*array, tag);
    const SAFEARRAY* const held = arrayAt(address);
    const bool keepsBounds = held && made.get().parray && sameBounds(*held, *made.get().parray);
    if (held && held->cLocks > 0 && !keepsBounds) raise(ErrorNumber::ArrayFixed);
    return made;
}

/// What the variable is to hold, in its own type.
SystemVariant valueFor(void* address, VARTYPE tag, const Variant& value) {
    if (tag & VT_ARRAY) return arrayFor(address, tag, value);
    // A variable that held none becomes an array as scripts have them.
    if (const auto* const array = value.as<StringArray>()) return arrayValue(*array, VT_ARRAY | VT_VARIANT);
    SystemVariant made(value);
    if (tag == VT_VARIANT || made.get().vt == tag) return made;
    return made.as(tag);
}

void exchangeArrays(void* address, VARIANT& changed) noexcept {
    SAFEARRAY*& held = *static_cast<SAFEARRAY**>(address);
    if (held && changed.parray && sameBounds(*held, *changed.parray)) {
        swapElements(*held, *changed.parray);
    } else {
        std::swap(held, changed.parray);
    }
}

/// The variable gets the new value, and the old one is freed with what held the new.
void exchange(void* address, VARTYPE tag, VARIANT& changed) noexcept {
    if (tag == VT_VARIANT) {
        std::swap(*static_cast<VARIANT*>(address), changed);
    } else if (tag & VT_ARRAY) {
        exchangeArrays(address, changed);
    } else {
        auto* const first = static_cast<std::byte*>(address);
        std::swap_ranges(first, first + sizeOf(tag), static_cast<std::byte*>(placeOf(changed, tag)));
    }
}

}  // namespace

Variant CallerVariables::variable(const VARIANT& reference, int chain) {
    if (!(reference.vt & VT_BYREF)) return valueOf(reference);
    if (!reference.byref || chain == 0) raise(ErrorNumber::TypeMismatch);
    const auto tag = static_cast<VARTYPE>(reference.vt & ~VT_BYREF);
    if (tag == VT_VARIANT && isArray(*reference.pvarVal))
        return variable(arrayIn(*reference.pvarVal), chain - 1);
    const auto known = std::ranges::find_if(
        variables_, [&](const Variable& v) { return v.address == reference.byref && v.tag == tag; });
    if (known != variables_.end()) return referenceTo(known->value, tag);
    Variant copy = tag == VT_VARIANT ? variable(*reference.pvarVal, chain - 1) : valueOf(reference);
    auto& added = variables_.emplace_back(Variable{reference.byref, tag, std::move(copy), {}, {}});
    added.before = added.value;
    return referenceTo(added.value, tag);
}

void CallerVariables::writeBackChanged() {
    std::erase_if(variables_, [](const Variable& v) { return v.value == v.before; });
    for (auto& v : variables_) v.changed = valueFor(v.address, v.tag, v.value);
    for (auto& v : variables_) exchange(v.address, v.tag, v.changed.get());
}

}  // namespace tovera
