#include "platform/linux/regional.h"

#include <clocale>
#include <langinfo.h>
#include <locale.h>
#include <memory>
#include <string_view>

#include "frame/utf8.h"

namespace tovera {
namespace {

using Locale = std::unique_ptr<std::remove_pointer_t<locale_t>, decltype([](locale_t l) { freelocale(l); })>;

char16_t firstCharacter(const char* bytes, char16_t otherwise) {
    const auto text = fromUtf8(bytes);
    return text.empty() ? otherwise : text.front();
}

/// The order of day, month and year in a `strftime` format.
DateOrder orderOf(std::string_view format) {
    if (format.find("%F") != std::string_view::npos) return DateOrder::YearMonthDay;
    if (format.find("%D") != std::string_view::npos) return DateOrder::MonthDayYear;
    const auto year = format.find_first_of("yY");
    const auto month = format.find_first_of("mbB");
    const auto day = format.find_first_of("de");
    if (year < month) return DateOrder::YearMonthDay;
    return month < day ? DateOrder::MonthDayYear : DateOrder::DayMonthYear;
}

}  // namespace

RegionalSettings userRegionalSettings() {
    Locale locale(newlocale(LC_ALL_MASK, "", nullptr));
    if (!locale) locale.reset(newlocale(LC_ALL_MASK, "C", nullptr));
    RegionalSettings regional;
    regional.decimalSeparator = firstCharacter(nl_langinfo_l(RADIXCHAR, locale.get()), u'.');
    regional.thousandsSeparator = firstCharacter(nl_langinfo_l(THOUSEP, locale.get()),
                                                 regional.decimalSeparator == u',' ? u'\u00A0' : u',');
    regional.dateOrder = orderOf(nl_langinfo_l(D_FMT, locale.get()));
    return regional;
}

}  // namespace tovera
