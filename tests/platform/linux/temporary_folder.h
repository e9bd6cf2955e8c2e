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
struct TemporaryDisk : TemporaryFolder {
    explicit TemporaryDisk(const std::string& size) : isThere(mountWith(0, size)) {}
    ~TemporaryDisk() {
        if (isThere) umount2(path().c_str(), MNT_DETACH);
    }
    bool resize(const std::string& size) { return mountWith(MS_REMOUNT, size); }
    bool makeReadOnly() { return mountWith(MS_REMOUNT | MS_RDONLY, "100%"); }

    const bool isThere;

  private:
    bool mountWith(unsigned long flags, const std::string& size) {
        return mount("none", path().c_str(), "tmpfs", flags, ("size=" + size).c_str()) == 0;
    }
};

/// A data folder of its own for one test, with drive C: in it. The current folder is put back at the end.
class UserFolder {
  public:
    UserFolder() { setenv("XDG_DATA_HOME", folder_.path().c_str(), 1); }
    ~UserFolder() {
        std::filesystem::current_path(before_);
        unsetenv("XDG_DATA_HOME");
    }

    /// A path of the system, for one below C:.
    std::string onC(const std::string& path) const { return folder_ / ("tovera/drive_c/" + path); }
    void makeFile(const std::string& path, const std::string& text = {}) const {
        std::filesystem::create_directories(std::filesystem::path(onC(path)).parent_path());
        std::ofstream(onC(path), std::ios::binary) << text;
    }
    std::string textOf(const std::string& path) const { return contentOf(onC(path)); }

  private:
    TemporaryFolder folder_;
    std::filesystem::path before_ = std::filesystem::current_path();
};

}  // namespace tovera::testing
