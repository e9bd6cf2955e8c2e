#pragma once

#include <algorithm>
#include <set>
#include <vector>

#include "frame/utf8.h"
#include "support/test_platform.h"

namespace tovera::testing {

/// A call by name on a fresh object: the result that it gives, or the error that it raises.
struct NamedCall {
    std::u16string_view member;
    std::vector<Variant> arguments;
    Variant expected;
    I4 error = 0;
};

template <class... Arguments>
NamedCall gives(Variant expected, std::u16string_view member, Arguments... arguments) {
    return {member, {Variant(arguments)...}, std::move(expected)};
}
template <class... Arguments>
NamedCall fails(I4 error, std::u16string_view member, Arguments... arguments) {
    return {member, {Variant(arguments)...}, {}, error};
}

template <class C>
ObjectRef objectOn(Platform& platform) {
    return makeObject<ComponentObjectOf<C>>(platform.services, platform);
}

inline void expectCall(const ObjectRef& object, NamedCall call) {
    SCOPED_TRACE(toUtf8(call.member) + ::testing::PrintToString(call.arguments));
    Variant result;
    const auto read = CallKind::Method | CallKind::Read;
    EXPECT_EQ(errorOf([&] { result = invokeMember(object, call.member, read, call.arguments); }), call.error);
    if (call.error == 0) {
        EXPECT_EQ(result, call.expected);
    }
}

/// Makes the calls, each on an object of its own, and expects that they leave out no method of the class.
template <class C>
void expectCallsOfEveryMethod(Platform& platform, const std::vector<NamedCall>& calls) {
    std::set<std::string> called;
    for (const auto& call : calls) {
        expectCall(objectOn<C>(platform), call);
        called.insert(toUtf8(call.member));
    }
    for (const auto& member : describe<C>().members) {
        if (member.kind != CallKind::Method) continue;
        EXPECT_TRUE(called.contains(std::string(member.name))) << member.name;
    }
}

}  // namespace tovera::testing
