#include "platform/linux/network/interfaces.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>

#include "platform/linux/network/dns_servers.h"
#include "platform/linux/temporary_folder.h"

namespace tovera::testing {
namespace {

in_addr address(const char* text) {
    return {inet_addr(text)};
}

/// Facts of an interface of a made-up machine: a letter for each, and the last byte of its hardware address.
Interface made(const char* name, unsigned char last, const std::string& facts,
               std::vector<const char*> addresses = {}) {
    const auto has = [&](char fact) { return facts.find(fact) != facts.npos; };
    Interface interface;
    interface.index = last;
    interface.name = name;
    if (has('e')) interface.hardware = HardwareAddress{2, 0, 0, 0, 0, last};
    interface.isUp = has('u');
    interface.isLoopback = has('l');
    interface.isMadeOfOthers = has('b');
    interface.hasDevice = has('d');
    for (const auto* text : addresses) interface.addresses.push_back(address(text));
    return interface;
}

struct Machine {
    std::vector<Interface> interfaces;
    const char* towardsWorld;
    std::string addresses;
    int lastByte;  ///< of the first adapter; 0 for none
};

TEST(Interfaces, OfMadeUpMachines) {
    const auto lo = made("lo", 1, "eul", {"127.0.0.1"});
    const Machine machines[] = {
        {{}, nullptr, "127.0.0.1 ", 0},
        {{lo}, nullptr, "127.0.0.1 ", 0},
        {{lo, made("eth0", 2, "eud", {"10.0.0.2"})}, "10.0.0.2", "10.0.0.2 ", 2},
        {{lo, made("eth0", 2, "ed", {"10.0.0.2"})}, nullptr, "127.0.0.1 ", 2},
        {{lo, made("eth0", 2, "eud", {"10.0.0.2", "10.0.0.3"}), made("wlan0", 3, "eud", {"10.1.0.2"})},
         "10.1.0.2",
         "10.1.0.2 10.0.0.2 10.0.0.3 ",
         2},
        {{lo, made("eth0", 2, "eud", {"10.0.0.2"})}, "9.9.9.9", "10.0.0.2 ", 2},
        {{lo, made("br0", 2, "eub", {"10.0.0.2"}), made("veth1", 3, "eu"),
          made("tun0", 4, "u", {"10.8.0.1"})},
         "10.0.0.2",
         "10.0.0.2 10.8.0.1 ",
         3},
        {{lo, made("veth1", 2, "eu"), made("eth0", 3, "eu", {"172.17.0.2"})}, "172.17.0.2", "172.17.0.2 ", 3},
        {{lo, made("eth0", 2, "eu", {"10.0.0.2"}), made("usb0", 3, "ed")}, "10.0.0.2", "10.0.0.2 ", 3},
    };
    for (const auto& machine : machines) {
        std::optional<in_addr> world;
        if (machine.towardsWorld) world = address(machine.towardsWorld);
        std::string text;
        const auto own = ownAddresses(machine.interfaces, world);
        for (const auto one : own) text += std::string(inet_ntoa(one)) + ' ';
        EXPECT_EQ(text, machine.addresses);
        const auto adapter = firstAdapter(machine.interfaces, own.front());
        EXPECT_EQ(adapter ? adapter->back() : 0, machine.lastByte) << machine.addresses;
    }
}

TEST(Interfaces, AsTheirFolderTellsThem) {
    const TemporaryFolder folder;
    for (const auto* entry : {"eth0/device", "br0/bridge", "tap0/tun_flags", "veth0/x"})
        std::filesystem::create_directories(folder / entry);
    std::vector all{made("br0", 1, "e"), made("tap0", 2, "e"), made("veth0", 3, "e"), made("eth0", 4, "e")};
    addDevices(all, folder.path());
    EXPECT_EQ(firstAdapter(all, address("10.0.0.1"))->back(), 4);
    all.pop_back();
    EXPECT_EQ(firstAdapter(all, address("10.0.0.1"))->back(), 3);
}

TEST(DnsServers, InLinesOfAFile) {
    const std::pair<std::string, std::vector<std::string>> rows[] = {
        {"nameserver 10.0.0.1\n", {"10.0.0.1"}},
        {"nameserver\t1.1.1.1  # x\r\nnameserver 8.8.8.8", {"1.1.1.1", "8.8.8.8"}},
        {"# nameserver 1.1.1.1\n;nameserver 1.1.1.1\n nameserver 1.1.1.1\nNameserver 1.1.1.1\n", {}},
        {"nameserver ::1\nnameserver fe80::1%eth0\nnameserver\nnameserver \nnameservers 1.1.1.1\n", {}},
        {"nameserver 10.1\nnameserver 300.1.1.1\nnameserver x\n", {"10.0.0.1"}},
        {std::string("nameserver 1.1.1.1\0", 19), {}},
        {"search a\noptions b\nnameserver 1.1.1.1\nnameserver 1.1.1.1\nnameserver 2.2.2.2\nnameserver "
         "3.3.3.3\n",
         {"1.1.1.1", "1.1.1.1", "2.2.2.2", "3.3.3.3"}},
    };
    for (const auto& [lines, servers] : rows) EXPECT_EQ(nameServersIn(lines), servers) << lines;
}

TEST(DnsServers, OfMadeUpMachines) {
    const TemporaryFolder root;
    EXPECT_EQ(dnsServers(root.path()), std::vector<std::string>());
    const auto has = [&](const char* path, const std::string& text) {
        std::filesystem::create_directories(std::filesystem::path(root / path).parent_path());
        std::ofstream(root / path, std::ios::binary) << text;
    };
    has("etc/resolv.conf", "nameserver 127.0.0.53\nnameserver 127.0.0.1\n");
    EXPECT_EQ(dnsServers(root.path()), (std::vector<std::string>{"127.0.0.53", "127.0.0.1"}));
    has("run/NetworkManager/no-stub-resolv.conf", "nameserver 10.0.0.9\n");
    EXPECT_EQ(dnsServers(root.path()), std::vector<std::string>{"10.0.0.9"});
    has("run/systemd/resolve/resolv.conf", "search x\n");
    EXPECT_EQ(dnsServers(root.path()), std::vector<std::string>{"10.0.0.9"});
    has("run/systemd/resolve/resolv.conf", "nameserver 10.0.0.8\nnameserver 10.0.0.7\n");
    EXPECT_EQ(dnsServers(root.path()), (std::vector<std::string>{"10.0.0.8", "10.0.0.7"}));
    has("etc/resolv.conf", "nameserver 127.0.0.53\nnameserver 10.0.0.1\n");
    EXPECT_EQ(dnsServers(root.path()), (std::vector<std::string>{"127.0.0.53", "10.0.0.1"}));
    has("etc/resolv.conf",
        std::string(1'000'000, 'n') + "\nnameserver 10.0.0.2\n" + std::string(300'000, '\n'));
    EXPECT_EQ(dnsServers(root.path()), std::vector<std::string>{"10.0.0.2"});
}

}  // namespace
}  // namespace tovera::testing
