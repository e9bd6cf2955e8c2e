#include <fcntl.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>

#include "network/cls_internet.h"
#include "platform/linux/child_process.h"
#include "platform/linux/temporary_folder.h"
#include "support/test_platform.h"

namespace tovera::testing {
namespace {

/// A machine without a network, but with hosts and resolvers of its own, in a process of its own.
class OwnMachine {
  public:
    OwnMachine() {
        isThere_ =
            unshare(CLONE_NEWNET | CLONE_NEWNS | CLONE_NEWUTS) == 0 &&
            mount("none", "/", "", MS_REC | MS_PRIVATE, "") == 0 &&
            mount("sysfs", "/sys", "sysfs", 0, "") == 0 && sethostname("poste", 5) == 0 &&
            has("/etc/hosts", "127.0.0.1 localhost\n127.0.1.1 poste\n10.1.2.3 autre.exemple autre\n") &&
            has("/etc/resolv.conf", "nameserver 127.0.0.1\n") && run("ip link set lo up");
    }
    bool isThere() const { return isThere_; }
    bool run(const std::string& commands) const { return system((commands + " 2>/dev/null").c_str()) == 0; }

  private:
    bool has(const char* path, const std::string& text) const {
        const auto own = folder_ / std::to_string(text.size());
        std::ofstream(own) << text;
        return mount(own.c_str(), path, "", MS_BIND, "") == 0;
    }
    TemporaryFolder folder_;
    bool isThere_ = false;
};

constexpr int leftOut = 99;

/// The number of a step that went wrong, 0 for none, or that there was no such machine.
template <class Steps>
int onOwnMachine(Steps&& steps) {
    return resultOf(start([&] {
        const OwnMachine machine;
        if (!machine.isThere()) return leftOut;
        TestPlatform test;
        auto platform = home().with(test.services);
        Cls_Internet object(platform);
        return steps(machine, object);
    }));
}

/// What is expected one after the other; the number of the first that isn't met.
int firstUnmet(std::initializer_list<std::pair<Bstr, const char16_t*>> all) {
    int number = 1;
    for (const auto& [found, expected] : all) {
        if (found != Bstr(expected)) {
            std::cerr << ::testing::PrintToString(found) << " at " << number << std::endl;
            return number;
        }
        ++number;
    }
    return 0;
}

TEST(NamesOnOwnMachine, WithoutANetwork) {
    const int unmet = onOwnMachine([](const OwnMachine&, Cls_Internet& object) {
        Bstr first = u"avant";
        StringArray servers;
        const I4 count = object.GetDNSServers(first, servers);
        return firstUnmet({{object.GetIPHostName(), u"poste"},
                           {object.GetIPAddress(), u"127.0.0.1"},
                           {object.GetMACAddress(), u"00 00 00 00 00 00"},
                           {object.GetIPFromHostName(u"autre"), u"10.1.2.3"},
                           {object.GetIPFromHostName(u"10.9.9.9"), u"10.9.9.9"},
                           {object.GetIPFromHostName(u"inconnu"), u""},
                           {object.GetIPFromHostName(u"un nom"), u""},
                           {object.GetIPFromHostName(std::u16string(10'000, u'x')), u""},
                           {object.GetHostNameFromIP(u"10.1.2.3"), u"autre.exemple"},
                           {object.GetHostNameFromIP(u"10.9.9.9"), u""},
                           {first, u"127.0.0.1"},
                           {servers.at(count - 1), u"127.0.0.1"}});
    });
    if (unmet == leftOut) GTEST_SKIP() << "no network of its own (root rights, ip)";
    EXPECT_EQ(unmet, 0);
}

TEST(NamesOnOwnMachine, WithTwoNetworks) {
    const int unmet = onOwnMachine([](const OwnMachine& machine, Cls_Internet& object) {
        const bool isSetUp = machine.run(
            "ip link add v0 type veth peer name v1 && "
            "ip link set v0 address 02:00:00:00:00:0a && "
            "ip addr add 10.9.8.7/24 dev v0 && ip addr add 10.7.7.7/24 dev v1 && "
            "ip link set v1 address 02:00:00:00:00:0b && "
            "ip link set v0 up && ip link set v1 up && ip route add default via 10.7.7.1");
        if (!isSetUp) return leftOut;
        return firstUnmet({{object.GetIPAddress(), u"10.7.7.7"},
                           {object.GetMACAddress(), u"02 00 00 00 00 0B"},
                           {object.GetIPFromHostName(u"POSTE"), u"10.7.7.7"},
                           {object.GetIPFromHostName(u""), u"10.7.7.7"},
                           {object.GetHostNameFromIP(u"10.9.8.7"), u"poste"},
                           {object.GetHostNameFromIP(u"127.0.1.1"), u"poste"}});
    });
    if (unmet == leftOut) GTEST_SKIP() << "no network of its own (root rights, ip)";
    EXPECT_EQ(unmet, 0);
}

TEST(UserOfThisProcess, ByItsEntryElseByItsSession) {
    Cls_Internet object;
    EXPECT_TRUE(succeedsForOthers([&] { return object.GetUserName() == Bstr(u"nobody") ? 0 : 1; }) ||
                geteuid() != 0);
    if (geteuid() != 0) GTEST_SKIP() << "no root rights";
    const auto named = [&](const char* session, const char16_t* name) {
        return resultOf(start([&] {
                   session ? setenv("USER", session, 1) : unsetenv("USER");
                   return setuid(54321) == 0 && object.GetUserName() == Bstr(name) ? 0 : 1;
               })) == 0;
    };
    EXPECT_TRUE(named("émile", u"\u00E9mile"));
    EXPECT_TRUE(named(nullptr, u""));
}

TEST(DraftFile, IsNeverWrittenThroughALink) {
    const TemporaryFolder folder;
    TestPlatform test;
    test.services.componentFacts.folder = Bstr(std::u16string(folder.path().begin(), folder.path().end()));
    auto platform = home().with(test.services);
    Cls_Internet object(platform);
    const auto draft = [&] {
        Result<VariantBool> opened;
        return errorOf([&] { object.EcrireEmail_OutlookExpress(u"a", u"", u"", u"", u"", 3, u"", opened); });
    };
    const auto path = folder / "temp.eml";
    EXPECT_EQ(draft(), 0);
    EXPECT_EQ(static_cast<int>(std::filesystem::status(path).permissions()), 0600);
    std::filesystem::remove(path);
    std::ofstream(folder / "autre") << "autre";
    for (const bool isSymbolic : {true, false}) {
        isSymbolic ? std::filesystem::create_symlink("autre", path)
                   : std::filesystem::create_hard_link(folder / "autre", path);
        EXPECT_EQ(draft(), 75);
        std::filesystem::remove(path);
    }
    EXPECT_EQ(contentOf(folder / "autre"), "autre");
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    EXPECT_EQ(draft(), 75);
}

}  // namespace
}  // namespace tovera::testing
