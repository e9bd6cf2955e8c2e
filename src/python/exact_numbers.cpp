#include "python/exact_numbers.h"

#include <optional>
#include <string_view>

#include "python/errors.h"
#include "python/known.h"

namespace tovera::python {
namespace {

constexpr int mostDecimals = 28;
constexpr std::size_t digitsThatFit = 28;  ///< any so many

/// A whole number of up to 96 bits without sign.
class Whole96 {
  public:
    std::uint64_t low = 0;
    std::uint32_t high = 0;

    /// Appends a decimal digit; false when there is no room.
    bool append(unsigned digit) {
        const std::uint64_t lowest = (low & 0xFFFFFFFF) * 10 + digit;
        const std::uint64_t middle = (low >> 32) * 10 + (lowest >> 32);
        const std::uint64_t highest = std::uint64_t{high} * 10 + (middle >> 32);
        if (highest >> 32 != 0) return false;
        low = middle << 32 | (lowest & 0xFFFFFFFF);
        high = static_cast<std::uint32_t>(highest);
        return true;
    }
};

tovera_value exactOf(const Whole96& whole, int decimals, bool isNegative) {
    auto value = tovera_of_type(TOVERA_EXACT);
    value.as.exact = {whole.low, whole.high, static_cast<std::uint8_t>(decimals),
                      static_cast<std::uint8_t>(isNegative)};
    return value;
}

/// A number as Python writes it: digits with a point, an exponent, or both.
struct Written {
    std::string digits;  ///< without the point, and without zeros in front
    long decimals = 0;   ///< how many of the digits stand behind the point; less than 0 for further zeros
    bool isNegative = false;
    bool isNumber = true;
};

Written writtenIn(std::string_view text) {
    Written written;
    written.isNegative = text.starts_with('-');
    if (written.isNegative) text.remove_prefix(1);
    if (const auto exponent = text.find_first_of("Ee"); exponent != text.npos) {
        written.decimals = -std::stol(std::string(text.substr(exponent + 1)));
        text = text.substr(0, exponent);
    }
    bool afterPoint = false;
    for (const char c : text) {
        if (c == '.') {
            afterPoint = true;
            continue;
        }
        if (c < '0' || c > '9') written.isNumber = false;
        written.decimals += afterPoint ? 1 : 0;
        if (c != '0' || !written.digits.empty()) written.digits += c;
    }
    return written;
}

std::optional<tovera_value> exactOfText(std::string_view text) {
    auto written = writtenIn(text);
    auto& digits = written.digits;
    auto decimals = written.decimals;
    if (!written.isNumber) return {};
    if (digits.empty()) return exactOf({}, 0, false);
    // Zeros at the end are kept where there is room for them.
    const auto isTooLong = [&] { return decimals > mostDecimals || digits.size() > digitsThatFit; };
    for (; digits.back() == '0' && decimals > 0 && isTooLong(); --decimals) digits.pop_back();
    if (decimals > mostDecimals || decimals < -mostDecimals) return {};
    for (; decimals < 0; ++decimals) digits += '0';
    Whole96 whole;
    for (const char c : digits)
        if (!whole.append(static_cast<unsigned>(c - '0'))) return {};
    return exactOf(whole, static_cast<int>(decimals), written.isNegative);
}

tovera_value exactOfWritten(PyObject* text) {
    const auto value = exactOfText(utf8Of(text));
    if (!value) raise(number::overflow);
    return *value;
}

}  // namespace

tovera_value exactWhole(PyObject* whole) {
    // The decimal text of a huge number would take long to make. Derived classes may write themselves
    // otherwise.
    auto* const plain = reinterpret_cast<PyObject*>(&PyLong_Type);
    const auto bits = checked(PyObject_CallMethod(plain, "bit_length", "O", whole));
    if (wholeOf(bits.get()) > 96) raise(number::overflow);
    return exactOfWritten(checked(PyNumber_ToBase(whole, 10)).get());
}

tovera_value exactDecimal(PyObject* decimal) {
    return exactOfWritten(checked(PyObject_CallMethod(known().decimal.get(), "__str__", "O", decimal)).get());
}

Ref exactNumberOf(const tovera_value& value) {
    const auto& exact = value.as.exact;
    const auto high = checked(PyLong_FromUnsignedLongLong(exact.high));
    const auto low = checked(PyLong_FromUnsignedLongLong(exact.low));
    const auto width = checked(PyLong_FromLong(64));
    const auto shifted = checked(PyNumber_Lshift(high.get(), width.get()));
    auto whole = checked(PyNumber_Or(shifted.get(), low.get()));
    if (exact.negative) whole = checked(PyNumber_Negative(whole.get()));
    if (exact.decimals == 0) return whole;
    const auto text =
        utf8Of(checked(PyObject_Str(whole.get())).get()) + "E-" + std::to_string(exact.decimals);
    return checked(PyObject_CallFunction(known().decimal.get(), "s", text.c_str()));
}

}  // namespace tovera::python
