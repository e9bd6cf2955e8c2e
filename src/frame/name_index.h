#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tovera {

/// Finds names without regard to the case of their letters, in a handful of nanoseconds. Names are ASCII.
class NameIndex {
  public:
    /// Adds a name with the number that it leads to; a name that is there already keeps its first number.
    void add(std::string_view name, std::uint8_t number);

    std::optional<std::uint8_t> find(std::u16string_view name) const;

  private:
    static constexpr std::size_t slotCount = 256;

    struct Entry {
        std::u16string name;
        std::u16string lower;
        std::uint8_t number;
    };

    std::vector<Entry> entries_;
    /// Entry number plus 1, or 0 for a free place; a taken place moves a name on to the next one.
    std::array<std::uint8_t, slotCount> slots_{};
};

}  // namespace tovera
