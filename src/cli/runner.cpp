#include "cli/runner.h"

#include <ostream>

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
    auto value = writtenValue(step.written);
    const auto kind =
        dereferenced(value).is<ObjectRef>() ? CallKind::Write | CallKind::AssignReference : CallKind::Write;
    invokeMember(object_, step.name, kind, {&value, 1});
}

Variant Runner::argument(const ArgumentExpression& expression) {
    if (const auto* literal = std::get_if<Variant>(&expression)) return *literal;
    if (const auto* form = std::get_if<FormUse>(&expression)) return forms_.open(form->path);
    const auto* use = std::get_if<VariableUse>(&expression);
    if (!use) return Variant::missing();
    auto& value = variables_[use->name];
    if (use->value) value = *use->value;
    return Reference(&value);
}

/// A literal, a variable that an earlier step knows, or the text as it stands.
Variant Runner::writtenValue(std::u16string_view text) {
    if (auto literal = parseLiteral(text)) return std::move(*literal);
    if (const auto known = variables_.find(text); known != variables_.end()) return Reference(&known->second);
    return Bstr(text);
}

}  // namespace tovera::cli
