#include "network/cls_internet.h"
#include "network/give_back.h"
#include "platform/adapters.h"

namespace tovera {
namespace {

/// What an adapter's status may take, and what of it is read.
constexpr I2 statusSize = 680;
constexpr std::size_t addressLength = 6;
/// A star stands for the adapter of this machine.
constexpr std::array<char, 16> localAdapter{'*', ' ', ' ', ' ', ' ', ' ', ' ', ' ',
                                            ' ', ' ', ' ', ' ', ' ', ' ', ' ', ' '};

Bstr hexadecimalGroups(std::span<const std::byte> bytes) {
    constexpr std::u16string_view digits = u"0123456789ABCDEF";
    std::u16string text;
    for (const auto byte : bytes) {
        if (!text.empty()) text += u' ';
        text += digits[std::to_integer<unsigned>(byte) / 16];
        text += digits[std::to_integer<unsigned>(byte) % 16];
    }
    return text;
}

Variant TextBeforeNull(const Bstr& text) {
    return Bstr(beforeNul(text));
}

}  // namespace

Bstr Cls_Internet::GetMACAddress() {
    NetBiosBlock block;
    block.ncb_command = netBiosCommands::reset;
    platform_.call(&Adapters::Netbios, block);
    block.ncb_callname = localAdapter;
    block.ncb_command = netBiosCommands::adapterStatus;
    block.ncb_lana_num = 0;
    block.ncb_length = statusSize;
    const I4 heap = platform_.call(&Adapters::GetProcessHeap);
    const auto status = platform_.call(&Adapters::HeapAlloc, heap, zeroedOrException, I4{statusSize});
    if (status.empty()) return {};
    return workAndGiveBack(
        [&] {
            block.ncb_buffer = status;
            platform_.call(&Adapters::Netbios, block);
            return hexadecimalGroups(status.first(addressLength));
        },
        [&] { platform_.call(&Adapters::HeapFree, heap, 0, status); });
}

I4 Cls_Internet::GetDNSServers(Bstr& sCurrentDNSServer, StringArray& dnssvr) {
    dnssvr.redim(0, 0);
    I4 size = 0;
    platform_.call(&Adapters::GetNetworkParams, nullptr, size);
    if (size < 1) return 0;
    NetworkParameters parameters;
    if (platform_.call(&Adapters::GetNetworkParams, &parameters, size) != 0) return 0;

    const Conversions convert(platform_.services);
    const auto textOf = [&](const std::array<char, 16>& address) {
        const Bstr whole = platform_.services.fromAnsi({address.data(), address.size()});
        return convert.to<Bstr>(TextBeforeNull(whole));
    };
    const auto& servers = parameters.DnsServerList;
    if (!servers.empty()) sCurrentDNSServer = textOf(servers.front());
    I4 count = 0;
    for (const auto& server : servers) {
        dnssvr.redimPreserve(0, count);
        dnssvr.at(count) = textOf(server);
        ++count;
    }
    return count;
}

}  // namespace tovera
