#pragma once

#include <string>
#include <vector>

#include "cli/expression.h"

// The steps of a command line: what the user wrote, before anything is called.
namespace tovera::cli {

struct Step {
    enum class Form {
        Name,   ///< `Member` or a variable's name
        Call,   ///< `Member(ARG, ...)`
        Write,  ///< `Member=VALUE`
    };
    Form form = Form::Name;
    std::u16string name;
    std::vector<ArgumentExpression> arguments;  ///< of a call
    std::u16string written;                     ///< what stands behind the sign of a write
};

/// Reads one step. Raises `CommandLineError` with the place of what is wrong, in characters from 1.
Step parseStep(std::u16string_view text);

/// The value of a literal that takes all of the text; nothing when it is none.
std::optional<Variant> parseLiteral(std::u16string_view text);

}  // namespace tovera::cli
