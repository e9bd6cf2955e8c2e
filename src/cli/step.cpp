#include "cli/step.h"

#include "cli/step_reader.h"
#include "frame/utf8.h"

namespace tovera::cli {
namespace {

std::vector<ArgumentExpression> parseArguments(StepReader& reader) {
    std::vector<ArgumentExpression> arguments;
    reader.skipBlanks();
    if (reader.take(u')')) return arguments;
    do {
        reader.skipBlanks();
        arguments.push_back(reader.takeArgument());
        reader.skipBlanks();
    } while (reader.take(u','));
    if (!reader.take(u')'))
        reader.fail(reader.atEnd() ? "the closing parenthesis is missing"
                                   : "a comma or the closing parenthesis is expected");
    return arguments;
}

}  // namespace

Step parseStep(std::u16string_view text) {
    StepReader reader(text);
    Step step;
    reader.skipBlanks();
    step.name = reader.takeName();
    if (step.name.empty()) reader.fail("a step begins with the name of a member or variable");
    if (reader.take(u'=')) {
        step.form = Step::Form::Write;
        step.written = reader.rest();
        return step;
    }
    reader.skipBlanks();
    if (reader.take(u'(')) {
        step.form = Step::Form::Call;
        step.arguments = parseArguments(reader);
        reader.skipBlanks();
    }
    if (!reader.atEnd()) reader.fail("nothing may follow here: " + toUtf8(reader.rest()));
    return step;
}

std::optional<Variant> parseLiteral(std::u16string_view text) {
    try {
        StepReader reader(text);
        reader.skipBlanks();
        auto literal = reader.takeLiteral();
        reader.skipBlanks();
        if (reader.atEnd()) return literal;
    } catch (const CommandLineError&) {
        // Not a literal: the text stands for itself.
    }
    return {};
}

}  // namespace tovera::cli
