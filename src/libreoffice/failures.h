#pragma once

#include "libreoffice/office.h"

// Failures on their way between the component and the office.
namespace tovera::office {

/// Raises an error as Basic knows it, with the component's own sentence.
[[noreturn]] void raise(Number number);
/// Raises what the component has told.
[[noreturn]] void raise(const tovera_failure& failure);
/// Raises an error of the component again, with its own text.
[[noreturn]] void raise(sal_Int32 number, const OUString& text);

/// Tells the exception that is being handled; gives its error number.
sal_Int32 tellCurrentException(tovera_failure* failure) noexcept;

}  // namespace tovera::office
