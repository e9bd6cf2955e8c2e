#pragma once

#include <string>
#include <windows.h>

namespace tovera::client {

/// A web server of one thread on a port of its own, which answers the first request with these bytes.
class WebServer {
  public:
    explicit WebServer(std::string answer) : answer_(std::move(answer)) {
        WSADATA data{};
        WSAStartup(MAKEWORD(1, 1), &data);
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        int size = sizeof address;
        auto* const generic = reinterpret_cast<sockaddr*>(&address);
        listener_ = socket(AF_INET, SOCK_STREAM, 0);
        bind(listener_, generic, size);
        listen(listener_, 4);
        getsockname(listener_, generic, &size);
        port_ = ntohs(address.sin_port);
        thread_ = CreateThread(nullptr, 0, &WebServer::serve, this, 0, nullptr);
    }
    WebServer(const WebServer&) = delete;
    WebServer& operator=(const WebServer&) = delete;
    ~WebServer() {
        closesocket(listener_);
        WaitForSingleObject(thread_, 10'000);
        CloseHandle(thread_);
        WSACleanup();
    }

    std::wstring url(const std::wstring& path) const {
        return L"http://127.0.0.1:" + std::to_wstring(port_) + path;
    }
    const std::string& request() const { return request_; }

  private:
    static DWORD WINAPI serve(void* self) {
        static_cast<WebServer*>(self)->answer();
        return 0;
    }
    void answer() {
        const SOCKET line = accept(listener_, nullptr, nullptr);
        if (line == INVALID_SOCKET) return;
        char piece[4096];
        while (request_.find("\r\n\r\n") == request_.npos) {
            const int count = recv(line, piece, sizeof piece, 0);
            if (count <= 0) break;
            request_.append(piece, static_cast<std::size_t>(count));
        }
        send(line, answer_.data(), static_cast<int>(answer_.size()), 0);
        constexpr int sending = 1;
        shutdown(line, sending);
        closesocket(line);
    }

    std::string answer_, request_;
    SOCKET listener_ = INVALID_SOCKET;
    int port_ = 0;
    HANDLE thread_ = nullptr;
};

}  // namespace tovera::client
