#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "frame/values.h"
#include "platform/port.h"

namespace tovera {

/// Commands of a NetBIOS control block.
namespace netBiosCommands {
inline constexpr UI1 reset = 50;
inline constexpr UI1 adapterStatus = 51;
}  // namespace netBiosCommands

/// What the classes set of a NetBIOS control block.
struct NetBiosBlock {
    UI1 ncb_command = 0;
    UI1 ncb_lana_num = 0;
    std::array<char, 16> ncb_callname{};
    std::span<std::byte> ncb_buffer;
    I2 ncb_length = 0;
};

/// How a block of a heap is made: filled with zeros, and with an exception of the system for a failure.
inline constexpr I4 zeroedOrException = 12;

/// The DNS servers of the machine as its network parameters have them: 16 bytes each, with a NUL at the end
/// of the text. There is always a first one, which may be empty.
struct NetworkParameters {
    std::vector<std::array<char, 16>> DnsServerList;
};

/// Network adapters and the set-up of the network, of `netapi32` and `iphlpapi`, with the heap of `kernel32`.
struct Adapters : Port<Adapters> {
    /// Carries out the command of a control block. The status of an adapter, which is written into the
    /// block's buffer, begins with the six bytes of its hardware address.
    virtual I4 Netbios(NetBiosBlock& block) { return missingEntryPoint(block); }

    virtual I4 GetProcessHeap() { return missingEntryPoint(); }
    /// A block of so many bytes; an empty one where there is no room.
    virtual std::span<std::byte> HeapAlloc(I4 heap, I4 flags, I4 size) {
        missingEntryPoint(heap, flags, size);
    }
    virtual I4 HeapFree(I4 heap, I4 flags, std::span<std::byte> block) {
        return missingEntryPoint(heap, flags, block);
    }

    /// The parameters of the network; 0 on success. With a null address it tells the size that they need, in
    /// bytes.
    virtual I4 GetNetworkParams(NetworkParameters* parameters, I4& size) {
        return missingEntryPoint(parameters, size);
    }
};

Adapters& homeAdapters();

}  // namespace tovera
