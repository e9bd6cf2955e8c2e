#include <lua.hpp>
#include <memory>

#include "peers/peers.h"

namespace bench {
namespace {

using State = std::shared_ptr<lua_State>;

State newState() {
    return {luaL_newstate(), lua_close};
}

int chrono(lua_State* lua) {
    const auto departure = luaL_checkinteger(lua, 1);
    const auto arrival = luaL_checkinteger(lua, 2);
    lua_pushinteger(lua, departure > arrival ? 86400 - departure + arrival : arrival - departure);
    return 1;
}

/// Calls a global function with integers and gives its integer result.
template <class... Arguments>
lua_Integer call(lua_State* lua, const char* name, Arguments... arguments) {
    lua_getglobal(lua, name);
    (lua_pushinteger(lua, arguments), ...);
    requireSame(lua_pcall(lua, sizeof...(arguments), 1, 0) == LUA_OK, "a call in Lua failed");
    const auto result = lua_tointeger(lua, -1);
    lua_pop(lua, 1);
    return result;
}

Loop callByName(int departure, int arrival) {
    const auto lua = newState();
    lua_register(lua.get(), "Chrono", chrono);
    return loopOf([=] { return call(lua.get(), "Chrono", opaque(departure), arrival); });
}

/// Days from 22 March to Easter.
constexpr const char* easterRule = R"(
function Paques(year)
    if year == 1954 or year == 2049 then return 27 end
    if year == 1981 or year == 2076 then return 28 end
    local d = (19 * (year % 19) + 24) % 30
    local e = (2 * (year % 4) + 4 * (year % 7) + 6 * d + 5) % 7
    return d + e
end
)";

Loop easter(int firstYear, int lastYear) {
    const auto lua = newState();
    requireSame(luaL_dostring(lua.get(), easterRule) == LUA_OK, "the rule of Easter in Lua");
    return loopOf([=, year = firstYear]() mutable {
        year = year == lastYear ? firstYear : year + 1;
        return call(lua.get(), "Paques", year);
    });
}

const Installed installedCall(luaCallByName, callByName);
const Installed installedEaster(luaEaster, easter);

}  // namespace
}  // namespace bench
