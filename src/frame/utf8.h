#pragma once

#include <string>
#include <string_view>

namespace tovera {

/// UTF-16 to UTF-8; a surrogate without its partner becomes U+FFFD.
std::string toUtf8(std::u16string_view text);

/// UTF-8 to UTF-16; each byte that belongs to no valid sequence becomes U+FFFD.
std::u16string fromUtf8(std::string_view bytes);

}  // namespace tovera
