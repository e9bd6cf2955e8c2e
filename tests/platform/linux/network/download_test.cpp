#include "platform/linux/network/download.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <random>
#include <sys/file.h>

#include "frame/utf8.h"
#include "platform/linux/child_process.h"
#include "platform/linux/files/file_descriptor.h"
#include "platform/linux/files/file_url.h"
#include "platform/linux/libraries/shared_library.h"
#include "platform/linux/network/loopback_server.h"
#include "platform/linux/temporary_folder.h"
#include "platform/linux/text/code_pages.h"
#include "support/test_platform.h"

namespace tovera::testing {
namespace {

constexpr std::size_t bigSize = 3'000'000;

std::map<std::string, Reply> replies() {
    const std::string zipped(
        "\x1f\x8b\x08\x00\x00\x00\x00\x00\x00\x03\x4b\xca\xcf\xcb\xca\x2f\x2d\x02\x00\xc8\xf0\xb6"
        "\xa5\x07\x00\x00\x00",
        27);
    const std::string chunked = "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n";
    const std::string big = "HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(bigSize) + "\r\n\r\n";
    return {
        {"/ok", reply("200 OK", "bonjour")},
        {"/a%20b%C3%A9", reply("200 OK", "bonjour")},
        {"/a%20b%c3%a9", reply("200 OK", "bonjour")},
        {"/empty", reply("200 OK", "")},
        {"/204", reply("204 No Content", "")},
        {"/nolength", {"HTTP/1.0 200 OK\r\n\r\nbonjour"}},
        {"/gzip", reply("200 OK", zipped, "Content-Encoding: gzip\r\n")},
        {"/chunks", {chunked + "7\r\nbonjour\r\n0\r\n\r\n"}},
        {"/chunks-cut", {chunked + "70\r\nbonjour"}},
        {"/cut", {"HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nbonjour"}},
        {"/401", reply("401 Unauthorized", "page")},
        {"/403", reply("403 Forbidden", "page")},
        {"/500", reply("500 Internal Server Error", "page")},
        {"/redirect", redirection("/ok")},
        {"/loop", redirection("/loop")},
        {"/to-file", redirection("file:///etc/hostname")},
        {"/to-dict", redirection("dict://127.0.0.1:1/d:x")},
        {"/stall", {"HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\n", 0, true}},
        {"/silence", {"", 0, true}},
        {"/big", {big, bigSize}},
        {"/slow", {big, bigSize, false, 40}},
    };
}

/// Downloads into a folder of the test's own, from a server of its own. No proxy stands between.
struct Downloads : ::testing::Test {
    Downloads() {
        for (const auto* variable : {"http_proxy", "https_proxy", "all_proxy", "HTTPS_PROXY", "ALL_PROXY"})
            unsetenv(variable);
    }
    void SetUp() override {
#if !__has_include(<curl/curl.h>)
        GTEST_SKIP() << "built without libcurl";
#endif
        if (!SharedLibrary("libcurl.so.4", "libcurl-gnutls.so.4").isPresent())
            GTEST_SKIP() << "libcurl isn't installed";
    }

    bool fetch(const std::string& url, const std::string& target) {
        return port->URLDownloadToFileA(0, {url}, {target}, 0, 0) == 0;
    }
    bool fetchPath(const std::string& path) {
        return fetch(server.url(path), folder / "f");
    }
    void write(const std::string& text, const char* name = "f") {
        std::ofstream(folder / name, std::ios::binary) << text;
    }
    std::set<std::string> names() const {
        std::set<std::string> all;
        for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
            all.insert(entry.path().filename());
        return all;
    }

    /// What a process that was killed had begun in the folder comes to its end under the folder's lock.
    void waitForChanges() const {
        const FileDescriptor lock(open(folder.path().c_str(), O_RDONLY | O_DIRECTORY));
        ASSERT_EQ(flock(lock.get(), LOCK_EX), 0);
    }

    TemporaryFolder folder;
    LoopbackServer server{replies()};
    std::unique_ptr<Download> port = makeDownload({2, 1});
};

TEST_F(Downloads, TakeTheWholeFileOrLeaveTheOldOne) {
    const std::pair<const char*, const char*> whole[] = {
        {"/ok", "bonjour"},       {"/a b\xE9", "bonjour"}, {"/empty", ""},         {"/204", ""},
        {"/nolength", "bonjour"}, {"/gzip", "bonjour"},    {"/chunks", "bonjour"}, {"/redirect", "bonjour"}};
    for (const auto& [path, content] : whole) {
        write("l'ancien");
        EXPECT_TRUE(fetchPath(path)) << path;
        EXPECT_EQ(contentOf(folder / "f"), content) << path;
    }
    for (const auto* path : {"/404", "/401", "/403", "/500", "/cut", "/chunks-cut", "/loop", "/to-file",
                             "/to-dict", "/stall", "/silence"}) {
        write("l'ancien");
        EXPECT_FALSE(fetchPath(path)) << path;
        EXPECT_EQ(contentOf(folder / "f"), "l'ancien") << path;
    }
    EXPECT_EQ(names(), std::set<std::string>{"f"});
    EXPECT_EQ(std::ranges::count_if(server.requests(), [](auto& r) { return r.starts_with("GET /loop "); }),
              21);
}

TEST_F(Downloads, RefuseOtherUrlsAndTargets) {
    write("l'ancien");
    for (const auto* url :
         {"", "gopher://127.0.0.1:1/x", "dict://127.0.0.1:1/d:x", "javascript:alert(1)", "ldap://h/x",
          "http://", "http://127.0.0.1:1/", "http://aucun.invalid/", "http://[/", "http://h:99999/",
          "file://ailleurs/etc/hostname", "file:///dev/zero", "file:///", "/aucun", "$(touch x)"}) {
        EXPECT_FALSE(fetch(url, folder / "f")) << url;
    }
    EXPECT_EQ(contentOf(folder / "f"), "l'ancien");
    ASSERT_EQ(mkfifo((folder / "tube").c_str(), 0600), 0);
    std::filesystem::create_symlink(folder / "boucle", folder / "boucle");
    for (const auto& target : {folder.path(), folder / "", folder / "aucun/f", folder / "tube",
                               folder / "boucle", std::string("/dev/null"), std::string()}) {
        EXPECT_FALSE(fetch(server.url("/ok"), target)) << target;
    }
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
    EXPECT_TRUE(server.requests().empty()) << "a target that can't be is told before anything is asked for";
    EXPECT_EQ(names(), (std::set<std::string>{"f", "tube", "boucle"}));
}

TEST_F(Downloads, KeepLinksAndPermissions) {
    write("l'ancien", "vrai");
    chmod((folder / "vrai").c_str(), 0640);
    std::filesystem::create_symlink("vrai", folder / "lien");
    EXPECT_TRUE(fetch(server.url("/ok"), folder / "lien"));
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "lien"));
    EXPECT_EQ(contentOf(folder / "vrai"), "bonjour");
    const auto modeOf = [&](const char* name) {
        return static_cast<int>(std::filesystem::status(folder / name).permissions());
    };
    EXPECT_EQ(modeOf("vrai"), 0640);
    const auto mask = umask(027);
    EXPECT_TRUE(fetch(server.url("/ok"), folder / "neuf"));
    umask(mask);
    EXPECT_EQ(modeOf("neuf"), 0640);
    chmod(folder.path().c_str(), 0777);
    chmod((folder / "vrai").c_str(), 0444);
    EXPECT_TRUE(!canForkBesideThreads ||
                succeedsForOthers([&] { return fetch(server.url("/empty"), folder / "vrai") ? 1 : 0; }));
    EXPECT_EQ(contentOf(folder / "vrai"), "bonjour");
}

TEST_F(Downloads, OfFilesOfThisMachine) {
    const UserFolder user;
    user.makeFile("un été.txt", "local");
    const auto path = user.onC("un été.txt");
    const auto ansi = [](std::string text) { return toAnsi1252(fromUtf8(text)); };
    for (const auto& url :
         {std::string("file:///C:/un%20%C3%A9t%C3%A9.txt"), std::string("FILE:///c|/un%20%E9t%E9.txt"),
          std::string("file://localhost/C:/UN%20%C3%A9T%C3%89.TXT"), ansi("file:C:\\un été.txt"),
          ansi("C:\\un été.txt"), ansi("file://" + path), ansi(path)}) {
        write("l'ancien");
        EXPECT_TRUE(fetch(url, folder / "f")) << url;
        EXPECT_EQ(contentOf(folder / "f"), "local") << url;
    }
    EXPECT_TRUE(fetch("C:\\un \xE9t\xE9.txt", "C:\\copie.txt"));
    EXPECT_EQ(user.textOf("copie.txt"), "local");
}

TEST_F(Downloads, OnAFullDisk) {
    if (!canForkBesideThreads) GTEST_SKIP() << "not under the address sanitizer";
    write("l'ancien");
    EXPECT_TRUE(succeedsOnFullDisk(100'000, [&](auto) { return fetchPath("/big") ? 1 : 0; }));
    EXPECT_EQ(contentOf(folder / "f"), "l'ancien");
    EXPECT_EQ(names(), std::set<std::string>{"f"});
}

TEST_F(Downloads, KilledAtAnyMoment) {
    if (!canForkBesideThreads) GTEST_SKIP() << "not under the address sanitizer";
    write("l'ancien");
    std::mt19937 random(20260101);
    std::uniform_int_distribution<unsigned> moments(0, 12'000);
    int whole = 0;
    for (int round = 0; round < 100; ++round) {
        const auto process = start([&] { return fetchPath("/big") ? 0 : 1; });
        usleep(moments(random));
        kill(process, SIGKILL);
        resultOf(process);
        waitForChanges();
        const auto size = std::filesystem::file_size(folder / "f");
        ASSERT_TRUE(size == 8 || size == bigSize) << size;
        ASSERT_EQ(names(), std::set<std::string>{"f"});
        whole += size == bigSize ? 1 : 0;
        write("l'ancien");
    }
    EXPECT_LT(whole, 100) << "none was killed in time";
}

TEST_F(Downloads, EightAtOnceOntoOneName) {
    if (!canForkBesideThreads) GTEST_SKIP() << "not under the address sanitizer";
    EXPECT_TRUE(succeedsInEach(8, [&](int) { return fetchPath("/big") ? 0 : 1; }));
    EXPECT_EQ(std::filesystem::file_size(folder / "f"), bigSize);
    EXPECT_EQ(names(), std::set<std::string>{"f"});
}

TEST(UrlsOfFiles, LeadToPaths) {
    const auto web = std::optional<std::u16string>();
    const std::pair<const char16_t*, std::optional<std::u16string>> rows[] = {{u"http://h/a", web},
                                                                              {u"x-y+z.1:a", web},
                                                                              {u"C:\\a%20b", u"C:\\a%20b"},
                                                                              {u"a:b", u"a:b"},
                                                                              {u"1a:b", u"1a:b"},
                                                                              {u"", u""},
                                                                              {u"/a b", u"/a b"},
                                                                              {u"\\\\h\\p", u"\\\\h\\p"},
                                                                              {u"file:a", u"a"},
                                                                              {u"file:/a", u"/a"},
                                                                              {u"file:///a", u"/a"},
                                                                              {u"file://C:/a", u"C:/a"},
                                                                              {u"file:///C|/a", u"C:/a"},
                                                                              {u"file:/C:\\a", u"C:\\a"},
                                                                              {u"file://h/a", u""},
                                                                              {u"file://LocalHost/a", u"/a"},
                                                                              {u"file:///%", u"/%"},
                                                                              {u"file:///%4", u"/%4"},
                                                                              {u"file:///%zz%41", u"/%zzA"},
                                                                              {u"file:", u""},
                                                                              {u"file://", u""}};
    for (const auto& [url, path] : rows) EXPECT_EQ(pathOfUrl(url), path) << toUtf8(url);
}

}  // namespace
}  // namespace tovera::testing
