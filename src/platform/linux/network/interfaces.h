#pragma once

#include <array>
#include <netinet/in.h>
#include <optional>
#include <string>
#include <vector>

namespace tovera {

using HardwareAddress = std::array<unsigned char, 6>;

/// A network interface of this machine.
struct Interface {
    unsigned index = 0;  ///< in the order in which the system has found them
    std::string name;
    std::optional<HardwareAddress> hardware;  ///< of Ethernet only
    std::vector<in_addr> addresses;           ///< of the internet
    bool isUp = false;
    bool isLoopback = false;
    bool isMadeOfOthers = false;  ///< a bridge or a tunnel
    bool hasDevice = false;       ///< a device of the machine stands behind it
};

/// The interfaces in the order of their indexes, without what stands behind them.
std::vector<Interface> interfaces();

/// Adds what stands behind the interfaces, as this folder tells it.
void addDevices(std::vector<Interface>& all, const std::string& folder = "/sys/class/net");

/// The address that the system would call the world from, where it has a way there. Nothing is sent.
std::optional<in_addr> addressTowardsWorld();

/// The addresses of a machine with these interfaces: first the one towards the world, then those of
/// interfaces that are up, loopback left out. With none, 127.0.0.1.
std::vector<in_addr> ownAddresses(const std::vector<Interface>& all, std::optional<in_addr> towardsWorld);

/// The hardware address that the machine is known by. A device of the machine comes first, since docking
/// mustn't change it; then the interface with the own address, then any other. Loopback, bridges and tunnels
/// don't count.
std::optional<HardwareAddress> firstAdapter(const std::vector<Interface>& all, in_addr ownAddress);

}  // namespace tovera
