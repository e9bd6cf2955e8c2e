#include "cli/runner.h"

#include <ostream>

#include "cli/known_names.h"
#include "cli/value_text.h"

namespace tovera::cli {

void Runner::run(const Step& step) {
    if (step.form == Step::Form::Write) {
        write(step);
    } else if (const auto known = variables_.find(step.name);
               step.form == Step::Form::Name && known != variables_.end()) {
        out_ << printed(known->second) << '\n';
    } else {
        call(step);
    }
}

void Runner::call(const Step& step) {
    std::vector<Variant> arguments;
    for (const auto& expression : step.arguments) arguments.push_back(argument(expression));
    constexpr auto kind = CallKind::Method | CallKind::Read;
    const auto result = invokeMember(object_, step.name, kind, arguments);
    const auto* const member = memberAt(description_, *object_->memberNamed(step.name), kind);
    if (member && member->result != Type::None) out_ << printed(result) << '\n';
}

void Runner::write(const Step& step) {
    auto value = writtenValue(step);
    const auto kind =
        dereferenced(value).is<ObjectRef>() ? CallKind::Write | CallKind::AssignReference : CallKind::Write;
    invokeMember(object_, step.name, kind, {&value, 1});
}

Variant Runner::argument(const ArgumentExpression& expression) {
    if (const auto* literal = std::get_if<Variant>(&expression)) return *literal;
    if (const auto* form = std::get_if<FormUse>(&expression)) return forms_.open(form->path);
    if (const auto* made = std::get_if<VariableValue>(&expression))
        return Reference(&(variables_[made->name] = made->value));
    if (const auto* use = std::get_if<NameUse>(&expression)) {
        if (auto named = namedValue(use->name)) return std::move(*named);
    }
    return Variant::missing();
}

/// The variable with this name, or the value of the property with it.
std::optional<Variant> Runner::namedValue(std::u16string_view name) {
    if (const auto known = variables_.find(name); known != variables_.end()) return Reference(&known->second);
    if (readableProperty(description_, name)) return readMember(object_, name);
    return {};
}

/// A literal, a variable, another property, or the text as it stands. A text property takes numbers and dates
/// as they stand too, so that the zeros in front of a password stay.
Variant Runner::writtenValue(const Step& step) {
    if (auto literal = parseLiteral(step.written)) {
        const bool isText = !(literal->isNumber() && !literal->is<VariantBool>()) || !takesText(step.name);
        if (isText) return std::move(*literal);
    } else if (auto named = namedValue(step.written)) {
        return std::move(*named);
    }
    return Bstr(step.written);
}

bool Runner::takesText(std::u16string_view property) const {
    const auto slot = description_.names.find(property);
    const auto* const member =
        slot ? memberAt(description_, description_.members[*slot].id, CallKind::Write) : nullptr;
    return member && member->parameters.back().type == Type::Bstr;
}

}  // namespace tovera::cli
