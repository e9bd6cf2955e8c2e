#include "platform/sockets.h"

#include "platform/windows/entry_point.h"
#include "platform/windows/system_network.h"

namespace tovera {
namespace {

constexpr const wchar_t* wsock32 = L"wsock32";

/// What the socket layer owns, read before its session is closed.
std::optional<HostEntry> entryOf(const hostent* found) {
    if (!found) return {};
    HostEntry entry;
    if (found->h_name) entry.name = found->h_name;
    const auto length = static_cast<std::size_t>(found->h_length);
    for (auto* const* address = found->h_addr_list; address && *address; ++address)
        entry.addresses.emplace_back(*address, length);
    return entry;
}

class WindowsSockets : public Sockets {
    I4 WSAStartup(I4 version, SocketFacts& facts) override {
        WSADATA data{};
        const I4 status = callEntryPoint<&::WSAStartup>(wsock32, version, &data);
        facts = {data.wVersion, data.iMaxSockets};
        return status;
    }
    I4 WSACleanup() override { return callEntryPoint<&::WSACleanup>(wsock32); }
    I4 WSAGetLastError() override { return callEntryPoint<&::WSAGetLastError>(wsock32); }
    I4 gethostname(AnsiText& name, I4 size) override {
        return callEntryPoint<&::gethostname>(wsock32, name, size);
    }
    std::optional<HostEntry> gethostbyname(const AnsiText& name) override {
        return entryOf(callEntryPoint<&::gethostbyname>(wsock32, name));
    }
    std::optional<HostEntry> gethostbyaddr(I4 address, I4 length, I4 family) override {
        const auto* const bytes = reinterpret_cast<const char*>(&address);
        return entryOf(callEntryPoint<&::gethostbyaddr>(wsock32, bytes, length, family));
    }
    I4 inet_addr(const AnsiText& text) override { return callEntryPoint<&::inet_addr>(wsock32, text); }
};

}  // namespace

Sockets& homeSockets() {
    static WindowsSockets port;
    return port;
}

}  // namespace tovera
