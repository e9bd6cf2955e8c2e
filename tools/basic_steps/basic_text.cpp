#include "basic_steps/basic_text.h"

#include "cli/known_names.h"
#include "frame/component_object.h"
#include "frame/number_text.h"
#include "frame/utf8.h"

namespace tovera::basic {
namespace {

constexpr auto readOrCall = CallKind::Method | CallKind::Read;

/// How each kind of value is written in Basic. A date is its number of days: in its plain mode Basic hands no
/// dates over.
struct Literal {
    std::string operator()(Empty) const { return "Empty"; }
    std::string operator()(Null) const { return "Null"; }
    std::string operator()(R8 number) const { return toUtf8(numberToText(number)); }
    std::string operator()(Date date) const { return toUtf8(numberToText(date.days)); }
    std::string operator()(VariantBool truth) const { return truth ? "True" : "False"; }
    std::string operator()(const Bstr& text) const { return Translator::quoted(text); }
    std::string operator()(const ObjectRef&) const { return "Nothing"; }
    std::string operator()(const StringArray& array) const {
        if (!array.isDimensioned()) return "NoTexts()";
        std::string texts;
        for (const auto& element : array.elements()) texts += ", " + Translator::quoted(element);
        return "Texts(" + std::to_string(array.lowerBound()) + texts + ")";
    }
    std::string operator()(I2 number) const { return std::to_string(number); }
    std::string operator()(I4 number) const { return std::to_string(number); }
    template <class Other>
    std::string operator()(const Other&) const {
        throw NoSuchThing{"a value of this type"};
    }
};

std::string literal(const Variant& value) {
    return std::visit(Literal(), value.value());
}

/// What shows a result of a type: Basic gets dates as numbers.
const char* showing(Type type) {
    if (type == Type::Date) return "ShowDate";
    if (type == Type::R4) return "ShowSingle";
    return type == Type::Object ? "ShowObject" : "Show";
}

}  // namespace

std::string Translator::quoted(std::u16string_view text) {
    std::string result = "\"";
    for (const char16_t c : text) {
        if (c < u' ' || (c >= 0x7F && c < 0xA0))
            result += "\" & ChrW(" + std::to_string(c) + ") & \"";
        else
            result += c == u'"' ? "\"\"" : toUtf8(std::u16string_view(&c, 1));
    }
    return result + '"';
}

std::string Translator::statementsOf(std::string_view text) {
    const auto step = cli::parseStep(fromUtf8(text));
    before_.clear();
    if (step.form == cli::Step::Form::Write) return writeOf(step);
    if (step.form == cli::Step::Form::Name && isVariable(step.name))
        return "Show " + nameOf(step.name) + '\n';
    return callOf(step);
}

const MemberDescription* Translator::member(std::u16string_view name, CallKind kind) const {
    const auto slot = description_.names.find(name);
    return slot ? memberAt(description_, description_.members[*slot].id, kind) : nullptr;
}

/// Names of variables get a prefix, since Basic has many words of its own.
std::string Translator::nameOf(std::u16string_view name) const {
    return isVariable(name) ? "v_" + toUtf8(name) : "o." + toUtf8(name);
}

std::string Translator::callOf(const cli::Step& step) {
    std::string call = "o." + toUtf8(step.name);
    std::string arguments;
    for (const auto& expression : step.arguments) arguments += ", " + argumentOf(expression);
    if (!arguments.empty()) arguments.erase(0, 2);
    if (step.form == cli::Step::Form::Call) call += "(" + arguments + ")";
    const auto* const called = member(step.name, readOrCall);
    if (!called || called->result == Type::None) return before_ + call + '\n';
    return before_ + "r = " + call + '\n' + showing(called->result) + " r\n";
}

std::string Translator::argumentOf(const cli::ArgumentExpression& expression) {
    if (const auto* value = std::get_if<Variant>(&expression)) return literal(*value);
    if (std::get_if<cli::FormUse>(&expression)) throw NoSuchThing{"the form of a file"};
    if (const auto* made = std::get_if<cli::VariableValue>(&expression)) {
        known_.insert(made->name);
        before_ += nameOf(made->name) + " = " + literal(made->value) + '\n';
        return nameOf(made->name);
    }
    if (const auto* use = std::get_if<cli::NameUse>(&expression)) return nameOf(use->name);
    return {};
}

std::string Translator::writeOf(const cli::Step& step) {
    std::string value;
    const auto* const written = member(step.name, CallKind::Write);
    const bool takesText = written && written->parameters.back().type == Type::Bstr;
    const auto given = cli::parseLiteral(step.written);
    if (given && !(takesText && given->isNumber() && !given->is<VariantBool>()))
        value = literal(*given);
    else if (!given && (isVariable(step.written) || cli::readableProperty(description_, step.written)))
        value = nameOf(step.written);
    else
        value = quoted(step.written);
    return "o." + toUtf8(step.name) + " = " + value + '\n';
}

}  // namespace tovera::basic
