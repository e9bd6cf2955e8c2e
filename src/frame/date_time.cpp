#include "frame/date_time.h"

#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <vector>

#include "frame/error.h"

namespace tovera {
namespace {

constexpr std::chrono::sys_days dayZero{std::chrono::year{1899} / 12 / 30};

/// A text cut into runs of digits and the characters between them.
struct Fields {
    std::vector<I4> numbers;
    std::u16string separators;
};

std::optional<Fields> fieldsOf(std::u16string_view text) {
    Fields fields;
    bool inNumber = false;
    for (const auto c : text) {
        if (c >= u'0' && c <= u'9') {
            if (!inNumber) fields.numbers.push_back(0);
            if (fields.numbers.back() > 9999) return {};
            fields.numbers.back() = fields.numbers.back() * 10 + (c - u'0');
            inNumber = true;
        } else {
            if (!inNumber) return {};
            fields.separators += c;
            inNumber = false;
        }
    }
    if (!inNumber) return {};
    return fields;
}

std::optional<R8> parseTime(std::u16string_view text) {
    const auto fields = fieldsOf(text);
    if (!fields || (fields->separators != u":" && fields->separators != u"::")) return {};
    const auto& n = fields->numbers;
    const I4 second = n.size() == 3 ? n[2] : 0;
    if (n[0] > 23 || n[1] > 59 || second > 59) return {};
    return R8(n[0] * 3600 + n[1] * 60 + second) / secondsPerDay;
}

std::optional<I4> parseDay(std::u16string_view text, const RegionalSettings& regional) {
    const auto fields = fieldsOf(text);
    if (!fields || fields->numbers.size() != 3 || fields->separators[0] != fields->separators[1]) return {};
    if (std::u16string_view(u"/-.").find(fields->separators[0]) == std::u16string_view::npos) return {};
    const auto& n = fields->numbers;
    const auto order = n[0] > 99 ? DateOrder::YearMonthDay : regional.dateOrder;
    const bool yearFirst = order == DateOrder::YearMonthDay;
    const I4 year = windowedYear(yearFirst ? n[0] : n[2], regional);
    const I4 month = order == DateOrder::MonthDayYear ? n[0] : n[1];
    const I4 day = yearFirst ? n[2] : order == DateOrder::MonthDayYear ? n[1] : n[0];
    if (year < 100 || year > 9999 || month > 12 || day > 31) return {};
    const std::chrono::year_month_day date{std::chrono::year{year},
                                           std::chrono::month(static_cast<unsigned>(month)),
                                           std::chrono::day(static_cast<unsigned>(day))};
    if (!date.ok()) return {};
    return dayNumber(year, month, day);
}

template <class... Numbers>
std::u16string formatted(const char* format, Numbers... numbers) {
    std::array<char, 48> buffer{};
    const auto length = std::snprintf(buffer.data(), buffer.size(), format, numbers...);
    return {buffer.data(), buffer.data() + length};
}

}  // namespace

I4 dayOf(Date date) {
    const R8 day = std::trunc(date.days);
    if (!(day >= firstDay && day <= lastDay)) raise(ErrorNumber::Overflow);
    return static_cast<I4>(day);
}

I4 secondOfDay(Date date) {
    const R8 fraction = std::fabs(date.days - dayOf(date));
    return static_cast<I4>(std::lround(fraction * secondsPerDay));
}

DateParts partsOf(Date date) {
    const I4 second = secondOfDay(date);
    const I4 day = dayOf(date) + second / secondsPerDay;
    if (day > lastDay) raise(ErrorNumber::Overflow);
    const std::chrono::year_month_day calendar{dayZero + std::chrono::days{day}};
    const I4 time = second % secondsPerDay;
    return {static_cast<int>(calendar.year()),
            static_cast<I4>(static_cast<unsigned>(calendar.month())),
            static_cast<I4>(static_cast<unsigned>(calendar.day())),
            time / 3600,
            time / 60 % 60,
            time % 60};
}

I4 dayNumber(I4 year, I4 month, I4 day) {
    const I4 monthsFromZero = year * 12 + month - 1;
    const I4 rolledYear = monthsFromZero >= 0 ? monthsFromZero / 12 : (monthsFromZero - 11) / 12;
    const auto rolledMonth = static_cast<unsigned>(monthsFromZero - rolledYear * 12 + 1);
    const std::chrono::sys_days first{std::chrono::year{rolledYear} / static_cast<int>(rolledMonth) / 1};
    return static_cast<I4>((first - dayZero).count()) + day - 1;
}

I4 windowedYear(I4 year, const RegionalSettings& regional) {
    if (year < 0 || year > 99) return year;
    const I4 inCentury = regional.latestTwoDigitYear % 100;
    const I4 century = regional.latestTwoDigitYear - inCentury;
    return year <= inCentury ? century + year : century - 100 + year;
}

std::optional<Date> parseDate(std::u16string_view text, const RegionalSettings& regional) {
    if (const auto time = parseTime(text)) return Date{*time};
    const auto blank = text.find(u' ');
    const auto day = parseDay(text.substr(0, blank), regional);
    if (!day) return {};
    if (blank == std::u16string_view::npos) return Date{R8(*day)};
    const auto time = parseTime(text.substr(blank + 1));
    if (!time) return {};
    return Date{*day < 0 ? *day - *time : *day + *time};
}

std::u16string dateToText(Date date, const RegionalSettings& regional) {
    const auto p = partsOf(date);
    auto time = formatted("%02d:%02d:%02d", p.hour, p.minute, p.second);
    if (dayNumber(p.year, p.month, p.day) == 0) return time;
    const bool midnight = p.hour == 0 && p.minute == 0 && p.second == 0;
    const auto day =
        regional.dateOrder == DateOrder::YearMonthDay   ? formatted("%04d-%02d-%02d", p.year, p.month, p.day)
        : regional.dateOrder == DateOrder::MonthDayYear ? formatted("%02d/%02d/%04d", p.month, p.day, p.year)
                                                        : formatted("%02d/%02d/%04d", p.day, p.month, p.year);
    return midnight ? day : day + u' ' + time;
}

}  // namespace tovera
