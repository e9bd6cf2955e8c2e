#include "platform/linux/network/interfaces.h"

#include <algorithm>
#include <arpa/inet.h>
#include <ifaddrs.h>
#include <map>
#include <memory>
#include <net/if.h>
#include <net/if_arp.h>
#include <netpacket/packet.h>
#include <sys/socket.h>

#include "platform/linux/files/file_descriptor.h"
#include "platform/linux/files/file_facts.h"

namespace tovera {
namespace {

using AddressList = std::unique_ptr<ifaddrs, decltype(&freeifaddrs)>;

AddressList allAddresses() {
    ifaddrs* list = nullptr;
    if (getifaddrs(&list) != 0) list = nullptr;
    return {list, &freeifaddrs};
}

void addPacketFacts(Interface& interface, const sockaddr_ll& address) {
    interface.index = static_cast<unsigned>(address.sll_ifindex);
    if (address.sll_hatype != ARPHRD_ETHER || address.sll_halen != HardwareAddress().size()) return;
    auto& bytes = interface.hardware.emplace();
    std::copy_n(std::begin(address.sll_addr), bytes.size(), bytes.begin());
}

in_addr loopback() {
    return {htonl(INADDR_LOOPBACK)};
}

bool isSame(in_addr a, in_addr b) {
    return a.s_addr == b.s_addr;
}

bool carries(const Interface& interface, in_addr address) {
    return std::ranges::any_of(interface.addresses, [&](auto own) { return isSame(own, address); });
}

}  // namespace

std::vector<Interface> interfaces() {
    std::map<std::string, Interface> byName;
    const auto list = allAddresses();
    for (const auto* entry = list.get(); entry; entry = entry->ifa_next) {
        if (!entry->ifa_name || !entry->ifa_addr) continue;
        // An address can bear a label of its own behind the name of its interface.
        const std::string label = entry->ifa_name;
        auto& interface = byName[label.substr(0, label.find(':'))];
        interface.name = label.substr(0, label.find(':'));
        interface.isUp = (entry->ifa_flags & IFF_UP) != 0;
        interface.isLoopback = (entry->ifa_flags & IFF_LOOPBACK) != 0;
        if (entry->ifa_addr->sa_family == AF_PACKET)
            addPacketFacts(interface, *reinterpret_cast<const sockaddr_ll*>(entry->ifa_addr));
        if (entry->ifa_addr->sa_family == AF_INET)
            interface.addresses.push_back(reinterpret_cast<const sockaddr_in*>(entry->ifa_addr)->sin_addr);
    }
    std::vector<Interface> all;
    for (auto& [name, interface] : byName) all.push_back(std::move(interface));
    std::ranges::stable_sort(all, {}, &Interface::index);
    return all;
}

void addDevices(std::vector<Interface>& all, const std::string& folder) {
    for (auto& interface : all) {
        const auto has = [&](const char* entry) {
            return factsOfTarget(folder + '/' + interface.name + '/' + entry).has_value();
        };
        interface.hasDevice = has("device");
        interface.isMadeOfOthers = has("bridge") || has("tun_flags");
    }
}

std::optional<in_addr> addressTowardsWorld() {
    const FileDescriptor socket(::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0));
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(9);
    address.sin_addr.s_addr = inet_addr("203.0.113.1");  // nobody's, by convention
    auto* const generic = reinterpret_cast<sockaddr*>(&address);
    socklen_t size = sizeof address;
    if (!socket.isOpen() || connect(socket.get(), generic, size) != 0) return {};
    if (getsockname(socket.get(), generic, &size) != 0) return {};
    return address.sin_addr;
}

std::vector<in_addr> ownAddresses(const std::vector<Interface>& all, std::optional<in_addr> towardsWorld) {
    std::vector<in_addr> addresses;
    for (const auto& interface : all) {
        if (interface.isUp && !interface.isLoopback)
            addresses.insert(addresses.end(), interface.addresses.begin(), interface.addresses.end());
    }
    if (towardsWorld) {
        const auto first = std::ranges::find_if(addresses, [&](auto a) { return isSame(a, *towardsWorld); });
        if (first != addresses.end()) std::rotate(addresses.begin(), first, first + 1);
    }
    if (addresses.empty()) addresses.push_back(loopback());
    return addresses;
}

std::optional<HardwareAddress> firstAdapter(const std::vector<Interface>& all, in_addr ownAddress) {
    const Interface* best = nullptr;
    const auto rank = [&](const Interface& interface) {
        return interface.hasDevice ? 2 : carries(interface, ownAddress) ? 1 : 0;
    };
    for (const auto& interface : all) {
        if (!interface.hardware || interface.isLoopback || interface.isMadeOfOthers) continue;
        if (!best || rank(interface) > rank(*best)) best = &interface;
    }
    return best ? best->hardware : std::nullopt;
}

}  // namespace tovera
