#include "platform/linux/registry/registry_names.h"

#include <algorithm>

namespace tovera {
namespace {

constexpr std::array<char, 256> makeFolding() {
    std::array<char, 256> fold{};
    const auto set = [&](unsigned from, unsigned to) { fold[from] = static_cast<char>(to); };
    for (unsigned code = 0; code < 256; ++code) set(code, code);
    for (unsigned code = 'A'; code <= 'Z'; ++code) set(code, code + 0x20);
    for (unsigned code = 0xC0; code <= 0xDE; ++code) set(code, code == 0xD7 ? code : code + 0x20);
    for (const auto code : {0x8AU, 0x8CU, 0x8EU}) set(code, code + 0x10);  // S and Z with caron, OE
    set(0x9F, 0xFF);                                                       // Y with diaeresis
    return fold;
}

constexpr auto folding = makeFolding();

/// Two multiplicative hashes side by side, each stirred well at its end.
constexpr std::uint64_t multiplierOfHigh = 0x9E3779B97F4A7C15;
constexpr std::uint64_t multiplierOfLow = 0xC2B2AE3D27D4EB4F;

constexpr std::uint64_t stirred(std::uint64_t bits) {
    bits ^= bits >> 32;
    bits *= 0xD6E8FEB86659FD93;
    bits ^= bits >> 29;
    bits *= 0xA0761D6478BD642F;
    return bits ^ (bits >> 32);
}

}  // namespace

char foldedCase(char byte) {
    return folding[static_cast<std::uint8_t>(byte)];
}

bool sameFolded(std::string_view a, std::string_view b) {
    return std::ranges::equal(a, b, {}, foldedCase, foldedCase);
}

NameId idWithin(const NameId& parent, std::string_view name) {
    NameId id{parent.high + name.size(), parent.low ^ name.size()};
    for (const auto byte : name) {
        const auto folded = static_cast<std::uint8_t>(foldedCase(byte));
        id.high = (id.high ^ folded) * multiplierOfHigh;
        id.low = (id.low + folded) * multiplierOfLow;
    }
    return {stirred(id.high), stirred(id.low ^ (id.high >> 7))};
}

NameId rootId(unsigned root) {
    return {0, root + 1};
}

std::vector<std::string_view> namesOf(std::string_view path) {
    std::vector<std::string_view> names;
    while (!path.empty()) {
        const auto end = std::min(path.find('\\'), path.size());
        if (end > 0) names.push_back(path.substr(0, end));
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    return names;
}

}  // namespace tovera
