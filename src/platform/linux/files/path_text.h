#pragma once

#include <string>
#include <string_view>

namespace tovera {

/// The folder of one of the system's own paths, with a slash at its end.
inline std::string folderOf(std::string_view hostPath) {
    const auto slash = hostPath.rfind('/');
    return slash == std::string_view::npos ? "./" : std::string(hostPath.substr(0, slash + 1));
}

/// Whether a path is a folder or lies in it; both without a slash at their ends.
inline bool isBelow(std::string_view path, std::string_view folder) {
    return path.starts_with(folder) && (path.size() == folder.size() || path[folder.size()] == '/');
}

}  // namespace tovera
