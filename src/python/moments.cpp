#include "python/moments.h"

#include <cmath>
#include <initializer_list>

#include "python/errors.h"
#include "python/known.h"

namespace tovera::python {
namespace {

constexpr long firstDay = 693594;  ///< 30 December 1899 as Python counts days, from 1 January of the year 1
constexpr long lastDay = 3652059;  ///< 31 December 9999
constexpr std::int64_t microsecondsPerSecond = 1'000'000;
constexpr std::int64_t microsecondsPerDay = 86400 * microsecondsPerSecond;

/// A day of Python's count as year, month and day, in the eras of 400 years that begin in March.
struct Day {
    explicit Day(long ordinal) {
        const long sinceMarch = ordinal + 305;
        const long era = sinceMarch / 146097;
        const long ofEra = sinceMarch % 146097;
        const long yearOfEra = (ofEra - ofEra / 1460 + ofEra / 36524 - ofEra / 146096) / 365;
        const long ofYear = ofEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
        const long fromMarch = (5 * ofYear + 2) / 153;
        day = static_cast<int>(ofYear - (153 * fromMarch + 2) / 5 + 1);
        month = static_cast<int>(fromMarch < 10 ? fromMarch + 3 : fromMarch - 9);
        year = static_cast<int>(yearOfEra + era * 400 + (month <= 2 ? 1 : 0));
    }
    int year;
    int month;
    int day;
};

/// Classes of the user's may say anything.
long within(long number, long least, long most) {
    if (number < least || number > most) raise(number::overflow);
    return number;
}

long partOf(PyObject* moment, const char* name) {
    return within(wholeOf(checked(PyObject_GetAttrString(moment, name)).get()), 0, microsecondsPerSecond - 1);
}

double fractionOf(PyObject* moment) {
    if (checked(PyObject_GetAttrString(moment, "tzinfo")).get() != Py_None)
        raise(number::typeMismatch, "Une date avec un fuseau horaire");
    const long seconds =
        (partOf(moment, "hour") * 60 + partOf(moment, "minute")) * 60 + partOf(moment, "second");
    const auto microseconds = seconds * microsecondsPerSecond + partOf(moment, "microsecond");
    return static_cast<double>(microseconds) / static_cast<double>(microsecondsPerDay);
}

}  // namespace

double daysOf(PyObject* moment) {
    if (isOneOf(moment, known().time)) return fractionOf(moment);
    const auto ordinal = checked(PyObject_CallMethod(moment, "toordinal", nullptr));
    const auto day = static_cast<double>(within(wholeOf(ordinal.get()), 1, lastDay) - firstDay);
    if (!isOneOf(moment, known().datetime)) return day;
    // Before the day 0 the fraction counts away from it, but still forward in time.
    const auto fraction = fractionOf(moment);
    return day < 0 ? day - fraction : day + fraction;
}

Ref momentOf(double days) {
    const auto whole = std::trunc(days);
    if (!(whole >= 1 - firstDay && whole <= lastDay - firstDay)) raise(number::overflow);
    auto day = static_cast<long>(whole) + firstDay;
    auto microseconds = std::llround(std::fabs(days - whole) * static_cast<double>(microsecondsPerDay));
    if (microseconds == microsecondsPerDay) {
        microseconds = 0;
        if (++day > lastDay) raise(number::overflow);
    }
    const Day date(day);
    const auto seconds = static_cast<int>(microseconds / microsecondsPerSecond);
    if (microseconds == 0)
        return checked(PyObject_CallFunction(known().datetime.get(), "iii", date.year, date.month, date.day));
    return checked(PyObject_CallFunction(known().datetime.get(), "iiiiiii", date.year, date.month, date.day,
                                         seconds / 3600, seconds / 60 % 60, seconds % 60,
                                         static_cast<int>(microseconds % microsecondsPerSecond)));
}

}  // namespace tovera::python
