#include "frame/component_object.h"

namespace tovera {

const MemberDescription* memberAt(const ClassDescription& description, MemberId id, CallKind kind) {
    const auto first = static_cast<std::size_t>(id & 0xFFFF);
    const auto& members = description.members;
    for (auto slot = first; slot < members.size() && members[slot].id == id; ++slot) {
        if (members[slot].published && allows(kind, members[slot].kind)) return &members[slot];
    }
    return nullptr;
}

std::optional<MemberId> ComponentObject::memberNamed(std::u16string_view name) {
    const auto slot = description_.names.find(name);
    if (!slot) return {};
    return description_.members[*slot].id;
}

ReturnCode ComponentObject::invoke(MemberId member, CallKind kind, std::span<Variant> arguments,
                                   Variant& result, ErrorRecord& failure) noexcept {
    const auto* const found = memberAt(description_, member, kind);
    if (!found) {
        const auto number = static_cast<I4>(ErrorNumber::NoSuchMember);
        failure = {codeOf(number), descriptionOf(number), {}};
        return failure.code;
    }
    return found->invoke(*this, instance(), services_, arguments, result, failure);
}

}  // namespace tovera
