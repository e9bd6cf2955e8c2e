#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <variant>
#include <vector>

#include "frame/variant.h"

// The steps of a command line: what the user wrote, before anything is called.
namespace tovera::cli {

/// A variable passed by reference; with a value when it is set on the way.
struct VariableUse {
    std::u16string name;
    std::optional<Variant> value;
};

/// The form of a form file.
struct FormUse {
    std::u16string path;
};

/// A literal, a variable, a form, or nothing for an argument that is left out.
using ArgumentExpression = std::variant<std::monostate, Variant, VariableUse, FormUse>;

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

/// A command line that can't be understood, and why.
class CommandLineError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// Reads one step. Raises `CommandLineError` with the place of what is wrong, in characters from 1.
Step parseStep(std::u16string_view text);

/// The value of a literal that takes all of the text; nothing when it is none.
std::optional<Variant> parseLiteral(std::u16string_view text);

bool isName(std::u16string_view text);

}  // namespace tovera::cli
