#include <gtest/gtest.h>

#include "network/class_table.h"
#include "network/scripted_network.h"
#include "support/named_calls.h"
#include "support/user_home.h"

namespace tovera::testing {
namespace {

struct Internet : UserHome {
    Internet() { services.componentFacts.folder = u"C:"; }
    ScriptedSockets sockets;
    ScriptedAdapters adapters;
    ScriptedSharing sharing;
    ScriptedDownload download;
    ScriptedUserName user;
    ScriptedOpening opening;
    Platform ours =
        platform.with(sockets).with(adapters).with(sharing).with(download).with(user).with(opening);
    Cls_Internet object{ours};
};

TEST_F(Internet, HardwareAddress) {
    EXPECT_EQ(object.GetMACAddress(), u"0A 00 FF 1B 0F F0");
    EXPECT_EQ(adapters.log,
              (Log{"50 0 <" + std::string(16, '\0') + "> 0 0", "51 0 <*               > 680 680"}));
    EXPECT_EQ(adapters.freed, 1);
    adapters.address.clear();
    adapters.memory.clear();
    EXPECT_EQ(object.GetMACAddress(), u"00 00 00 00 00 00");
    adapters.raises = true;
    EXPECT_EQ(errorOf([&] { object.GetMACAddress(); }), 453);
    EXPECT_EQ(adapters.freed, 3);
    adapters.hasMemory = false;
    adapters.memory.clear();
    EXPECT_EQ(object.GetMACAddress(), u"");
    EXPECT_EQ(adapters.freed, 3);
}

TEST_F(Internet, DnsServers) {
    struct Row {
        std::vector<std::string> servers;
        I4 size, status, count;
        Bstr current;
        StringArray all;
    };
    const std::string longest = "255.255.255.255";
    const auto nothing = StringArray::withBounds(0, 0);
    const Row rows[] = {
        {{"10.0.0.1"}, 584, 0, 1, u"10.0.0.1", StringArray::of({u"10.0.0.1"})},
        {{"10.0.0.1", longest, "1.1.1.1"},
         664,
         0,
         3,
         u"10.0.0.1",
         StringArray::of({u"10.0.0.1", u"255.255.255.255", u"1.1.1.1"})},
        {{std::string("8.8.8.8\0junk", 12)}, 584, 0, 1, u"8.8.8.8", StringArray::of({u"8.8.8.8"})},
        {{""}, 584, 0, 1, u"", StringArray::of({u""})},
        {{}, 0, 0, 0, u"avant", nothing},
        {{"10.0.0.1"}, 584, 232, 0, u"avant", nothing},
    };
    for (const auto& row : rows) {
        adapters.servers = row.servers;
        adapters.size = row.size;
        adapters.status = row.status;
        Bstr current = u"avant";
        auto all = StringArray::withBounds(5, 9);
        EXPECT_EQ(object.GetDNSServers(current, all), row.count);
        EXPECT_EQ(current, row.current);
        EXPECT_EQ(all, row.all);
    }
}

TEST_F(Internet, DraftMail) {
    const auto draft = [&](Bstr to, Bstr cc, Bstr bcc, I2 priority, Bstr text) {
        Result<VariantBool> opened;
        object.EcrireEmail_OutlookExpress(u"\u00E9mile@x", to, cc, bcc, u"L'\u00E9t\u00E9 \u0416", priority,
                                          text, opened);
        return opened.value;
    };
    EXPECT_EQ(draft(u"a", u"b", u"c", 3, u"un\r\ndeux"), True);
    EXPECT_EQ(files.textOf("temp.eml"),
              "From: <\xE9mile@x>\r\nTo: \"a\"\r\nCC: \"b\"\r\nBCC: \"c\"\r\nSubject: L'\xE9t\xE9 J\r\n"
              "X-Priority: 3 \r\nX-Unsent: 1\r\n\r\nun\r\ndeux\r\n");
    EXPECT_EQ(draft(u"a\"b", {}, u"", -1, {}), True);
    EXPECT_EQ(files.textOf("temp.eml"),
              "From: <\xE9mile@x>\r\nTo: \"a\"b\"\r\nSubject: L'\xE9t\xE9 J\r\n"
              "X-Priority:-1 \r\nX-Unsent: 1\r\n\r\n\r\n");
    const std::string open = "65552 <Open> <C:\\temp.eml> null null 1";
    EXPECT_EQ(opening.log, (Log{open, open}));
    EXPECT_EQ(draft({}, u"b", u"c", 0, u"x"), False);
    EXPECT_EQ(files.textOf("temp.eml"), "From: <\xE9mile@x>\r\n");
    EXPECT_EQ(opening.log.size(), 2U);
    services.componentFacts.folder = u"C:\\aucun";
    EXPECT_EQ(errorOf([&] { draft(u"a", {}, {}, 0, {}); }), 76);
    EXPECT_TRUE(services.boxes.empty());
}

TEST_F(Internet, ADraftThatIsWrittenStaysWritten) {
    opening.raises = true;
    const auto mail = objectOn<Cls_Internet>(ours);
    Variant result;
    ErrorRecord failure;
    std::vector<Variant> arguments{u"a", u"b", u"", u"", u"", I2{0}, u""};
    const auto member = *mail->memberNamed(u"EcrireEmail_OutlookExpress");
    EXPECT_EQ(mail->invoke(member, CallKind::Method, arguments, result, failure), codeOf(53));
    EXPECT_EQ(result, Variant(True));
}

TEST_F(Internet, ShareAsItGoesOut) {
    sharing.status = 2118;
    EXPECT_EQ(object.PartageRep(u"\\\\poste", u"C:\\\u3042", u"nom", {}, u""), 2118);
    EXPECT_EQ(sharing.machine, u"\\\\poste");
    const auto& share = sharing.asked;
    EXPECT_TRUE(share.shi2_netname == u"nom" && share.shi2_path == u"C:\\\u3042");
    EXPECT_TRUE(share.shi2_remark.isNull() && share.shi2_passwd.isNull());
    EXPECT_TRUE(share.shi2_type == 0 && share.shi2_permissions == 127 && share.shi2_max_uses == -1 &&
                share.shi2_current_uses == 0);
    object.PartageRep({}, u"", u"", u"remarque", u"secret");
    EXPECT_TRUE(share.shi2_remark == u"remarque" && share.shi2_passwd == u"secret");
    EXPECT_FALSE(share.shi2_netname.isNull());
}

TEST_F(Internet, DownloadUserAndUrl) {
    EXPECT_EQ(object.TelechargeFichier(u"http://h/\u00E9", u"C:\\f"), True);
    download.status = -2146697211;
    EXPECT_EQ(object.TelechargeFichier({}, u""), False);
    EXPECT_EQ(download.log, (Log{"<http://h/\xE9> <C:\\f> 0", "null <> 0"}));
    EXPECT_EQ(object.GetUserName(), u"");
    user.name = std::string(254, 'n');
    EXPECT_EQ(object.GetUserName().length(), 254U);
    user.name = std::string("\xE9mile\0reste", 11);
    EXPECT_EQ(object.GetUserName(), u"\u00E9mile");
    Bstr url = u"http://h/\u0416";
    object.ExecuterURL(url, 12);
    EXPECT_EQ(url, u"http://h/J");
    EXPECT_EQ(opening.log, (Log{"12 <Open> <http://h/J> <> <C:> 1"}));
    EXPECT_TRUE(services.boxes.empty());
}

TEST_F(Internet, CallsEveryMemberByName) {
    Bstr current;
    StringArray servers;
    adapters.servers = {"1.2.3.4"};
    user.name = "moi";
    EXPECT_CALL(services, createObject).WillOnce([](auto) -> ObjectRef {
        raise(ErrorNumber::CannotCreateObject);
    });
    expectCallsOfEveryMethod<Cls_Internet>(
        ours, {gives(u"10.0.255.7", u"GetIPAddress"), gives(u"poste", u"GetIPHostName"),
               gives(True, u"TelechargeFichier", u"u", u"f"), gives(u"0A 00 FF 1B 0F F0", u"GetMACAddress"),
               gives(u"un.h\u00F4te", u"GetHostNameFromIP", u"1.2.3.4"),
               gives(u"10.0.255.7", u"GetIPFromHostName", u"a"),
               gives(Empty(), u"EcrireEmail_LotusNotes", u"a", u"b", u"c", u"", True),
               gives(False, u"EcrireEmail_OutlookExpress", u"a", u"", u"", u"", u"", I4{3}, u""),
               gives(I4{1}, u"GetDNSServers", Reference(&current), Reference(&servers)),
               gives(u"moi", u"GetUserName"), gives(Empty(), u"ExecuterURL", u"u", I4{0}),
               gives(I4{0}, u"PartageRep", u"", u"", u"", u"", u"")});
    EXPECT_EQ(current, servers.at(0));
    EXPECT_EQ(
        errorOf([&] { callMember(objectOn<Cls_Internet>(ours), u"GetDNSServers", Reference(&current)); }),
        449);
}

}  // namespace
}  // namespace tovera::testing
