#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <variant>

#include "frame/variant.h"

// What stands for a value in a step.
namespace tovera::cli {

/// A variable that is set on the way and passed by reference.
struct VariableValue {
    std::u16string name;
    Variant value;
};

/// A bare name: a variable made before, passed by reference, or a property of the object.
struct NameUse {
    std::u16string name;
    std::size_t place = 0;  ///< in the step, in characters from 1
};

/// The form of a form file.
struct FormUse {
    std::u16string path;
};

/// A literal, a variable, a form, or nothing for an argument that is left out.
using ArgumentExpression = std::variant<std::monostate, Variant, VariableValue, NameUse, FormUse>;

/// A command line that can't be understood, and why.
class CommandLineError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

}  // namespace tovera::cli
