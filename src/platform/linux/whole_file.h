#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

// Files that are read and replaced as a whole.
namespace tovera {

/// The bytes of a file.
class FileBytes {
  public:
    FileBytes() = default;
    explicit FileBytes(std::size_t capacity) : bytes_(std::make_unique_for_overwrite<char[]>(capacity)) {}

    char* data() { return bytes_.get(); }
    void setSize(std::size_t size) { size_ = size; }
    std::string_view view() const { return {bytes_.get(), size_}; }

  private:
    std::unique_ptr<char[]> bytes_;
    std::size_t size_ = 0;
};

/// Reads a regular file. The result is 0 or the system's error number, as with all functions here.
int readFile(const std::string& path, FileBytes& bytes);

/// What becomes of a file's bytes (none for a missing file): its new ones, or nothing to leave it as it is.
using FileChange = std::function<std::optional<std::string>(std::string_view bytes)>;

/// Changes a file whole or not at all, also when this process ends in the middle: the new bytes are written
/// beside it, reach the disk, and take its name, with its permissions and its owner. A missing file is made,
/// a missing folder isn't. A symbolic link stays, and the file that it leads to changes. The changes of all
/// processes happen one after the other, so that none is lost.
int changeFile(const std::string& path, const FileChange& change);

}  // namespace tovera
