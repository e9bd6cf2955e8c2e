#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "platform/linux/temporary_folder.h"

namespace tovera::testing {

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
