#include "calendar/cls_date.h"

#include "calendar/working_days.h"
#include "frame/arithmetic.h"
#include "frame/checked.h"
#include "frame/date_time.h"
#include "frame/number_text.h"

namespace tovera {
namespace {

std::u16string twoDigits(std::int64_t value) {
    auto digits = numberToText(static_cast<I4>(value));
    return value < 10 ? u"0" + digits : digits;
}

/// The first two fields of a date text swapped: both directions are the same steps.
Bstr swapFields(std::u16string_view s) {
    const auto f1 = left(s, 2);
    const auto f2 = right(left(s, 5), 2);
    const auto f3 = right(s, s.size() == 10 ? 4 : 2);
    constexpr std::u16string_view slash = u"/";
    return join(f2, slash, f1, slash, f3);
}

}  // namespace

Date Cls_Date::Paques(const Variant& Annee) {
    const Arithmetic arithmetic(platform_.services);
    const auto dayOfYear = [&](I2 month, I2 day) {
        const auto year = arithmetic.convert().to<I2>(Annee);
        return dateFromParts(year, month, day, platform_.services.regionalSettings());
    };
    const auto equals = [&](R8 year) { return arithmetic.compareToNumber(Annee, year) == 0; };
    if (equals(1954) || equals(2049)) return dayOfYear(4, 18);
    if (equals(1981) || equals(2076)) return dayOfYear(4, 19);

    const auto a = arithmetic.modulo(Annee, I2{19});
    const auto b = arithmetic.modulo(Annee, I2{4});
    const auto c = arithmetic.modulo(Annee, I2{7});
    const auto d = arithmetic.modulo(arithmetic.add(arithmetic.multiply(I2{19}, a), I2{24}), I2{30});
    const auto twoB = arithmetic.multiply(I2{2}, b);
    const auto fourC = arithmetic.multiply(I2{4}, c);
    const auto sixD = arithmetic.multiply(I2{6}, d);
    const auto e =
        arithmetic.modulo(arithmetic.add(arithmetic.add(arithmetic.add(twoB, fourC), sixD), I2{5}), I2{7});
    const auto march22 = dayOfYear(3, 22);
    return Date{march22.days + arithmetic.convert().to<R8>(d) + arithmetic.convert().to<R8>(e)};
}

Variant Cls_Date::DateFRtoUS(const Bstr& strDateFR) {
    return swapFields(strDateFR);
}

Variant Cls_Date::DateUStoFR(const Bstr& strDateUS) {
    return swapFields(strDateUS);
}

Bstr Cls_Date::SecondeEnHeure(I4 Seconde) {
    const std::int64_t S = Seconde;
    const auto h = S >= 0 ? S / 3600 : (S - 3599) / 3600;
    const auto r = S - 3600 * h;
    const auto m = r / 60;
    const auto s = r - 60 * m;
    constexpr std::u16string_view colon = u":";
    return join(twoDigits(h), colon, twoDigits(m), colon, twoDigits(s));
}

I4 Cls_Date::HeureEnSeconde(Date Heure) {
    return secondOfDay(Heure) % secondsPerDay;
}

I4 Cls_Date::Chrono(I4 DepartSec, I4 ArriveeSec) {
    if (DepartSec > ArriveeSec) return checkedAdd(checkedSubtract(secondsPerDay, DepartSec), ArriveeSec);
    return checkedSubtract(ArriveeSec, DepartSec);
}

I2 Cls_Date::NBJoursOuvrablesParMois(I2 intAnnee, I2 intMois) {
    const auto regional = platform_.services.regionalSettings();
    const auto nextMonth = checkedAdd(intMois, I2{1});
    const auto lastOfMonth = dateFromParts(intAnnee, nextMonth, 0, regional);
    const auto days = partsOf(lastOfMonth).day;
    const auto firstOfMonth = dateFromParts(intAnnee, intMois, 1, regional);
    return narrow<I2>(workingDays(dayOf(firstOfMonth), days));
}

I2 Cls_Date::NBJoursOuvrables(Date DateDebut, Date DateFin) {
    return workingDaysBetween(DateDebut, DateFin);
}

}  // namespace tovera
