#include "platform/adapters.h"

#include <algorithm>
#include <cstdlib>

#include "platform/linux/network/dns_servers.h"
#include "platform/linux/network/interfaces.h"

namespace tovera {
namespace {

// Answers of a NetBIOS command, and of a call whose buffer is too small.
constexpr I4 goodAnswer = 0;
constexpr I4 illegalCommand = 3;
constexpr I4 bufferOverflow = 111;

/// The parameters with one server in bytes, and each further server, as the platform's records have them.
constexpr std::size_t parametersSize = 584;
constexpr std::size_t furtherServerSize = 40;

constexpr I4 processHeap = 1;

class LinuxAdapters : public Adapters {
    I4 Netbios(NetBiosBlock& block) override {
        if (block.ncb_command == netBiosCommands::reset) return goodAnswer;
        if (block.ncb_command != netBiosCommands::adapterStatus) return illegalCommand;
        auto all = interfaces();
        addDevices(all);
        const auto address = firstAdapter(all, ownAddresses(all, addressTowardsWorld()).front());
        if (address && block.ncb_buffer.size() >= address->size())
            std::ranges::copy(std::as_bytes(std::span(*address)), block.ncb_buffer.begin());
        return goodAnswer;
    }

    I4 GetProcessHeap() override { return processHeap; }
    std::span<std::byte> HeapAlloc(I4 /*heap*/, I4 /*flags*/, I4 size) override {
        const auto count = static_cast<std::size_t>(size);
        auto* const block = static_cast<std::byte*>(std::calloc(count, 1));
        return {block, block ? count : 0};
    }
    I4 HeapFree(I4 /*heap*/, I4 /*flags*/, std::span<std::byte> block) override {
        std::free(block.data());
        return 1;
    }

    I4 GetNetworkParams(NetworkParameters* parameters, I4& size) override {
        auto servers = dnsServers();
        if (servers.empty()) servers.emplace_back();
        const auto needed = static_cast<I4>(parametersSize + (servers.size() - 1) * furtherServerSize);
        if (!parameters || size < needed) {
            size = needed;
            return bufferOverflow;
        }
        for (const auto& server : servers)
            server.copy(parameters->DnsServerList.emplace_back().data(), server.size());
        return 0;
    }
};

}  // namespace

Adapters& homeAdapters() {
    static LinuxAdapters port;
    return port;
}

}  // namespace tovera
