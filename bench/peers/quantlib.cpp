#include <ql/time/calendars/weekendsonly.hpp>

#include "peers/peers.h"

namespace bench {
namespace {

/// QuantLib counts days as Automation does, but from 1901 on only.
QuantLib::Date dateOf(double days) {
    return QuantLib::Date(static_cast<QuantLib::Date::serial_type>(days));
}

Loop businessDays(double start, double end) {
    const QuantLib::WeekendsOnly calendar;
    return loopOf(
        [=] { return calendar.businessDaysBetween(dateOf(opaque(start)), dateOf(end), true, true); });
}

/// The table is for classes that describe a western market.
class WesternCalendar : public QuantLib::Calendar {
  public:
    static QuantLib::Date easterSunday(QuantLib::Year year) {
        return QuantLib::Date(1, QuantLib::January, year) + (Rules::easterMonday(year) - 2);
    }

  private:
    struct Rules : WesternImpl {
        using WesternImpl::easterMonday;
    };
};

Loop easter(int firstYear, int lastYear) {
    return loopOf([=, year = firstYear]() mutable {
        year = year == lastYear ? firstYear : year + 1;
        return WesternCalendar::easterSunday(year);
    });
}

const Installed installedBusinessDays(quantLibBusinessDays, businessDays);
const Installed installedEaster(quantLibEaster, easter);

}  // namespace
}  // namespace bench
