#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdlib.h>
#include <string>
#include <sys/mount.h>

namespace tovera::testing {

inline std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// A folder of its own for one test, gone with it.
class TemporaryFolder {
  public:
    TemporaryFolder() {
        auto pattern = (std::filesystem::temp_directory_path() / "tovera-XXXXXX").string();
        path_ = mkdtemp(pattern.data());
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    std::string operator/(const std::string& name) const { return path_ + "/" + name; }
    const std::string& path() const { return path_; }

  private:
    std::string path_;
};

/// A small disk of its own for one test, which only root can have.
class TemporaryDisk {
  public:
    explicit TemporaryDisk(const std::string& size) : isThere_(mountWith(0, size)) {}
    TemporaryDisk(const TemporaryDisk&) = delete;
    TemporaryDisk& operator=(const TemporaryDisk&) = delete;
    ~TemporaryDisk() {
        if (isThere_) umount2(folder_.path().c_str(), MNT_DETACH);
    }

    bool isThere() const { return isThere_; }
    bool resize(const std::string& size) { return mountWith(MS_REMOUNT, size); }
    bool makeReadOnly() { return mountWith(MS_REMOUNT | MS_RDONLY, "100%"); }
    std::string operator/(const std::string& name) const { return folder_ / name; }

  private:
    bool mountWith(unsigned long flags, const std::string& size) {
        return mount("none", folder_.path().c_str(), "tmpfs", flags, ("size=" + size).c_str()) == 0;
    }

    TemporaryFolder folder_;
    bool isThere_;
};

}  // namespace tovera::testing
