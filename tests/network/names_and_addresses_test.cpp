#include <gtest/gtest.h>

#include "frame/utf8.h"
#include "network/class_table.h"
#include "network/scripted_network.h"
#include "support/test_platform.h"

namespace tovera::testing {
namespace {

using Script = void (*)(ScriptedSockets&);
using Boxes = std::vector<const char16_t*>;

struct NameCase {
    const char* member;
    Script script;
    const char16_t* argument;
    const char16_t* result;
    Boxes boxes;
    Log calls;
};

const Script plain = [](ScriptedSockets&) {};
const Script noSession = [](ScriptedSockets& sockets) { sockets.startup = 10091; };
const Script noName = [](ScriptedSockets& sockets) { sockets.hostName.reset(); };
const Script noHost = [](ScriptedSockets& sockets) { sockets.host.reset(); };
const Script noClosing = [](ScriptedSockets& sockets) { sockets.cleanup = -1; };
template <I4 Version>
const Script version = [](ScriptedSockets& sockets) { sockets.facts.version = Version; };

const Log opened{"open 257"};
const Log openedAndClosed{"open 257", "close"};
const auto around(const char* call) {
    return Log{"open 257", call, "close"};
}

const std::vector<NameCase>& cases() {
    static const std::vector<NameCase> rows{
        // clang-format off
        {"GetIPAddress", plain, u"", u"10.0.255.7", {}, around("name <poste>")},
        {"GetIPAddress", noSession, u"", u"", {u"The 32-bit Windows Socket is not responding."}, opened},
        {"GetIPAddress", [](auto& s) { s.facts.mostSockets = 0; }, u"", u"",
         {u"This application requires a minimum of 1 supported sockets."}, openedAndClosed},
        {"GetIPAddress", [](auto& s) { s.facts.mostSockets = 1; }, u"", u"10.0.255.7", {}, around("name <poste>")},
        {"GetIPAddress", version<0x0001>, u"", u"",
         {u"Sockets version 1.0 is not supported by 32-bit Windows Sockets."}, openedAndClosed},
        {"GetIPAddress", version<0x1200>, u"", u"",
         {u"Sockets version 0.18 is not supported by 32-bit Windows Sockets."}, openedAndClosed},
        {"GetIPAddress", version<0x0002>, u"", u"10.0.255.7", {}, around("name <poste>")},
        {"GetIPAddress", version<0x0201>, u"", u"10.0.255.7", {}, around("name <poste>")},
        {"GetIPAddress", [](auto& s) { s.facts = {0x0001, 0}; s.cleanup = -1; }, u"", u"",
         {u"This application requires a minimum of 1 supported sockets.", u"Socket error occurred in Cleanup."},
         openedAndClosed},
        {"GetIPAddress", noName, u"", u"",
         {u"Windows Sockets error  10061 has occurred. Unable to successfully get Host Name."}, openedAndClosed},
        {"GetIPAddress", [](auto& s) { s.hostName.reset(); s.error = -5; }, u"", u"",
         {u"Windows Sockets error -5 has occurred. Unable to successfully get Host Name."}, openedAndClosed},
        {"GetIPAddress", noHost, u"", u"",
         {u"Windows Sockets are not responding. Unable to successfully get Host Name."}, around("name <poste>")},
        {"GetIPAddress", noClosing, u"", u"10.0.255.7", {u"Socket error occurred in Cleanup."},
         around("name <poste>")},
        {"GetIPAddress", [](auto& s) { s.hostName = "  a b"; s.host->addresses = {std::string(16, '\xFE')}; }, u"",
         u"254.254.254.254.254.254.254.254.254.254.254.254.254.254.254.254", {}, around("name <a b>")},
        {"GetIPHostName", plain, u"", u"poste", {}, openedAndClosed},
        {"GetIPHostName", [](auto& s) { s.hostName = std::string(" a b \0c", 7); }, u"", u" a b ", {}, openedAndClosed},
        {"GetIPHostName", noSession, u"", u"", {}, opened},
        {"GetIPHostName", version<0>, u"", u"poste", {}, openedAndClosed},
        {"GetIPHostName", noName, u"", u"",
         {u"Windows Sockets error  10061 has occurred.  Unable to successfully get Host Name."}, openedAndClosed},
        {"GetIPHostName", noClosing, u"", u"poste", {u"Socket error occurred in Cleanup."}, openedAndClosed},
        {"GetHostNameFromIP", plain, u"1.2.3.4", u"un.h\u00F4te", {}, around("address 67305985 4 2")},
        {"GetHostNameFromIP", noSession, u"1.2.3.4", u"", {u"Sockets failed to initialize."}, opened},
        {"GetHostNameFromIP", version<1>, u"1.2.3.4", u"un.h\u00F4te", {}, around("address 67305985 4 2")},
        {"GetHostNameFromIP", plain, u"255.255.255.255", u"", {u"String passed is an invalid IP."}, openedAndClosed},
        {"GetHostNameFromIP", noHost, u"1.2.3.4", u"", {u"Call to gethostbyaddr failed."},
         around("address 67305985 4 2")},
        {"GetHostNameFromIP", [](auto& s) { s.host->name.clear(); }, u"1.2.3.4", u"", {},
         around("address 67305985 4 2")},
        {"GetIPFromHostName", plain, u"h\u00F4te", u"10.0.255.7", {}, {"open 257", std::string("name <h\xF4te\0>", 12), "close"}},
        {"GetIPFromHostName", noSession, u"a", u"",
         {u"Windows Sockets for 32 bit Windows is not successfully responding."}, opened},
        {"GetIPFromHostName", noHost, u"", u"", {}, {"open 257", std::string("name <\0>", 8), "close"}},
        {"GetIPFromHostName", [](auto& s) { s.host->addresses = {"12345678"}; s.cleanup = 1; }, u"7.7.7.7",
         u"49.50.51.52", {u"Socket error occurred in Cleanup."},
         {"open 257", std::string("name <7.7.7.7\0>", 15), "close"}},
        // clang-format on
    };
    return rows;
}

TEST(NamesAndAddresses, ResultsBoxesAndSessions) {
    for (const auto& row : cases()) {
        SCOPED_TRACE(std::string(row.member) + ' ' + ::testing::PrintToString(row.calls) +
                     ::testing::PrintToString(row.boxes.size()));
        TestPlatform test;
        ScriptedSockets sockets;
        row.script(sockets);
        auto platform = test.platform.with(sockets);
        const auto object = makeObject<ComponentObjectOf<Cls_Internet>>(platform.services, platform);
        const auto name = fromUtf8(row.member);
        const auto result = name.find(u"From") == name.npos ? callMember(object, name)
                                                            : callMember(object, name, row.argument);
        EXPECT_EQ(result, Variant(row.result));
        std::vector<ShownBox> boxes;
        for (const auto* text : row.boxes) boxes.push_back({text, 0, u"ERROR"});
        EXPECT_EQ(test.services.boxes, boxes);
        EXPECT_EQ(sockets.log, row.calls);
    }
}

TEST(NamesAndAddresses, ASessionEndsWithAFailureToo) {
    TestPlatform test;
    ScriptedSockets sockets;
    sockets.raises = true;
    auto platform = test.platform.with(sockets);
    Cls_Internet object(platform);
    EXPECT_EQ(errorOf([&] { object.GetIPFromHostName(u"a"); }), 453);
    EXPECT_EQ(errorOf([&] { object.GetIPAddress(); }), 453);
    EXPECT_EQ(sockets.open, 0);
    EXPECT_TRUE(test.services.boxes.empty());
    Cls_Internet without(test.platform);
    for (const auto member : {&Cls_Internet::GetIPAddress, &Cls_Internet::GetIPHostName})
        EXPECT_EQ(errorOf([&] { (without.*member)(); }), 453);
}

}  // namespace
}  // namespace tovera::testing
