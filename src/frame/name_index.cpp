#include "frame/name_index.h"

namespace tovera {
namespace {

constexpr char16_t lower(char16_t c) {
    return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c | 0x20) : c;
}

/// Length, ends and middle tell the names of a class apart well enough.
std::uint8_t placeOf(std::u16string_view name) {
    if (name.empty()) return 0;
    const unsigned mix = lower(name.front()) * 7U + lower(name.back()) * 31U +
                         lower(name[name.size() / 2]) * 13U + static_cast<unsigned>(name.size()) * 5U;
    return static_cast<std::uint8_t>(mix ^ (mix >> 8));
}

bool matches(std::u16string_view name, std::u16string_view lowerName) {
    if (name.size() != lowerName.size()) return false;
    for (std::size_t i = 0; i < name.size(); ++i) {
        if (lower(name[i]) != lowerName[i]) return false;
    }
    return true;
}

}  // namespace

void NameIndex::add(std::string_view name, std::uint8_t number) {
    std::u16string folded(name.begin(), name.end());
    if (find(folded)) return;
    for (auto& c : folded) c = lower(c);
    auto place = placeOf(folded);
    while (slots_[place] != 0) ++place;
    entries_.push_back({std::move(folded), number});
    slots_[place] = static_cast<std::uint8_t>(entries_.size());
}

std::optional<std::uint8_t> NameIndex::find(std::u16string_view name) const {
    for (auto place = placeOf(name); slots_[place] != 0; ++place) {
        const auto& entry = entries_[slots_[place] - 1U];
        if (matches(name, entry.lower)) return entry.number;
    }
    return {};
}

}  // namespace tovera
