#include <arpa/inet.h>
#include <array>
#include <filesystem>
#include <memory>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

#include "frame/utf8.h"
#include "network/cls_internet.h"
#include "peers/peers.h"

using namespace tovera;

namespace bench {
namespace {

constexpr std::size_t downloadSize = std::size_t{8} << 20;

/// A web server of one thread on loopback, whose every answer has that size. It ends with the process.
class Server {
  public:
    Server() : listener_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        auto* const generic = reinterpret_cast<sockaddr*>(&address);
        socklen_t size = sizeof address;
        requireSame(bind(listener_, generic, size) == 0 && listen(listener_, 16) == 0, "loopback");
        getsockname(listener_, generic, &size);
        url = "http://127.0.0.1:" + std::to_string(ntohs(address.sin_port)) + "/";
        std::thread([listener = listener_] { serve(listener); }).detach();
    }
    std::string url;

  private:
    static void serve(int listener) {
        const auto answer =
            "HTTP/1.1 200 OK\r\nConnection: close\r\nContent-Length: " + std::to_string(downloadSize) +
            "\r\n\r\n" + std::string(downloadSize, 'x');
        for (;;) {
            const int line = accept4(listener, nullptr, nullptr, SOCK_CLOEXEC);
            std::array<char, 4096> request;
            if (line < 0) return;
            if (recv(line, request.data(), request.size(), 0) > 0) {
                for (std::size_t sent = 0; sent < answer.size();) {
                    const auto count = send(line, answer.data() + sent, answer.size() - sent, MSG_NOSIGNAL);
                    if (count <= 0) break;
                    sent += static_cast<std::size_t>(count);
                }
            }
            close(line);
        }
    }
    int listener_;
};

/// In memory, where there is such a folder: a disk's own pace would hide all else.
std::string temporary(const std::string& name) {
    const std::filesystem::path memory = "/dev/shm";
    const auto folder =
        std::filesystem::is_directory(memory) ? memory : std::filesystem::temp_directory_path();
    return (folder / ("tovera-bench-" + std::to_string(getpid()) + name)).string();
}

const Group network([] {
    const Bstr name = fromUtf8("localhost");
    const auto object = std::make_shared<Cls_Internet>();
    const auto file = temporary("ours");
    const auto server = std::make_shared<Server>();
    const Bstr url = fromUtf8(server->url);
    const Bstr path = fromUtf8(file);
    requireSame(object->GetIPFromHostName(name) == Bstr(u"127.0.0.1"), "look-up");
    requireSame(
        object->TelechargeFichier(url, path) == True && std::filesystem::file_size(file) == downloadSize,
        "download");
    return std::vector<Row>{
        {"address of a name in the file of hosts",
         loopOf([=] { return object->GetIPFromHostName(name); }),
         {"C library", loopIfInstalled(resolverByName, std::string("localhost"))},
         0.85},  // a tenth more than the bare call, and the crossing of two texts
        {"own address",
         loopOf([=] { return object->GetIPAddress(); }),
         {"C library's list of interfaces", loopIfInstalled(listOfInterfaces)}},
        {"download of 8 MiB",
         loopOf([=, keepServer = server] { return object->TelechargeFichier(url, path); }),
         {"libcurl", loopIfInstalled(curlDownload, server->url, temporary("peer"))},
         0.9},
    };
});

}  // namespace
}  // namespace bench
