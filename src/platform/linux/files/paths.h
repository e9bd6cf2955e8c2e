#pragma once

#include <string>
#include <string_view>

// Callers name files in the manner of Windows. `C:` is a folder of the user's data folder, `Z:` is the root
// of this system, and a path that begins with a slash is one of this system as it stands. Both slashes
// separate. The system's own paths are UTF-8.
namespace tovera {

inline constexpr std::u16string_view windowsFolder = u"C:\\WINDOWS";
inline constexpr std::u16string_view systemFolder = u"C:\\WINDOWS\\SYSTEM32";

/// The folder that is `C:`.
std::string driveC();

/// Makes the folders of Windows where they are missing.
void makeWindowsFolders();

/// The system's own path for a path of a caller, its names as they are written. Empty for a place that this
/// system hasn't got: another drive, another machine.
std::string hostPath(std::u16string_view path);

/// The same with each name that isn't found as written replaced by the one that differs only in case, or that
/// has it as its short name. From the first name that isn't found in any way the rest stays as written.
std::string foundPath(std::string_view hostPath);
std::string foundHostPath(std::u16string_view path);

/// The path in the manner of Windows, on `C:` or `Z:`, for an absolute one of the system.
std::u16string windowsPath(std::string_view hostPath);

}  // namespace tovera
