#include <unordered_map>

#include "catalogue/catalogue.h"
#include "peers/peers.h"

using namespace std::string_view_literals;
using namespace tovera;

namespace bench {
namespace {

constexpr I4 departure = 82800;
constexpr I4 arrival = 3600;

Loop byName() {
    return loopOf([clock = createComponent("Cls_Date")] {
        return callMember(clock, u"Chrono"sv, opaque(departure), arrival);
    });
}

/// The least that a call by name can do: a name in a hash table, two `VARIANT`s, and no checks at all.
Loop bareHash() {
    using Function = I4 (*)(const Variant&, const Variant&);
    const std::unordered_map<std::u16string_view, Function> functions{
        {u"Chrono",
         [](const Variant& from, const Variant& to) { return 86400 - *from.as<I4>() + *to.as<I4>(); }}};
    return loopOf([=] {
        const Variant from(opaque(departure));
        const Variant to(arrival);
        return functions.find(opaque(std::u16string_view(u"Chrono")))->second(from, to);
    });
}

const Group calls([] {
    const auto ours = byName();
    return std::vector<Row>{
        {"call by name, two integers",
         ours,
         {"Qt invokeMethod", loopIfInstalled(qtCallByName, int{departure}, int{arrival})},
         4},
        {"call by name, two integers",
         ours,
         {"Lua C function", loopIfInstalled(luaCallByName, int{departure}, int{arrival})},
         1},
        {"call by name, two integers", ours, {"bare hash", bareHash()}},
    };
});

}  // namespace
}  // namespace bench
