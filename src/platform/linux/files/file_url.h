#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tovera {

/// The path that a text names when it is a path or a URL of a file of this machine; nothing when it is
/// another URL. Percent signs of a URL are decoded. Empty for a file of another machine.
std::optional<std::u16string> pathOfUrl(std::u16string_view url);

/// The scheme in front of a text; empty where there is none. One letter is a drive.
std::u16string_view schemeOf(std::u16string_view url);

}  // namespace tovera
