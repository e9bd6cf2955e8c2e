#pragma once

#include <array>
#include <memory>
#include <span>

#include "frame/variant.h"

namespace tovera {

/// More parameters than any member has.
inline constexpr std::size_t mostParameters = 8;

/// The arguments of one call, in place: only those that there are take time.
class ArgumentList {
  public:
    ArgumentList() = default;
    ArgumentList(const ArgumentList&) = delete;
    ArgumentList& operator=(const ArgumentList&) = delete;
    ~ArgumentList() { std::destroy_n(first(), count_); }

    /// Adds what a function makes, right in its place; for at most `mostParameters` arguments.
    template <class Make>
    void add(Make&& make) {
        ::new (static_cast<void*>(first() + count_)) Variant(std::forward<Make>(make)());
        ++count_;
    }
    std::span<Variant> all() { return {first(), count_}; }

  private:
    Variant* first() { return reinterpret_cast<Variant*>(room_.data()); }

    alignas(Variant) std::array<std::byte, mostParameters * sizeof(Variant)> room_;
    std::size_t count_ = 0;
};

}  // namespace tovera
