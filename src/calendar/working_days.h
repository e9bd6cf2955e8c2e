#pragma once

#include "frame/regional.h"
#include "frame/values.h"

namespace tovera {

/// Midnight of a day of the calendar. Month and day may lie outside their usual range and roll over; a year
/// from 0 to 99 goes through the user's window. Error 5 for a year below 0 or above 9999, and for a day that
/// rolls out of the calendar.
Date dateFromParts(I2 year, I2 month, I2 day, const RegionalSettings& regional);

/// Mondays to Fridays among a number of days from a first one on.
std::int64_t workingDays(I4 first, std::int64_t count);

/// Mondays to Fridays among start and start plus 1, plus 2, and so on while that isn't later than end.
/// Error 6 above 32767, and for a day that leaves the calendar. Constant cost.
I2 workingDaysBetween(Date start, Date end);

}  // namespace tovera
