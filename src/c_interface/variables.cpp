#include "c_interface/variables.h"

#include <algorithm>

#include "c_interface/values.h"
#include "frame/error.h"

namespace tovera::c {
namespace {

constexpr auto asVariant = [](const auto& value) { return Variant(value); };

}  // namespace

Variant Variables::argument(const tovera_value& value) {
    const bool isTyped = value.type == TOVERA_TYPED_REFERENCE;
    if (!isTyped && value.type != TOVERA_REFERENCE) return plainValue(value);
    if (!value.as.reference) raise(ErrorNumber::TypeMismatch);
    return referenceTo(*value.as.reference, isTyped);
}

Variables::Held Variables::typed(Variant value) {
    return std::visit(
        [&]<class T>(const T& held) -> Held {
            if constexpr (IsAlternativeOf<T, Held>::value) return held;
            return std::move(value);
        },
        value.value());
}

Reference Variables::referenceTo(tovera_value& variable, bool isTyped) {
    auto known = std::ranges::find(variables_, &variable, &Variable::place);
    if (known == variables_.end()) {
        auto value = plainValue(variable);
        known = variables_.insert(variables_.end(),
                                  {&variable, isTyped ? typed(std::move(value)) : Held(std::move(value))});
    }
    return std::visit([](auto& value) { return Reference(&value); }, known->value);
}

void Variables::giveBack(unsigned flags) {
    for (auto& [place, held] : variables_) {
        const auto value = std::visit(asVariant, held);
        if (value == plainValue(*place)) continue;
        tovera_value made;
        put(made, value, flags);
        tovera_clear(place);
        *place = made;
    }
}

}  // namespace tovera::c
