#include "platform/adapters.h"

#include <algorithm>
#include <cstring>

#include "platform/windows/entry_point.h"
#include "platform/windows/system_network.h"

namespace tovera {
namespace {

constexpr const wchar_t* iphlpapi = L"iphlpapi";
constexpr const wchar_t* netapi32 = L"netapi32";

/// The records as they are published for callers of 32 bits.
template <std::size_t AddressSize>
constexpr bool hasPublishedSizes() {
    if constexpr (AddressSize == 4) {
        return sizeof(NCB) == 64 && sizeof(FIXED_INFO) == 584 && offsetof(FIXED_INFO, DnsServerList) == 268 &&
               sizeof(IP_ADDR_STRING) == 40 && offsetof(IP_ADDR_STRING, IpAddress) == 4;
    }
    return true;
}
static_assert(hasPublishedSizes<sizeof(void*)>());
static_assert(sizeof(IP_ADDRESS_STRING) == sizeof(NetworkParameters::DnsServerList[0]));

/// The heap is an address of the system's, for which its number among the process's heaps stands.
constexpr I4 processHeap = 1;

class WindowsAdapters : public Adapters {
    I4 Netbios(NetBiosBlock& block) override {
        NCB control{};
        control.ncb_command = block.ncb_command;
        control.ncb_lana_num = block.ncb_lana_num;
        control.ncb_length = static_cast<WORD>(block.ncb_length);
        control.ncb_buffer = reinterpret_cast<UCHAR*>(block.ncb_buffer.data());
        std::ranges::copy(block.ncb_callname, control.ncb_callname);
        return callEntryPoint<&::Netbios>(netapi32, &control);
    }

    I4 GetProcessHeap() override { return processHeap; }
    std::span<std::byte> HeapAlloc(I4 /*heap*/, I4 flags, I4 size) override {
        auto* const block = callEntryPoint<&::HeapAlloc>(kernel32, ownHeap(), flags, size);
        return {static_cast<std::byte*>(block), block ? static_cast<std::size_t>(size) : 0};
    }
    I4 HeapFree(I4 /*heap*/, I4 flags, std::span<std::byte> block) override {
        return callEntryPoint<&::HeapFree>(kernel32, ownHeap(), flags, block.data());
    }

    I4 GetNetworkParams(NetworkParameters* parameters, I4& size) override {
        auto bytes = static_cast<ULONG>(size);
        std::vector<FIXED_INFO> room(parameters ? bytes / sizeof(FIXED_INFO) + 1 : 0);
        auto* const info = parameters ? room.data() : nullptr;
        const I4 status = callEntryPoint<&::GetNetworkParams>(iphlpapi, info, &bytes);
        size = static_cast<I4>(bytes);
        if (!parameters || status != 0) return status;
        for (const auto* server = &info->DnsServerList; server; server = server->Next) {
            auto& text = parameters->DnsServerList.emplace_back();
            std::ranges::copy(server->IpAddress.String, text.begin());
        }
        return status;
    }

    static HANDLE ownHeap() { return callEntryPoint<&::GetProcessHeap>(kernel32); }
};

}  // namespace

Adapters& homeAdapters() {
    static WindowsAdapters port;
    return port;
}

}  // namespace tovera
