#include "frame/class_table.h"

namespace tovera::detail {

ClassDescription describe(std::string_view name, std::string_view help,
                          std::span<const MemberDescription> members) {
    ClassDescription made{
        name, help, std::string(libraryName) + "." + std::string(name), {members.begin(), members.end()}, {}};
    for (std::size_t slot = 0; slot < members.size(); ++slot) {
        auto& member = made.members[slot];
        made.names.add(member.name, static_cast<std::uint8_t>(slot));
        const std::u16string wide(member.name.begin(), member.name.end());
        const auto base = member.kind == CallKind::Method ? firstMethodId : firstPropertyId;
        member.id = base + *made.names.find(wide);
    }
    return made;
}

}  // namespace tovera::detail
