#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace tovera {

/// The RC4 key stream, as published. Encrypting and decrypting are the same: each byte meets one of the
/// stream.
class Rc4 {
  public:
    explicit Rc4(std::span<const std::uint8_t> key);
    void apply(std::span<char> bytes);

  private:
    std::array<std::uint32_t, 256> state_;  ///< bytes; words of the processor are faster to exchange
    std::uint8_t i_ = 0;
    std::uint8_t j_ = 0;
};

}  // namespace tovera
