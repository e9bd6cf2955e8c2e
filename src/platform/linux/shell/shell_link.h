#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tovera {

/// What a link of Windows (".lnk") leads to. Paths are as Windows sees them.
struct ShellLink {
    std::u16string target;
    std::u16string folder;  ///< where the program starts
    std::u16string arguments;
};

/// The bytes of its file.
std::string linkBytes(const ShellLink& link);

/// Reads such bytes; nothing for those of another form.
std::optional<ShellLink> readLink(std::string_view bytes);

}  // namespace tovera
