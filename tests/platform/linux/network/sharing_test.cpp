#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "frame/utf8.h"
#include "network/cls_internet.h"
#include "platform/linux/child_process.h"
#include "platform/linux/network/samba_settings.h"
#include "platform/linux/temporary_folder.h"
#include "support/test_platform.h"

namespace tovera::testing {
namespace {

/// A variable of the environment that is put back at the end.
class Environment {
  public:
    Environment(const char* name, const std::string& value) : name_(name) {
        if (const char* const before = getenv(name)) before_ = before;
        setenv(name, value.c_str(), 1);
    }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;
    ~Environment() { before_ ? setenv(name_, before_->c_str(), 1) : unsetenv(name_); }

  private:
    const char* name_;
    std::optional<std::string> before_;
};

struct Shares : ::testing::Test {
    I4 shareFolder(const Bstr& path, const Bstr& name, const Bstr& remark = {}, const Bstr& server = {}) {
        return object.PartageRep(server, path, name, remark, u"secret");
    }
    I4 share(const Bstr& name, const Bstr& remark = {}) { return shareFolder(u"C:\\Dossier", name, remark); }

    const UserFolder user;
    const TemporaryFolder folder;
    Cls_Internet object;
};

/// With programs that stand in for the file server's, and that note how they are called.
struct RecordedShares : Shares {
    RecordedShares() {
        user.makeFile("dossier/f");
        user.makeFile("100 %/f");
        user.makeFile("a\nguest_ok=y/f");
        std::filesystem::create_directory(folder / "shares");
        settings("\tusershare max shares = 50\n");
        program("net", "printf '<%s>' \"$@\" >>" + folder / "calls" + "\nread line && echo \"$line\" >>" +
                           folder / "calls" + "\ncase $4 in ipc* | refus*) ;; *) : >\"" + folder / "shares" +
                           "/$4\" ;; esac");
        program("testparm", "cat " + folder / "settings");
    }
    void program(const char* name, const std::string& commands) {
        std::ofstream(folder / name) << "#!/bin/sh\n" << commands << '\n';
        chmod((folder / name).c_str(), 0755);
    }
    void settings(const std::string& lines) {
        std::ofstream(folder / "settings") << "[global]\n\tusershare path = " << folder / "shares" << '\n'
                                           << lines << "[Fixe]\n\tpath = /tmp\n";
    }
    Environment path{"PATH", folder.path() + ":/usr/bin:/bin"};
};

TEST_F(RecordedShares, GoOutWithoutAShell) {
    const Bstr name = u"-l'\u00E9t\u00E9 $(id) `id`";
    EXPECT_EQ(share(name, u"--help & \"x\""), 0);
    EXPECT_EQ(contentOf(folder / "calls"), "<usershare><add><--><-l'été $(id) `id`><" + user.onC("dossier") +
                                               "><--help & \"x\"><S-1-1-0:F><guest_ok=n>");
    EXPECT_EQ(share(u"-L'\u00C9T\u00C9 $(ID) `id`"), 2118);
}

TEST_F(RecordedShares, RefuseWhatWouldBeTakenOtherwise) {
    const std::u16string longName(81, u'n');
    const std::u16string longRemark(20'000, u'r');
    const std::tuple<Bstr, Bstr, I4> rows[] = {
        {u"", u"", 87},
        {u"a\nguest_ok=y", u"", 123},
        {u"a\rb", u"", 123},
        {std::u16string(u"a\0b", 3), u"", 123},
        {u"..", u"", 123},
        {u"../a", u"", 123},
        {u"a/b", u"", 123},
        {u"a\\b", u"", 123},
        {u"%S", u"", 123},
        {u"[a]", u"", 123},
        {u" ", u"", 123},
        {longName, u"", 123},
        {u"a", u"x\nguest_ok=y", 87},
        {u"a", u"x\rusershare_acl=S-1-1-0:F", 87},
        {u"a", u"x\u0085y", 87},
        {u"a", longRemark, 87},
        {u"IPC$", u"", 2118},
        {u"global", u"", 2118},
        {u"Homes", u"", 2118},
        {u"fixe", u"", 2118},
        {u"refus", u"", 5},
    };
    for (const auto& [name, remark, status] : rows)
        EXPECT_EQ(share(name, remark), status) << toUtf8(name) << ' ' << toUtf8(left(remark, 20));
    for (const auto* path :
         {u"", u"C:\\aucun", u"C:\\dossier\\f", u"C:\\a\nguest_ok=y", u"C:\\A_GUES~1", u"\\\\autre\\c"})
        EXPECT_EQ(shareFolder(path, u"a"), 2116) << toUtf8(path);
    EXPECT_EQ(shareFolder(u"C:\\100 %", u"a"), 5);
    EXPECT_EQ(shareFolder(u"C:\\dossier", u"a", {}, u"\\\\autre"), 50);
    settings("\tusershare max shares = 0\n");
    EXPECT_EQ(share(u"a"), 2114);
    settings("\tusershare max shares = 9\n\tusershare path = /aucun\n");
    EXPECT_EQ(share(u"a"), 2114);
    EXPECT_TRUE(contentOf(folder / "calls").find("><a>") == std::string::npos) << contentOf(folder / "calls");
}

TEST_F(RecordedShares, OfOneNameAtTheSameTime) {
    const auto one = [&](int) { return share(u"un") == 0 ? 1 : 0; };
    std::vector<pid_t> processes;
    for (int i = 0; i < 8; ++i) processes.push_back(start([&] { return one(i); }));
    int made = 0;
    for (const auto process : processes) made += resultOf(process);
    EXPECT_EQ(made, 1);
}

TEST_F(RecordedShares, NeedTheServersPrograms) {
    const Environment none("PATH", folder / "aucun");
    EXPECT_EQ(errorOf([&] { share(u"a"); }), 53);
}

/// With the real programs, and settings of the test's own.
struct RealShares : Shares {
    void SetUp() override {
        for (const auto* program : {"net", "testparm", "smbd", "smbclient"}) {
            if (system((std::string("command -v ") + program + " >/dev/null").c_str()) != 0)
                GTEST_SKIP() << program << " isn't installed";
        }
        if (geteuid() != 0) GTEST_SKIP() << "no root rights";
        std::ofstream settings(folder / "smb.conf");
        settings
            << "[global]\nusershare max shares = 9\nusershare path = " << folder / "shares"
            << "\nsmb ports = 44599\ninterfaces = lo\nbind interfaces only = yes\nmap to guest = bad user\n"
            << "log file = " << folder / "log" << '\n';
        for (const auto* name : {"lock directory", "state directory", "cache directory", "private dir",
                                 "pid directory", "ncalrpc dir"})
            settings << name << " = " << folder.path() << '\n';
        settings << "[fixe]\npath = /tmp\n";
        std::filesystem::create_directory(folder / "shares");
        chmod((folder / "shares").c_str(), 01770);
        chmod(folder.path().c_str(), 0755);
        user.makeFile("dossier/bonjour.txt", "bonjour\n");
    }
    Environment settings{"SMB_CONF_PATH", folder / "smb.conf"};
};

/// The file server in a process group of its own, which ends with it.
class RunningServer {
  public:
    explicit RunningServer(const std::string& settings)
        : process_(start([&] {
              setpgid(0, 0);
              const int nothing = open("/dev/null", O_RDWR);
              for (const int stream : {0, 1, 2}) dup2(nothing, stream);
              return execlp("smbd", "smbd", "-F", "--no-process-group", "-s", settings.c_str(), nullptr);
          })) {}
    RunningServer(const RunningServer&) = delete;
    RunningServer& operator=(const RunningServer&) = delete;
    ~RunningServer() {
        kill(-process_, SIGTERM);
        resultOf(process_);
    }

  private:
    pid_t process_;
};

std::string outputOf(const std::string& command) {
    std::string text;
    auto* const pipe = popen((command + " 2>&1 </dev/null").c_str(), "r");
    for (char piece[4096]; const auto count = fread(piece, 1, sizeof piece, pipe);) text.append(piece, count);
    pclose(pipe);
    return text;
}

TEST_F(RealShares, AreServed) {
    EXPECT_EQ(share(u"Partage", u"l'\u00E9t\u00E9"), 0);
    EXPECT_EQ(share(u"PARTAGE"), 2118);
    EXPECT_EQ(share(u"-tiret"), 0);
    EXPECT_EQ(share(u"FIXE"), 2118);
    EXPECT_EQ(outputOf("net usershare list"), "Partage\n-tiret\n");
    EXPECT_NE(outputOf("net usershare info Partage").find("guest_ok=n\n"), std::string::npos);
    const auto conf = folder / "smb.conf";
    ASSERT_EQ(outputOf("(printf 'x\\nx\\n' | smbpasswd -c " + conf + " -s -a root)"), "Added user root.\n");
    const RunningServer server(conf);
    const auto client = [](const std::string& rest) { return outputOf("smbclient -p 44599 " + rest); };
    std::string listed;
    for (int i = 0; i < 100 && listed.find("Partage") == listed.npos; ++i) {
        usleep(100'000);
        listed = client("-U root%x -L 127.0.0.1");
    }
    EXPECT_NE(listed.find("l'été"), std::string::npos) << listed;
    client("-U root%x //127.0.0.1/Partage -c 'get bonjour.txt " + folder / "lu" + "'");
    EXPECT_EQ(contentOf(folder / "lu"), "bonjour\n");
    const auto guest = client("-N //127.0.0.1/Partage -c ls");
    EXPECT_NE(guest.find("DENIED"), std::string::npos) << guest;
}

TEST(SambaSettings, AsTestparmPrintsThem) {
    const auto settings = sambaSettingsIn(
        "[global]\r\n\tusershare path =  /a b \n\tusershare max shares = 100\n\n[homes]\n"
        "\tcomment = [x]\n[\u00C9t\u00E9]\n[]\nusershare template share = t\n");
    EXPECT_EQ(settings.userShareFolder, "/a b");
    EXPECT_TRUE(settings.allowsUserShares);
    EXPECT_EQ(settings.sections, (std::set<std::u16string>{u"GLOBAL", u"HOMES", u"\u00C9T\u00C9"}));
    EXPECT_FALSE(sambaSettingsIn("").allowsUserShares);
}

}  // namespace
}  // namespace tovera::testing
