#include "cli/known_names.h"

#include "frame/component_object.h"
#include "frame/utf8.h"

namespace tovera::cli {

const MemberDescription* readableProperty(const ClassDescription& description, std::u16string_view name) {
    const auto slot = description.names.find(name);
    return slot ? memberAt(description, description.members[*slot].id, CallKind::Read) : nullptr;
}

void KnownNames::take(const Step& step) {
    for (const auto& expression : step.arguments) {
        if (const auto* made = std::get_if<VariableValue>(&expression)) variables_.insert(made->name);
        const auto* use = std::get_if<NameUse>(&expression);
        if (!use || variables_.contains(use->name) || readableProperty(description_, use->name)) continue;
        throw CommandLineError("character " + std::to_string(use->place) + ": \"" + toUtf8(use->name) +
                               "\" is neither a variable made before nor a property");
    }
}

}  // namespace tovera::cli
