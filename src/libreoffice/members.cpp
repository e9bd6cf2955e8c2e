#include "libreoffice/members.h"

namespace tovera::office {

Members::Members(const tovera_class& described) : described_(described) {
    for (std::size_t i = 0; i < described.member_count; ++i) {
        const auto* const member = described.members[i];
        const auto name = fromUtf8(member->name);
        auto& found = byName_[name];
        found.name = name;
        byLowerName_[name.toAsciiLowerCase()] = &found;
        switch (member->kind) {
            case TOVERA_METHOD:
                found.method = member;
                break;
            case TOVERA_READ:
                found.read = member;
                break;
            case TOVERA_WRITE:
                found.write = member;
                break;
            default:
                found.assign = member;
        }
    }
}

const Member* Members::find(const OUString& name) const {
    if (const auto exact = byName_.find(name); exact != byName_.end()) return &exact->second;
    const auto found = byLowerName_.find(name.toAsciiLowerCase());
    return found == byLowerName_.end() ? nullptr : found->second;
}

}  // namespace tovera::office
