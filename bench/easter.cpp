#include "calendar/cls_date.h"
#include "catalogue/catalogue.h"
#include "peers/peers.h"

using namespace std::string_view_literals;
using namespace tovera;

namespace bench {
namespace {

// QuantLib's table begins in 1901.
constexpr I2 firstYear = 1901;
constexpr I2 lastYear = 2099;

I2 nextYear(I2 year) {
    return year == lastYear ? firstYear : static_cast<I2>(year + 1);
}

Loop direct() {
    return loopOf([year = firstYear]() mutable { return Cls_Date().Paques(year = nextYear(year)); });
}

Loop byName() {
    return loopOf([year = firstYear, calendar = createComponent("Cls_Date")]() mutable {
        return callMember(calendar, u"Paques"sv, year = nextYear(year));
    });
}

const Group easter([] {
    return std::vector<Row>{
        {"Easter of 1901 to 2099, direct",
         direct(),
         {"QuantLib table", loopIfInstalled(quantLibEaster, int{firstYear}, int{lastYear})}},
        {"Easter of 1901 to 2099, by name",
         byName(),
         {"Lua function by name", loopIfInstalled(luaEaster, int{firstYear}, int{lastYear})}},
    };
});

}  // namespace
}  // namespace bench
