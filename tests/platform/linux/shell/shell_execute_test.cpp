#include <gtest/gtest.h>

#include "platform/linux/child_process.h"
#include "platform/linux/own_desktop.h"
#include "platform/linux/shell/opening.h"
#include "platform/opening.h"
#include "support/test_platform.h"

namespace tovera::testing {
namespace {

struct Opened : ::testing::Test {
    Opened() {
        for (const auto* name : {"web", "lettre", "prog"}) desktop.addProgram(name);
        std::ofstream(desktop / "bin/ici") << "#!/bin/sh\npwd >>\"$TOVERA_RECORD\"\n";
        std::filesystem::permissions(desktop / "bin/ici", std::filesystem::perms::owner_all);
        entry("web", "x-scheme-handler/http;x-scheme-handler/mailto;");
        entry("lettre", "message/rfc822;text/plain;");
        std::ofstream(desktop / "data/tovera/drive_c/temp.eml") << "From: <a>\r\n";
        std::ofstream(desktop / "data/tovera/drive_c/sans.inconnu") << std::string(9, '\0');
        std::filesystem::create_directory(desktop / "data/tovera/drive_c/un dossier");
    }
    void entry(const std::string& name, const std::string& types) {
        std::filesystem::create_directories(desktop / "data/applications");
        std::ofstream(desktop / ("data/applications/" + name + ".desktop"))
            << "[Desktop Entry]\nType=Application\nName=" << name << "\nExec=" << name
            << " %u\nMimeType=" << types << '\n';
        std::ofstream list(desktop / "config/mimeapps.list", std::ios::app);
        if (list.tellp() == 0) list << "[Default Applications]\n";
        for (std::size_t i = 0, end = 0; (end = types.find(';', i)) != types.npos; i = end + 1)
            list << types.substr(i, end - i) << '=' << name << ".desktop\n";
    }
    static I4 open(const std::string& file, const std::string& parameters = {},
                   const std::string& folder = {}, const char* verb = "Open") {
        return homeOpening().ShellExecuteA(0, {verb}, {file}, {parameters}, {folder}, 1);
    }
    /// By the program of this build, since the desktop's libraries keep what they have once read.
    static int openByProgram(const std::string& url) {
        const auto tests = std::filesystem::read_symlink("/proc/self/exe");
        const auto program = (tests.parent_path().parent_path() / "tovera").string();
        const auto step = "ExecuterURL(\"" + url + "\", 0)";
        return resultOf(
            start([&] { return execl(program.c_str(), "tovera", "Cls_Internet", step.c_str(), nullptr); }));
    }

    OwnDesktop desktop;
};

TEST_F(Opened, ByTheDesktopsPrograms) {
    if (!hasDesktopLibraries()) GTEST_SKIP() << "GIO isn't installed";
    for (const auto* nothing : {"ftp://h/", "C:\\aucun.eml", "C:\\sans.inconnu", "aucun-programme", ""})
        EXPECT_EQ(openByProgram(nothing), 0) << nothing;
    const std::pair<const char*, std::string> rows[] = {
        {"http://h/a?b=$(touch x)&c='`id`'", "[web][http://h/a?b=$(touch x)&c='`id`']\n"},
        {"mailto:a@b?subject=--x", "[web][mailto:a@b?subject=--x]\n"},
        {"C:\\TEMP.EML", "[lettre][" + desktop / "data/tovera/drive_c/temp.eml" + "]\n"},
        {"file:///C:/temp.eml", "[lettre][" + desktop / "data/tovera/drive_c/temp.eml" + "]\n"}};
    for (const auto& [url, line] : rows) {
        EXPECT_EQ(openByProgram(url), 0) << url;
        EXPECT_EQ(desktop.record(), line);
    }
}

TEST_F(Opened, ProgramsByTheirNameInAFolder) {
    EXPECT_EQ(open("prog", "a \"b c\" $HOME ;"), 33);
    EXPECT_EQ(desktop.record(), "[prog][a][b c][$HOME][;]\n");
    EXPECT_EQ(open("ici", "", "C:\\un dossier"), 33);
    EXPECT_EQ(desktop.record(), desktop / "data/tovera/drive_c/un dossier" + "\n");
    for (const auto* missing : {"C:\\aucun.eml", "aucun-programme", ""})
        EXPECT_EQ(open(missing), 2) << missing;
    EXPECT_EQ(open("http://h/", "", "", "print"), 31);
}

}  // namespace
}  // namespace tovera::testing
