#pragma once

#include <cmath>
#include <iostream>

#include "cli/step.h"
#include "cli/value_text.h"
#include "conversion/french_words.h"
#include "frame/date_time.h"
#include "frame/utf8.h"
#include "fuzz/device_harnesses.h"
#include "fuzz/network_harnesses.h"
#include "fuzz/program_harnesses.h"
#include "support/test_platform.h"

namespace tovera::fuzz {

inline RegionalSettings anySettings(Input& input) {
    const auto bits = take<std::uint8_t>(input);
    const char16_t thousands = bits & 2 ? u'\u00A0' : bits & 1 ? u'.' : u',';
    return {bits & 1 ? u',' : u'.', thousands, static_cast<DateOrder>(bits / 4 % 3), 2029};
}

inline void frenchWordsOfNumbers(Input input) {
    const bool anyBits = take<std::uint8_t>(input) % 2 == 0;
    const R8 value = anyBits ? take<R8>(input) : static_cast<R8>(take<std::int64_t>(input) >> 12) / 100;
    const CurrencyLabels labels{u"euro", u"centime"};
    for (const auto* chosen : {static_cast<const CurrencyLabels*>(nullptr), &labels}) {
        Bstr words;
        const auto error = testing::errorOf([&] { words = frenchWords(value, chosen); });
        require(std::isfinite(value) ? error == 0 || error == 9 : error == 6,
                "only hundredths or infinity fail");
        if (error != 0) continue;
        require(words.length() > 1 && words.length() < 400, "words have a size");
        require(left(words, 6) == u"moins " || !(value < 0), "a sign is told");
    }
}

/// A moment read from text lies in the calendar, and comes back through its own text.
inline void datesInText(Input input) {
    const auto settings = anySettings(input);
    const auto moment = parseDate(fromUtf8(input), settings);
    if (!moment) return;
    require(dayOf(*moment) >= firstDay && secondOfDay(*moment) <= 86399, "a moment of the calendar");
    require(parseDate(dateToText(*moment, settings), settings) == moment, "its text reads as itself");
}

/// Any text is a step or tells what is wrong with it, and a literal prints as one.
inline void stepTexts(Input input) {
    const auto text = fromUtf8(input);
    try {
        require(!cli::parseStep(text).name.empty(), "a step has a name");
    } catch (const cli::CommandLineError& error) {
        require(*error.what() != '\0', "what is wrong is told");
    }
    const auto literal = cli::parseLiteral(text);
    if (!literal || literal->is<Bstr>() || literal->is<Date>()) return;  // these print without their marks
    require(cli::parseLiteral(fromUtf8(cli::printed(*literal))).has_value(), "a literal prints as one");
}

inline void utf8Texts(Input input) {
    const auto text = fromUtf8(input);
    require(text.size() <= input.size(), "no more characters than bytes");
    const auto clean = toUtf8(text);
    require(fromUtf8(clean) == text, "valid text survives");
    require(clean == input || text.find(u'\uFFFD') != text.npos, "only broken bytes change");
}

/// A harness takes any bytes and ends the process when something is wrong. A new one is a function and a row.
struct Harness {
    std::string_view name;
    void (*run)(Input input);
    std::string_view alphabet;  ///< what its texts are mostly made of, to get beyond the first character
};

inline constexpr Harness harnesses[] = {
    {"words", &frenchWordsOfNumbers, ""},
    {"date", &datesInText, "0123456789//--..:: "},
    {"step", &stepTexts, "ab(=,)\"#[[..]]01299E -:TrueNothingEmptyNullFalse\xC3\xA9"},
    {"utf8", &utf8Texts, "a\x80\xBF\xC3\xE2\x82\xAC\xED\xA0\xF0\x9F\x98\xF4\x90"},
    {"form", &formFiles, " \n\n==\"\"Caption   Caption=BeginEnd VB.Label aBeginProperty EndProperty 0\t$:"},
    {"profile", &profileTexts, "[s][T]\r\n\r\n==kLK ;\"'\x1A"},
    {"call", &callsByName, ""},
    {"resolv", &linesOfServers, "nameserver nameserver 1.0.255#\n\r\t;:"},
    {"mci", &soundCommands, "open play set cdaudio door closed alias type \"x\" \t"},
    {"mounts", &mountLists, "36 98:0 / /mnt\\040 rw - ext4 /dev \n"},
    {"url", &urlsOfFiles, "file:file:///\\%%41%C3c:|localhost?#+."},
};

}  // namespace tovera::fuzz
