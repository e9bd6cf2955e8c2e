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

/// The name of this machine; empty where it can't be had.
class OwnName {
  public:
    OwnName() {
        if (::gethostname(name_.data(), name_.size()) != 0) name_[0] = '\0';
        name_.back() = '\0';
    }
    const char* text() const { return name_.data(); }

  private:
    std::array<char, 256> name_;
};

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
        const char* const asked = name.bytes.c_str();
        const OwnName own;
        if (*asked == '\0' || strcasecmp(asked, own.text()) == 0) return ownEntry(own.text());
        return resolved([&](auto... answer) { return gethostbyname2_r(asked, AF_INET, answer...); });
    }
    std::optional<HostEntry> gethostbyaddr(I4 address, I4 length, I4 family) override {
        if (length != I4{sizeof(in_addr)} || family != internetFamily) return {};
        const in_addr asked{static_cast<in_addr_t>(address)};
        auto found = resolved(
            [&](auto... answer) { return gethostbyaddr_r(&asked, sizeof asked, AF_INET, answer...); });
        if (found) return found;
        auto own = ownEntry(OwnName().text());
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
