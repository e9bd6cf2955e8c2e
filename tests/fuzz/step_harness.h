#pragma once

#include "cli/step.h"
#include "cli/value_text.h"
#include "frame/utf8.h"
#include "fuzz/input.h"

namespace tovera::fuzz {

/// Any text is a step or tells what is wrong with it, and a literal prints as one.
inline void stepTexts(Input input) {
    const auto text = fromUtf8(input.bytes());
    try {
        require(!cli::parseStep(text).name.empty(), "a step has a name");
    } catch (const cli::CommandLineError& error) {
        require(*error.what() != '\0', "what is wrong is told");
    }
    try {
        const auto literal = cli::parseLiteral(text);
        if (!literal || literal->is<Bstr>() || literal->is<Date>())
            return;  // these print without their marks
        const auto again = cli::parseLiteral(fromUtf8(cli::printed(*literal)));
        require(again.has_value(), "a literal prints as one");
    } catch (const cli::CommandLineError&) {
    }
}

}  // namespace tovera::fuzz
