#include "frame/variant.h"

#include "frame/error.h"

namespace tovera {

Variant& endOfChain(Variant& value) {
    constexpr int longestChain = 16;
    Variant* variable = &value;
    for (int i = 0; i < longestChain; ++i) {
        const auto* reference = variable->as<Reference>();
        auto* const* next = reference ? std::get_if<Variant*>(reference) : nullptr;
        if (!next) return *variable;
        variable = *next;
    }
    raise(ErrorNumber::TypeMismatch);
}

Variant dereferenced(const Variant& value) {
    const Variant& end = endOfReferences(const_cast<Variant&>(value));
    if (const auto* reference = end.as<Reference>()) {
        return std::visit([](auto* variable) { return Variant(*variable); }, *reference);
    }
    return end;
}

}  // namespace tovera
