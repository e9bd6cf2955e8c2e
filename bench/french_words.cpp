#include "catalogue/catalogue.h"
#include "conversion/cls_conversion.h"
#include "peers/peers.h"

using namespace std::string_view_literals;
using namespace tovera;

namespace bench {
namespace {

Cls_Conversion euros() {
    Cls_Conversion conversion;
    conversion.setIntituleMonnaie(u"euro");
    conversion.setIntitulePetiteMonnaie(u"centime");
    return conversion;
}

Loop direct(R8 number, VariantBool amount) {
    return loopOf([=, conversion = euros()]() mutable {
        return conversion.ConvertirNombreEnLettre(opaque(number), amount);
    });
}

Loop byName(R8 number, VariantBool amount) {
    const auto conversion = createComponent("Cls_Conversion");
    writeMember(conversion, u"IntituleMonnaie", Bstr(u"euro"));
    writeMember(conversion, u"IntitulePetiteMonnaie", Bstr(u"centime"));
    return loopOf(
        [=] { return callMember(conversion, u"ConvertirNombreEnLettre"sv, opaque(number), amount); });
}

struct Case {
    const char* number;
    R8 value;
    double target;
};

const Group words([] {
    std::vector<Row> rows;
    for (const auto& [number, value, target] :
         {Case{"71", 71, 4}, Case{"1234567", 1234567, 15}, Case{"999999999999", 999999999999, 15}}) {
        const Peer icu{"ICU spell-out", loopIfInstalled(icuSpellOut, value)};
        const auto name = std::string("words of ") + number;
        rows.push_back({name + ", direct", direct(value, False), icu, target});
        rows.push_back({name + ", by name", byName(value, False), icu});
        rows.push_back({name + " as amount, direct", direct(value, True), icu, target});
        rows.push_back({name + " as amount, by name", byName(value, True), icu});
    }
    return rows;
});

}  // namespace
}  // namespace bench
