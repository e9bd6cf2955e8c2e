#include "frame/class_table.h"

namespace tovera::detail {

void complete(ClassDescription& description) {
    description.progId = std::string(libraryName) + "." + std::string(description.name);
    for (std::size_t slot = 0; slot < description.members.size(); ++slot) {
        auto& member = description.members[slot];
        description.names.add(member.name, static_cast<std::uint8_t>(slot));
        const std::u16string name(member.name.begin(), member.name.end());
        const auto base = member.kind == CallKind::Method ? firstMethodId : firstPropertyId;
        member.id = base + *description.names.find(name);
    }
}

}  // namespace tovera::detail
