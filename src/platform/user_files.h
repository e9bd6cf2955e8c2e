#pragma once

#include <string>
#include <string_view>

// Files of the user that a program reads and changes as a whole. They raise the errors of file operations: 53
// for a file and 76 for a folder that isn't there, 70 and 75 for one that can't be used.
namespace tovera {

/// The one path, in UTF-8, that all names of an existing file lead to, for a caller's path.
std::string ownPathOf(std::u16string_view path);

std::string bytesOfFile(const std::string& ownPath);

/// Gives a file other bytes, whole or not at all. Refuses a read-only file, whoever we are, and one that
/// somebody else has written since it held the old bytes.
void replaceBytes(const std::string& ownPath, std::string_view oldBytes, std::string newBytes);

}  // namespace tovera
