#include "python/exact_numbers.h"

#include <optional>

#include "python/errors.h"
#include "python/known.h"

namespace tovera::python {
namespace {

constexpr int mostDecimals = 28;

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

/// Reads a number as Python writes it, with a point, an exponent, or both.
std::optional<tovera_value> exactOfText(const std::string& text) {
    Whole96 whole;
    long decimals = 0;
    bool isNegative = false;
    bool afterPoint = false;
    long exponent = 0;
    std::size_t zeros = 0;  // at the end, which may not fit
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '-' && i == 0) {
            isNegative = true;
        } else if (c == '.') {
            afterPoint = true;
        } else if (c == 'E') {
            exponent = std::stol(text.substr(i + 1));
            break;
        } else if (c < '0' || c > '9') {
            return {};
        } else if (c == '0') {
            ++zeros;
            decimals += afterPoint;
        } else {
            for (; zeros > 0; --zeros)
                if (!whole.append(0)) return {};
            if (!whole.append(static_cast<unsigned>(c - '0'))) return {};
            decimals += afterPoint;
        }
    }
    decimals -= exponent;
    const bool isZero = whole.low == 0 && whole.high == 0;
    if (isZero) return exactOf(whole, 0, false);
    // As many of the zeros as are needed, or fit, are written out.
    for (; zeros > 0 && decimals > mostDecimals; --zeros) --decimals;
    for (; zeros > 0 && whole.append(0); --zeros) {
    }
    decimals -= static_cast<long>(zeros);
    for (; decimals < 0; ++decimals)
        if (!whole.append(0)) return {};
    if (decimals > mostDecimals) return {};
    return exactOf(whole, static_cast<int>(decimals), isNegative);
}

tovera_value exactOfWritten(PyObject* number) {
    // No exact number has as many digits; the decimal text of a huge number takes long to make.
    const auto text = utf8Of(checked(PyObject_Str(number)).get());
    const auto value = exactOfText(text);
    if (!value) raise(number::overflow);
    return *value;
}

}  // namespace

tovera_value exactWhole(PyObject* whole) {
    const auto bits = checked(PyObject_CallMethod(whole, "bit_length", nullptr));
    if (PyLong_AsLong(bits.get()) > 96) raise(number::overflow);
    return exactOfWritten(whole);
}

tovera_value exactDecimal(PyObject* decimal) {
    return exactOfWritten(decimal);
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
