#pragma once

#include "fuzz/number_harnesses.h"
#include "fuzz/step_harness.h"
#include "fuzz/text_harnesses.h"

namespace tovera::fuzz {

/// A harness takes any bytes and ends the process when something is wrong. A new one is a function and a row.
struct Harness {
    std::string_view name;
    void (*run)(Input input);
    std::string_view alphabet;  ///< what its texts are mostly made of, to get beyond the first character
};

inline void PrintTo(const Harness& harness, std::ostream* out) {
    *out << harness.name;
}

inline constexpr Harness harnesses[] = {
    {"prefix", &prefixNumbers, "0123456789..--++eE  ,&Hx"},
    {"whole", &wholeNumbers, "0123456789..,,-+eE &HhfF\xA0"},
    {"number", &numbersToText, ""},
    {"words", &frenchWordsOfNumbers, ""},
    {"date", &datesInText, "0123456789//--..:: "},
    {"step", &stepTexts, "ab(=,)\"#[]..012 -:TrueNothingEmptyNullFalse\xC3\xA9"},
    {"utf8", &utf8Texts, "a\x80\xBF\xC3\xE2\x82\xAC\xED\xA0\xF0\x9F\x98\xF4\x90"},
};

}  // namespace tovera::fuzz
