#pragma once

#include "fuzz/input.h"

namespace tovera::fuzz {

/// Takes a number from the front of an input; when its bytes run out the rest is 0.
template <class Number>
Number take(Input& input) {
    Number value{};
    input.remove_prefix(input.copy(reinterpret_cast<char*>(&value), sizeof value));
    return value;
}

}  // namespace tovera::fuzz
