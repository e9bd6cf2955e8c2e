#include "platform/windows/regional.h"

#include <iterator>

#include "platform/windows/system.h"

namespace tovera {
namespace {

/// The first character of a setting, which is a separator of at most three.
char16_t separator(LCTYPE setting, char16_t otherwise) {
    wchar_t text[8]{};
    const int length = GetLocaleInfoW(LOCALE_USER_DEFAULT, setting, text, static_cast<int>(std::size(text)));
    return length > 1 ? static_cast<char16_t>(text[0]) : otherwise;
}

DWORD numericSetting(LCTYPE setting, DWORD otherwise) {
    DWORD number = 0;
    const int length = GetLocaleInfoW(LOCALE_USER_DEFAULT, setting | LOCALE_RETURN_NUMBER,
                                      reinterpret_cast<wchar_t*>(&number), sizeof number / sizeof(wchar_t));
    return length > 0 ? number : otherwise;
}

DateOrder orderOf(DWORD setting) {
    if (setting == 0) return DateOrder::MonthDayYear;
    return setting == 2 ? DateOrder::YearMonthDay : DateOrder::DayMonthYear;
}

}  // namespace

RegionalSettings userRegionalSettings() {
    RegionalSettings regional;
    regional.decimalSeparator = separator(LOCALE_SDECIMAL, regional.decimalSeparator);
    regional.thousandsSeparator = separator(LOCALE_STHOUSAND, regional.thousandsSeparator);
    regional.dateOrder = orderOf(numericSetting(LOCALE_IDATE, 1));
    DWORD latest = 0;
    if (GetCalendarInfoW(LOCALE_USER_DEFAULT, CAL_GREGORIAN, CAL_ITWODIGITYEARMAX | CAL_RETURN_NUMBER,
                         nullptr, 0, &latest))
        regional.latestTwoDigitYear = static_cast<I4>(latest);
    return regional;
}

}  // namespace tovera
