#pragma once

#include <arpa/inet.h>
#include <atomic>
#include <map>
#include <mutex>
#include <poll.h>
#include <string>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace tovera::testing {

/// What the server does for a path: sends these bytes, so many more of them, and then closes, or holds the
/// line.
struct Reply {
    std::string bytes;
    std::size_t filling = 0;
    bool stalls = false;
    int pieceDelay = 0;  ///< milliseconds in front of each 64 KiB of the filling
};

inline Reply reply(const std::string& status, const std::string& body, const std::string& headers = {}) {
    return {"HTTP/1.1 " + status + "\r\nConnection: close\r\nContent-Length: " + std::to_string(body.size()) +
            "\r\n" + headers + "\r\n" + body};
}
inline Reply redirection(const std::string& target) {
    return reply("302 Found", "", "Location: " + target + "\r\n");
}

/// A web server of one thread on a port of its own of this machine.
class LoopbackServer {
  public:
    explicit LoopbackServer(std::map<std::string, Reply> replies) : replies_(std::move(replies)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        auto* const generic = reinterpret_cast<sockaddr*>(&address);
        socklen_t size = sizeof address;
        listener_ = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
        if (bind(listener_, generic, size) != 0 || listen(listener_, 64) != 0) throw std::bad_alloc();
        getsockname(listener_, generic, &size);
        port_ = ntohs(address.sin_port);
        thread_ = std::thread([this] { serve(); });
    }
    LoopbackServer(const LoopbackServer&) = delete;
    LoopbackServer& operator=(const LoopbackServer&) = delete;
    ~LoopbackServer() {
        ending_ = true;
        thread_.join();
        close(listener_);
        for (const int held : held_) close(held);
    }

    std::string url(const std::string& path) const {
        return "http://127.0.0.1:" + std::to_string(port_) + path;
    }
    /// The requests so far, each as its first line and its headers.
    std::vector<std::string> requests() const {
        const std::lock_guard guard(mutex_);
        return requests_;
    }

  private:
    void serve() {
        while (!ending_) {
            pollfd waiting{listener_, POLLIN, 0};
            if (poll(&waiting, 1, 20) != 1) continue;
            const int line = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
            if (line >= 0) answer(line);
        }
    }
    void answer(int line) {
        std::string request;
        for (char piece[4096]; request.find("\r\n\r\n") == request.npos;) {
            const auto count = recv(line, piece, sizeof piece, 0);
            if (count <= 0) break;
            request.append(piece, static_cast<std::size_t>(count));
        }
        if (!request.starts_with("GET ")) return static_cast<void>(close(line));
        const auto path = request.substr(4, request.find(' ', 4) - 4);
        {
            const std::lock_guard guard(mutex_);
            requests_.push_back(request);
        }
        const auto found = replies_.find(path);
        const auto chosen = found == replies_.end() ? reply("404 Not Found", "an error page") : found->second;
        bool isHeard = send(line, chosen.bytes);
        const std::string piece(65536, 'x');
        for (auto left = chosen.filling; isHeard && left > 0 && !ending_;) {
            usleep(static_cast<unsigned>(chosen.pieceDelay) * 1000U);
            const auto size = std::min(left, piece.size());
            isHeard = send(line, piece.substr(0, size));
            left -= size;
        }
        if (chosen.stalls) return held_.push_back(line);
        shutdown(line, SHUT_WR);
        close(line);
    }
    static bool send(int line, std::string_view bytes) {
        while (!bytes.empty()) {
            const auto count = ::send(line, bytes.data(), bytes.size(), MSG_NOSIGNAL);
            if (count <= 0) return false;
            bytes.remove_prefix(static_cast<std::size_t>(count));
        }
        return true;
    }

    std::map<std::string, Reply> replies_;
    int listener_ = -1;
    int port_ = 0;
    std::atomic<bool> ending_ = false;
    std::vector<int> held_;
    mutable std::mutex mutex_;
    std::vector<std::string> requests_;
    std::thread thread_;
};

}  // namespace tovera::testing
