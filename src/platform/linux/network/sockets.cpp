#include "platform/sockets.h"

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <cerrno>
#include <netdb.h>
#include <strings.h>
#include <unistd.h>

#include "platform/linux/network/interfaces.h"

namespace tovera {
namespace {

/// What a session may have, as the platform tells it.
constexpr I4 mostSockets = 32767;

std::string ownName() {
    std::array<char, 256> name{};
    return ::gethostname(name.data(), name.size() - 1) == 0 ? name.data() : "";
}

std::string bytesOf(in_addr address) {
    return {reinterpret_cast<const char*>(&address), sizeof address};
}

HostEntry ownEntry(const std::string& name) {
    HostEntry entry{name, {}};
    for (const auto address : ownAddresses(interfaces(), addressTowardsWorld()))
        entry.addresses.push_back(bytesOf(address));
    return entry;
}

/// Asks the resolver, with more room for its answer until that fits.
template <class Ask>
std::optional<HostEntry> resolved(Ask&& ask) {
    std::array<char, 1024> first;
    std::vector<char> more;
    std::span<char> room = first;
    hostent answer{};
    hostent* found = nullptr;
    int error = 0;
    while (ask(&answer, room.data(), room.size(), &found, &error) == ERANGE) {
        more.resize(2 * room.size());
        room = more;
    }
    if (!found) return {};
    HostEntry entry;
    if (found->h_name) entry.name = found->h_name;
    const auto length = static_cast<std::size_t>(found->h_length);
    for (auto* const* address = found->h_addr_list; *address; ++address)
        entry.addresses.emplace_back(*address, length);
    return entry;
}

class LinuxSockets : public Sockets {
    I4 WSAStartup(I4 version, SocketFacts& facts) override {
        facts = {version, mostSockets};
        return 0;
    }
    I4 WSACleanup() override { return 0; }
    I4 WSAGetLastError() override { return 0; }
    I4 gethostname(AnsiText& name, I4 size) override {
        const auto room = std::min(static_cast<std::size_t>(size), name.bytes.size());
        return ::gethostname(name.bytes.data(), room) == 0 ? 0 : socketError;
    }
    /// The machine's own name leads to its addresses, as no file of hosts has them. So does no name at all.
    std::optional<HostEntry> gethostbyname(const AnsiText& name) override {
        const std::string asked(name.terminated());
        const auto own = ownName();
        if (asked.empty() || strcasecmp(asked.c_str(), own.c_str()) == 0) return ownEntry(own);
        return resolved([&](auto... answer) { return gethostbyname2_r(asked.c_str(), AF_INET, answer...); });
    }
    std::optional<HostEntry> gethostbyaddr(I4 address, I4 length, I4 family) override {
        if (length != I4{sizeof(in_addr)} || family != internetFamily) return {};
        const in_addr asked{static_cast<in_addr_t>(address)};
        auto found = resolved(
            [&](auto... answer) { return gethostbyaddr_r(&asked, sizeof asked, AF_INET, answer...); });
        if (found) return found;
        auto own = ownEntry(ownName());
        if (std::ranges::find(own.addresses, bytesOf(asked)) == own.addresses.end()) return {};
        return own;
    }
    I4 inet_addr(const AnsiText& text) override {
        return text.isNull ? socketError : static_cast<I4>(::inet_addr(text.bytes.c_str()));
    }
};

}  // namespace

Sockets& homeSockets() {
    static LinuxSockets port;
    return port;
}

}  // namespace tovera
