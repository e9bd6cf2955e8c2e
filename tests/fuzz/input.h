#pragma once

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <string_view>

namespace tovera::fuzz {

/// The bytes of one fuzzed input.
using Input = std::string_view;

/// Ends the process when a property doesn't hold, so that a fuzzer keeps the input.
inline void require(bool holds, const char* property) {
    if (holds) return;
    std::cerr << "broken property: " << property << std::endl;
    std::abort();
}

}  // namespace tovera::fuzz
