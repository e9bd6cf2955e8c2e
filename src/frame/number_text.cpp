#include "frame/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "frame/ascii_case.h"
#include "frame/bstr.h"
#include "frame/error.h"

namespace tovera {
namespace {

constexpr bool isDigit(char16_t c) {
    return c >= u'0' && c <= u'9';
}

/// A group of digits may end with the user's separator. Where that is a blank, any blank will do: nobody
/// types the one that doesn't break.
constexpr bool separates(char16_t c, char16_t separator) {
    constexpr std::u16string_view blanks = u" \u00A0\u202F";
    const bool blankSeparator = blanks.find(separator) != blanks.npos;
    return separator != u'\0' && (c == separator || (blankSeparator && blanks.find(c) != blanks.npos));
}

template <class T>
std::u16string significantDigits(T value, int digits, char16_t decimalSeparator) {
    std::array<char, 32> buffer{};
    const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                            std::chars_format::general, digits);
    std::u16string text(buffer.data(), end);
    for (auto& c : text) {
        if (c == u'e') c = u'E';
        if (c == u'.') c = decimalSeparator;
    }
    return text == u"-0" ? u"0" : text;
}

/// The digits of an exact number, with a point when there are decimals.
std::string digitsOf(const ExactNumber& value) {
    std::array<std::uint32_t, 3> parts{value.high, static_cast<std::uint32_t>(value.low >> 32),
                                       static_cast<std::uint32_t>(value.low)};
    std::string digits;  // the last one first
    while (std::ranges::any_of(parts, [](auto part) { return part != 0; }) ||
           digits.size() <= value.decimals) {
        std::uint64_t rest = 0;
        for (auto& part : parts) {
            rest = rest << 32 | part;
            part = static_cast<std::uint32_t>(rest / 10);
            rest %= 10;
        }
        digits += static_cast<char>('0' + rest);
    }
    const auto zeros = std::min(digits.find_first_not_of('0'), std::size_t{value.decimals});
    const std::size_t decimals = value.decimals - zeros;
    digits.erase(0, zeros);
    if (decimals > 0) digits.insert(decimals, 1, '.');
    if (value.isNegative && digits != "0") digits += '-';
    std::ranges::reverse(digits);
    return digits;
}

/// Reads a number's characters one by one into the form that `std::from_chars` takes.
class NumberReader {
  public:
    explicit NumberReader(std::u16string_view text) : rest_(text) {}

    void skipBlanks() {
        while (!rest_.empty() && rest_.front() == u' ') rest_.remove_prefix(1);
    }

    void readSign() {
        if (starts(u'+') || starts(u'-')) {
            negative_ = rest_.front() == u'-';
            rest_.remove_prefix(1);
        }
    }

    /// Digits, and separators between them when one is given. True when there was a digit.
    bool readDigits(char16_t separator = u'\0') {
        bool any = false;
        while (!rest_.empty()) {
            if (isDigit(rest_.front())) {
                taken_ += static_cast<char>(rest_.front());
                any = true;
            } else if (!any || !separates(rest_.front(), separator)) {
                break;
            }
            rest_.remove_prefix(1);
        }
        return any;
    }

    /// Whole digits and decimals; true when there was a digit on either side.
    bool readMantissa(char16_t decimalSeparator, char16_t thousandsSeparator) {
        const bool whole = readDigits(thousandsSeparator);
        if (!starts(decimalSeparator)) return whole;
        rest_.remove_prefix(1);
        taken_ += '.';
        return readDigits() || whole;
    }

    /// An exponent; left unread when no digit follows its letter and sign.
    void readExponent() {
        if (!starts(u'E') && !starts(u'e')) return;
        const auto before = *this;
        rest_.remove_prefix(1);
        taken_ += 'e';
        if (starts(u'-')) taken_ += '-';
        if (starts(u'+') || starts(u'-')) rest_.remove_prefix(1);
        if (!readDigits()) *this = before;
    }

    bool atEnd() const { return rest_.empty(); }

    /// The number read, infinite when it lies beyond the range of `R8`.
    R8 value() const {
        R8 number = 0;
        const auto [end, error] = std::from_chars(taken_.data(), taken_.data() + taken_.size(), number);
        if (error == std::errc::result_out_of_range) number = outOfRange();
        return negative_ ? -number : number;
    }

  private:
    bool starts(char16_t c) const { return !rest_.empty() && rest_.front() == c; }

    /// A number out of range is too small to be told from 0, or too large, by the power of ten of its first
    /// digit that isn't 0.
    R8 outOfRange() const {
        const auto mantissa = taken_.substr(0, taken_.find('e'));
        const auto point = static_cast<std::int64_t>(std::min(mantissa.find('.'), mantissa.size()));
        const auto first = static_cast<std::int64_t>(mantissa.find_first_of("123456789"));
        return point - first + exponent() < 0 ? 0 : std::numeric_limits<R8>::infinity();
    }

    /// The exponent, held to a size that outweighs any mantissa.
    std::int64_t exponent() const {
        const auto letter = taken_.find('e');
        if (letter == std::string::npos) return 0;
        const bool negative = taken_[letter + 1] == '-';
        std::int64_t size = 0;
        for (const char c : taken_.substr(letter + (negative ? 2 : 1))) {
            constexpr std::int64_t large = std::int64_t{1} << 40;
            size = std::min(size * 10 + (c - '0'), large);
        }
        return negative ? -size : size;
    }

    std::u16string_view rest_;
    std::string taken_;
    bool negative_ = false;
};

std::optional<R8> hexadecimal(std::u16string_view text) {
    if (text.size() < 3 || text.size() > 10 || text[0] != u'&' || smallAscii(text[1]) != u'h') return {};
    const auto digits = text.substr(2);
    constexpr std::u16string_view values = u"0123456789abcdef";
    std::uint32_t bits = 0;
    for (const auto c : digits) {
        const auto value = values.find(smallAscii(c));
        if (value == values.npos) return {};
        bits = bits * 16 + static_cast<std::uint32_t>(value);
    }
    return digits.size() <= 4 ? static_cast<I2>(bits) : static_cast<I4>(bits);
}

}  // namespace

std::u16string numberToText(R8 value, char16_t decimalSeparator) {
    return significantDigits(value, 15, decimalSeparator);
}

std::u16string numberToText(R4 value, char16_t decimalSeparator) {
    return significantDigits(value, 7, decimalSeparator);
}

std::u16string numberToText(I4 value) {
    std::array<char, 12> buffer{};
    const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    return {buffer.data(), end};
}

std::u16string numberToText(const ExactNumber& value, char16_t decimalSeparator) {
    const auto digits = digitsOf(value);
    std::u16string text(digits.begin(), digits.end());
    std::ranges::replace(text, u'.', decimalSeparator);
    return text;
}

R8 nearest(const ExactNumber& value) {
    const auto digits = digitsOf(value);
    R8 number = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return number;
}

R8 prefixNumber(std::u16string_view text) {
    NumberReader reader(text);
    reader.skipBlanks();
    reader.readSign();
    if (!reader.readMantissa(u'.', u'\0')) return 0;
    reader.readExponent();
    constexpr auto largest = std::numeric_limits<R8>::max();
    return std::fmax(-largest, std::fmin(largest, reader.value()));
}

std::optional<R8> wholeNumber(std::u16string_view text, const RegionalSettings& regional) {
    text = trimBlanks(text);
    if (const auto bits = hexadecimal(text)) return bits;
    NumberReader reader(text);
    reader.readSign();
    reader.skipBlanks();
    if (!reader.readMantissa(regional.decimalSeparator, regional.thousandsSeparator)) return {};
    reader.readExponent();
    if (!reader.atEnd()) return {};
    const R8 value = reader.value();
    if (std::isinf(value)) raise(ErrorNumber::Overflow);
    return value;
}

}  // namespace tovera
