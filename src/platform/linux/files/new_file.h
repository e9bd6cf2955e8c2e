#pragma once

#include <string>
#include <string_view>
#include <sys/stat.h>

#include "platform/linux/files/file_descriptor.h"

namespace tovera {

/// A file that is written piece by piece and gets its name when it is whole. Until then, and when this
/// process ends before, what stands under that name is as it was, and nothing else is left.
class NewFile {
  public:
    NewFile() = default;
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;
    ~NewFile();

    /// Begins a file for a path in a folder that exists. What stands there must be a regular file that may be
    /// written, or nothing. Of a symbolic link it is the file that the link leads to.
    int begin(const std::string& path);
    int append(std::string_view bytes);
    /// The file takes its name, with all that goes with the one that had it.
    int finish();

  private:
    int openNameless();
    int replaceOld();
    int finishInPlace(const FileDescriptor& old, const struct stat& facts);

    FileDescriptor folder_;
    std::string folderPath_;
    FileDescriptor file_;
    std::string name_;
    std::string ownName_;  ///< for the time being, where the file system has no files without one
};

}  // namespace tovera
