#pragma once

#include <string>

#include "frame/class_table.h"

namespace tovera {

/// The name of a type in the words of the reference: `BSTR`, `VARIANT`, `I2`, ...
std::string_view typeName(Type type);

/// A member as one line: its name, its parameters with type and mode, its result; a property that is read,
/// written or assigned says so.
std::string signatureOf(const MemberDescription& member);

}  // namespace tovera
