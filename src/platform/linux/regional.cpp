#include "platform/linux/regional.h"

#include <array>
#include <clocale>
#include <iconv.h>
#include <langinfo.h>
#include <locale.h>
#include <memory>
#include <string>
#include <string_view>

#include "frame/utf8.h"

namespace tovera {
namespace {

using Locale = std::unique_ptr<std::remove_pointer_t<locale_t>, decltype([](locale_t l) { freelocale(l); })>;

/// One category of the user's locale, the C locale's where that isn't installed. The others have no say in
/// it: a `LC_CTYPE` that another system has handed over may name no locale of this one.
Locale userLocale(int categoryMask) {
    Locale locale(newlocale(categoryMask, "", nullptr));
    if (!locale) locale.reset(newlocale(categoryMask, "C", nullptr));
    return locale;
}

/// The first character of a text in a locale's own encoding.
char16_t firstCharacter(std::string_view bytes, const char* encoding, char16_t otherwise) {
    if (bytes.empty()) return otherwise;
    const auto conversion = iconv_open("UTF-8", encoding);
    // NOLINTNEXTLINE(performance-no-int-to-ptr): how it tells that it knows no such encoding.
    if (conversion == reinterpret_cast<iconv_t>(-1)) return otherwise;
    std::string from(bytes);
    std::array<char, 64> utf8{};
    auto* source = from.data();
    auto* target = utf8.data();
    auto sourceLeft = from.size();
    auto targetLeft = utf8.size();
    iconv(conversion, &source, &sourceLeft, &target, &targetLeft);
    iconv_close(conversion);
    const auto text = fromUtf8({utf8.data(), utf8.size() - targetLeft});
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
    const auto numeric = userLocale(LC_NUMERIC_MASK);
    const auto* const encoding = nl_langinfo_l(_NL_NUMERIC_CODESET, numeric.get());
    const auto separator = [&](nl_item item, char16_t otherwise) {
        return firstCharacter(nl_langinfo_l(item, numeric.get()), encoding, otherwise);
    };
    RegionalSettings regional;
    regional.decimalSeparator = separator(RADIXCHAR, u'.');
    regional.thousandsSeparator = separator(THOUSEP, regional.decimalSeparator == u',' ? u'\u00A0' : u',');
    regional.dateOrder = orderOf(nl_langinfo_l(D_FMT, userLocale(LC_TIME_MASK).get()));
    return regional;
}

}  // namespace tovera
