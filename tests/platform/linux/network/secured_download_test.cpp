#include <fcntl.h>
#include <gtest/gtest.h>

#include "platform/linux/child_process.h"
#include "platform/linux/network/download.h"
#include "platform/linux/network/loopback_server.h"
#include "platform/linux/own_desktop.h"
#include "support/test_platform.h"

namespace tovera::testing {
namespace {

bool run(const std::string& command) {
    return system((command + " >/dev/null 2>&1").c_str()) == 0;
}

/// The server that comes with OpenSSL, on a port that the system picks. It sends the files of a folder as
/// they are, with their headers in them.
class SecuredServer {
  public:
    explicit SecuredServer(const std::string& folder) {
        int ends[2];
        if (pipe(ends) != 0) return;
        process_ = start([&] {
            dup2(ends[1], STDOUT_FILENO);
            dup2(::open("/dev/null", O_WRONLY), STDERR_FILENO);
            if (chdir(folder.c_str()) != 0) return 1;
            return execlp("openssl", "openssl", "s_server", "-accept", "127.0.0.1:0", "-HTTP", "-cert",
                          "cert.pem", "-key", "key.pem", nullptr);
        });
        close(ends[1]);
        // "ACCEPT 127.0.0.1:40123"
        std::string said;
        for (char c = 0; said.find("ACCEPT") == said.npos || c != '\n';) {
            if (read(ends[0], &c, 1) != 1) break;
            said += c;
        }
        close(ends[0]);
        const auto colon = said.rfind(':');
        if (colon != said.npos) port = std::stoi(said.substr(colon + 1));
    }
    SecuredServer(const SecuredServer&) = delete;
    SecuredServer& operator=(const SecuredServer&) = delete;
    ~SecuredServer() {
        kill(process_, SIGTERM);
        resultOf(process_);
    }
    int port = 0;

  private:
    pid_t process_ = 0;
};

TEST(SecuredDownloads, NeedAnAuthorityThatIsTrustedAndTheRightName) {
    const TemporaryFolder folder;
    if (!run("cd " + folder.path() +
             " && openssl req -x509 -newkey ec -pkeyopt ec_paramgen_curve:P-256 -nodes -keyout key.pem -out "
             "cert.pem"
             " -days 2 -subj /CN=essai -addext subjectAltName=DNS:localhost"))
        GTEST_SKIP() << "the program openssl isn't installed";
    const LoopbackServer unsecured({{"/", reply("200 OK", "bonjour")}});
    std::ofstream(folder / "page") << "HTTP/1.0 200 OK\r\n\r\nbonjour";
    std::ofstream(folder / "away") << "HTTP/1.0 302 Found\r\nLocation: " << unsecured.url("/") << "\r\n\r\n";
    const SecuredServer server(folder.path());
    ASSERT_NE(server.port, 0);
    const auto port = makeDownload({2, 5});
    Variables variables;
    for (const auto* name :
         {"http_proxy", "https_proxy", "all_proxy", "HTTPS_PROXY", "ALL_PROXY", "SSL_CERT_DIR"})
        variables.unset(name);
    const auto fetch = [&](const char* host, const char* path = "/page") {
        const auto url = std::string("https://") + host + ':' + std::to_string(server.port) + path;
        try {
            return port->URLDownloadToFileA(0, {url}, {folder / "f"}, 0, 0) == 0;
        } catch (const AutomationError&) {
            return false;
        }
    };
    variables.unset("SSL_CERT_FILE");
    EXPECT_FALSE(fetch("localhost")) << "an authority that nobody knows";
    variables.set("SSL_CERT_FILE", folder / "cert.pem");
    EXPECT_TRUE(fetch("localhost"));
    EXPECT_EQ(contentOf(folder / "f"), "bonjour");
    std::filesystem::remove(folder / "f");
    EXPECT_FALSE(fetch("localhost", "/away")) << "what isn't secured";
    EXPECT_TRUE(unsecured.requests().empty());
    EXPECT_FALSE(fetch("127.0.0.1")) << "a name that the certificate hasn't got";
    EXPECT_FALSE(std::filesystem::exists(folder / "f"));
}

}  // namespace
}  // namespace tovera::testing
