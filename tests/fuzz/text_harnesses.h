#pragma once

#include "frame/date_time.h"
#include "frame/utf8.h"
#include "fuzz/number_harnesses.h"

namespace tovera::fuzz {

/// A moment read from text lies in the calendar, and comes back through its own text.
inline void datesInText(Input input) {
    const auto settings = anySettings(input);
    const auto moment = parseDate(input.text(), settings);
    if (!moment) return;
    require(dayOf(*moment) >= firstDay && secondOfDay(*moment) <= 86399, "a moment of the calendar");
    require(parseDate(dateToText(*moment, settings), settings) == moment, "its text reads as itself");
}

inline void utf8Texts(Input input) {
    const auto bytes = input.bytes();
    const auto text = fromUtf8(bytes);
    require(text.size() <= bytes.size(), "no more characters than bytes");
    const auto clean = toUtf8(text);
    require(fromUtf8(clean) == text, "valid text survives");
    require(clean == bytes || text.find(u'\uFFFD') != text.npos, "only broken bytes change");
    const auto wide = toUtf8(input.wideText());
    require(toUtf8(fromUtf8(wide)) == wide, "what was written is valid");
}

}  // namespace tovera::fuzz
