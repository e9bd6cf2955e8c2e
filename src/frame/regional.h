#pragma once

#include "frame/values.h"

namespace tovera {

enum class DateOrder { DayMonthYear, MonthDayYear, YearMonthDay };

/// The user's settings for numbers and dates in text.
struct RegionalSettings {
    char16_t decimalSeparator = u'.';
    char16_t thousandsSeparator = u',';
    DateOrder dateOrder = DateOrder::DayMonthYear;
    /// The latest year that a year from 0 to 99 can mean: such a year lies in the hundred years up to it.
    I4 latestTwoDigitYear = 2029;
};

}  // namespace tovera
