#include "platform/linux/crypto/rc4.h"

#include <numeric>
#include <utility>

namespace tovera {

Rc4::Rc4(std::span<const std::uint8_t> key) {
    std::iota(state_.begin(), state_.end(), 0U);
    std::uint8_t j = 0;
    for (std::size_t i = 0; i < state_.size(); ++i) {
        j = static_cast<std::uint8_t>(j + state_[i] + key[i % key.size()]);
        std::swap(state_[i], state_[j]);
    }
}

void Rc4::apply(std::span<char> bytes) {
    auto i = i_;
    auto j = j_;
    for (auto& byte : bytes) {
        const auto first = state_[++i];
        j = static_cast<std::uint8_t>(j + first);
        const auto second = state_[j];
        state_[i] = second;
        state_[j] = first;
        byte = static_cast<char>(static_cast<std::uint8_t>(byte) ^ state_[(first + second) & 0xFFU]);
    }
    i_ = i;
    j_ = j;
}

}  // namespace tovera
