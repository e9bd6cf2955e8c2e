#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "frame/regional.h"
#include "frame/values.h"

// The calendar behind `DATE` values: 1 January 100 to 31 December 9999 of the Gregorian calendar.
namespace tovera {

inline constexpr I4 firstDay = -657434;  ///< 1 January 100
inline constexpr I4 lastDay = 2958465;   ///< 31 December 9999
inline constexpr I4 secondsPerDay = 86400;

struct DateParts {
    I4 year;
    I4 month;
    I4 day;
    I4 hour;
    I4 minute;
    I4 second;
};

/// The day that a moment lies in, as a `DATE` without time; a moment out of range raises error 6.
I4 dayOf(Date date);

/// Seconds since midnight, to the nearest one: 86400 in the last half second of the day.
I4 secondOfDay(Date date);

/// Year to second of a moment, to the nearest second; out of range raises error 6.
DateParts partsOf(Date date);

/// The day number of a day of the calendar. Month and day may lie outside their usual range and roll over.
I4 dayNumber(I4 year, I4 month, I4 day);

/// A year from 0 to 99 through the user's two-digit year window; any other year as it is.
I4 windowedYear(I4 year, const RegionalSettings& regional);

/// Day of the week of a day number: Monday is 1, Sunday 7.
constexpr I4 weekdayFromMonday(I4 day) {
    return ((day + 5) % 7 + 7) % 7 + 1;
}

/// The moment that a text names: a date (in the user's order, or year-month-day), a time, or both.
std::optional<Date> parseDate(std::u16string_view text, const RegionalSettings& regional);

/// A moment as text in the user's order: date, time behind a blank unless it is midnight; only the time on
/// day 0.
std::u16string dateToText(Date date, const RegionalSettings& regional);

}  // namespace tovera
