#pragma once

#include <cmath>

#include "conversion/french_words.h"
#include "frame/number_text.h"
#include "fuzz/input.h"
#include "support/test_platform.h"

namespace tovera::fuzz {

inline RegionalSettings anySettings(Input& input) {
    const auto bits = input.take<std::uint8_t>();
    return {bits & 1 ? u',' : u'.',
            bits & 2   ? u'\u00A0'
            : bits & 1 ? u'.'
                       : u',',
            static_cast<DateOrder>(bits / 4 % 3), 2029};
}

/// A prefix is never too much: what is a number as a whole in the plain settings has the same value as
/// prefix.
inline void prefixNumbers(Input input) {
    const auto text = input.text();
    const R8 prefix = prefixNumber(text);
    require(std::isfinite(prefix), "a prefix number is finite");
    require(prefixNumber(u"  " + text) == prefix, "leading blanks don't matter");
    if (text.find_first_of(u", &-+\u00A0\u202F") != text.npos) return;
    const RegionalSettings plain;
    try {
        if (const auto whole = wholeNumber(text, plain)) require(*whole == prefix, "whole and prefix agree");
    } catch (const AutomationError&) {
        require(prefix == std::numeric_limits<R8>::max(), "an overflow is the largest prefix number");
    }
}

inline void wholeNumbers(Input input) {
    const auto settings = anySettings(input);
    for (const auto& text : {input.text(), input.wideText()}) {
        const auto number = testing::errorOf([&] {
            const auto value = wholeNumber(text, settings);
            require(!value || std::isfinite(*value), "a whole number is finite");
            if (!value) return;
            const auto written = numberToText(*value, settings.decimalSeparator);
            require(wholeNumber(written, settings).has_value(), "a written number reads as one");
        });
        require(number == 0 || number == 6, "only an overflow is raised");
    }
}

/// 15 digits survive the way to text and back, and a text is as short as it can be.
inline void numbersToText(Input input) {
    const auto value = input.take<R8>();
    if (!std::isfinite(value)) return;
    const auto text = numberToText(value);
    require(text.size() <= 22, "a number's text is short");
    const R8 back = prefixNumber(text);
    require(std::fabs(back - value) <= std::fabs(value) * 1e-14, "the number comes back");
    require(numberToText(back) == text || std::fabs(value) < 1e-307, "its text is stable");
    const auto small = static_cast<R4>(input.take<std::int32_t>()) / 64;
    const R8 smallBack = prefixNumber(numberToText(small));
    require(std::fabs(smallBack - small) <= std::fabs(small) * 1e-6F, "an R4 comes back");
}

inline void frenchWordsOfNumbers(Input input) {
    const auto value = input.take<std::uint8_t>() % 2 == 0
                           ? input.take<R8>()
                           : static_cast<R8>(input.take<std::int64_t>() >> 12) / 100;
    const CurrencyLabels labels{u"euro", u"centime"};
    for (const auto* chosen : {static_cast<const CurrencyLabels*>(nullptr), &labels}) {
        Bstr words;
        const auto error = testing::errorOf([&] { words = frenchWords(value, chosen); });
        require(error == (!std::isfinite(value) ? 6
                          : error == 9          ? 9
                                                : 0),
                "only hundredths or infinity fail");
        if (error != 0) continue;
        require(words.length() > 1 && words.length() < 400, "words have a size");
        require(left(words, 6) == u"moins " || !(value < 0), "a sign is told");
    }
}

}  // namespace tovera::fuzz
