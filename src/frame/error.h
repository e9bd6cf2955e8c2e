#pragma once

#include <exception>

#include "frame/bstr.h"
#include "frame/values.h"

namespace tovera {

/// Numbers of the Automation errors that the component and its frame raise.
enum class ErrorNumber : I4 {
    InvalidCall = 5,
    Overflow = 6,
    OutOfMemory = 7,
    SubscriptOutOfRange = 9,
    ArrayFixed = 10,
    DivisionByZero = 11,
    TypeMismatch = 13,
    InternalError = 51,
    FileNotFound = 53,
    DeviceError = 57,
    FileExists = 58,
    DiskFull = 61,
    PermissionDenied = 70,
    PathAccess = 75,
    PathNotFound = 76,
    ObjectRequired = 91,
    InvalidNull = 94,
    InvalidFileFormat = 321,
    CannotCreateObject = 429,
    NoSuchInterface = 430,
    NoSuchMember = 438,
    ArgumentNotOptional = 449,
    WrongArgumentCount = 450,
    NotEnumerable = 451,
    EntryPointNotFound = 453,
};

/// What a call gives back besides its result: 0 for success, else the failure code (an HRESULT).
enum class ReturnCode : I4 { Success = 0 };

/// The failure code of an Automation error: 0x800A0000 plus its number.
constexpr ReturnCode codeOf(I4 number) {
    return static_cast<ReturnCode>(static_cast<std::uint32_t>(number) + 0x800A0000U);
}

/// The number that a caller sees for a failure code: the Automation error's own, or the whole code of a
/// failure that isn't one.
constexpr I4 numberOf(ReturnCode code) {
    const auto bits = static_cast<std::uint32_t>(code);
    return (bits & 0xFFFF0000U) == 0x800A0000U ? static_cast<I4>(bits & 0xFFFFU) : static_cast<I4>(code);
}

/// The short French sentence for an error number; empty for a number that isn't of the table.
std::u16string_view descriptionOf(I4 number);

/// A raised failure: an Automation error of the component, or the failure of an object that it called.
class AutomationError : public std::exception {
  public:
    explicit AutomationError(ErrorNumber number);
    AutomationError(ReturnCode code, Bstr description, Bstr source = {});

    ReturnCode code() const { return code_; }
    I4 number() const { return numberOf(code_); }
    const Bstr& description() const { return description_; }
    const Bstr& source() const { return source_; }
    const char* what() const noexcept override { return text_.c_str(); }

  private:
    ReturnCode code_;
    Bstr description_;
    Bstr source_;
    std::string text_;
};

[[noreturn]] void raise(ErrorNumber number);

/// The failure that a caller is told of: number or code, what happened, and which component says so.
struct ErrorRecord {
    ReturnCode code = ReturnCode::Success;
    Bstr description;
    Bstr source;
    /// Index of the argument that was at fault, when the call failed on one before its member ran.
    I4 argument = noArgument;

    static constexpr I4 noArgument = -1;

    [[noreturn]] void raise() const { throw AutomationError(code, description, source); }
};

/// Records the exception being handled: an `AutomationError` as it stands, exhausted memory as error 7, and
/// anything else, which only a defect can bring here, as error 51.
ErrorRecord recordOfCurrentException() noexcept;

}  // namespace tovera
