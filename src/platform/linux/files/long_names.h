#pragma once

#include <optional>
#include <string>
#include <string_view>

// Long and short forms of a caller's path. Drive, separators and dots stay as they are written; nothing comes
// back for a path that leads to nothing.
namespace tovera {

/// Each name as it stands in its folder.
std::optional<std::u16string> longPath(std::u16string_view path);

/// Each name as its short name.
std::optional<std::u16string> shortPath(std::u16string_view path);

}  // namespace tovera
