#include "frame/name_index.h"

#include <algorithm>
#include <cstring>
#include <iterator>

#include "frame/ascii_case.h"

namespace tovera {
namespace {

/// Length, ends and middle tell the names of a class apart well enough.
std::uint8_t placeOf(std::u16string_view name) {
    if (name.empty()) return 0;
    const auto folded = [&](std::size_t place) { return name[place] | 0x20U; };
    const unsigned mix = folded(0) * 7 + folded(name.size() - 1) * 31 + folded(name.size() / 2) * 13 +
                         static_cast<unsigned>(name.size()) * 5;
    return static_cast<std::uint8_t>(mix ^ (mix >> 8));
}

/// The usual case, which needs no look at single characters.
bool same(std::u16string_view a, std::u16string_view b) {
    return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size() * sizeof(char16_t)) == 0;
}

bool sameInLowerCase(std::u16string_view name, std::u16string_view lowerName) {
    return isWord(name, lowerName);
}

}  // namespace

void NameIndex::add(std::string_view name, std::uint8_t number) {
    Entry entry{{name.begin(), name.end()}, {}, number};
    if (find(entry.name)) return;
    std::ranges::transform(entry.name, std::back_inserter(entry.lower),
                           [](char16_t c) { return smallAscii(c); });
    auto place = placeOf(entry.name);
    while (slots_[place] != 0) ++place;
    entries_.push_back(std::move(entry));
    slots_[place] = static_cast<std::uint8_t>(entries_.size());
}

std::optional<std::uint8_t> NameIndex::find(std::u16string_view name) const {
    for (auto place = placeOf(name); slots_[place] != 0; ++place) {
        const auto& entry = entries_[slots_[place] - 1U];
        if (same(name, entry.name) || sameInLowerCase(name, entry.lower)) return entry.number;
    }
    return {};
}

}  // namespace tovera
