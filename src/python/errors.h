#pragma once

#include <string>

#include "python/interpreter.h"

namespace tovera::python {

/// The numbers that the module itself raises or tells.
namespace number {
inline constexpr std::int32_t invalidCall = 5;
inline constexpr std::int32_t overflow = 6;
inline constexpr std::int32_t outOfMemory = 7;
inline constexpr std::int32_t typeMismatch = 13;
inline constexpr std::int32_t interrupted = 18;
inline constexpr std::int32_t objectRequired = 91;
inline constexpr std::int32_t cannotCreateObject = 429;
inline constexpr std::int32_t noSuchMember = 438;
inline constexpr std::int32_t objectFailed = 440;
inline constexpr std::int32_t noSuchNamedArgument = 448;
inline constexpr std::int32_t wrongArgumentCount = 450;
inline constexpr std::int32_t notEnumerable = 451;
}  // namespace number

/// A failure that frees its texts.
struct Failure : tovera_failure {
    Failure() : tovera_failure{} {}
    Failure(const Failure&) = delete;
    Failure& operator=(const Failure&) = delete;
    ~Failure() {
        if (number != 0) tovera_failure_clear(this);
    }
};

/// A `tovera.Error`, or `tovera.MemberError` for a member that is not there. A description that is null is
/// the component's own for the number.
Ref makeError(std::int32_t number, const char* description = nullptr, const char* source = nullptr);
/// Raises it, and throws `Raised`.
[[noreturn]] void raise(std::int32_t number, const char* description = nullptr, const char* source = nullptr);
/// The same with a name behind the component's own description.
[[noreturn]] void raiseAbout(std::int32_t number, PyObject* name);

/// An exception of Python as the component is told of it.
struct Told {
    std::int32_t number = 0;
    std::string description;
};
Told toldOf(PyObject* exception);

/// Takes the exception that is raised at present out of Python.
Ref takeRaised();
/// Raises it again.
void putRaised(Ref exception);

/// UTF-8; what has none is replaced.
std::string utf8Of(PyObject* text);

}  // namespace tovera::python
