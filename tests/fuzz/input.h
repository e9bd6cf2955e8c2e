#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <span>
#include <string>

namespace tovera::fuzz {

/// The bytes of one fuzzed input, taken from the front as values; when they run out the values are 0.
class Input {
  public:
    explicit Input(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

    template <class Number>
    Number take() {
        Number value{};
        const auto count = std::min(sizeof value, bytes_.size());
        std::copy_n(bytes_.begin(), count, reinterpret_cast<std::uint8_t*>(&value));
        bytes_ = bytes_.subspan(count);
        return value;
    }
    /// All that is left, as bytes, or each byte as a character.
    std::string bytes() const { return {bytes_.begin(), bytes_.end()}; }
    std::u16string text() const { return {bytes_.begin(), bytes_.end()}; }
    /// All that is left, two bytes a code unit.
    std::u16string wideText() const {
        std::u16string units(bytes_.size() / 2, u'\0');
        std::copy_n(bytes_.begin(), units.size() * 2, reinterpret_cast<std::uint8_t*>(units.data()));
        return units;
    }

  private:
    std::span<const std::uint8_t> bytes_;
};

/// Ends the process when a property doesn't hold, so that a fuzzer keeps the input.
inline void require(bool holds, const char* property) {
    if (holds) return;
    std::cerr << "broken property: " << property << std::endl;
    std::abort();
}

}  // namespace tovera::fuzz
