#pragma once

#include <filesystem>
#include <set>

#include "platform/registry.h"

namespace tovera::testing {

/// The registry of the user, which is made for one run.
class OwnRegistry {
  public:
    explicit OwnRegistry(const std::string&) {}
    OwnRegistry(const OwnRegistry&) = delete;
    OwnRegistry& operator=(const OwnRegistry&) = delete;
    ~OwnRegistry();
    Registry& port() { return homeRegistry(); }
};

constexpr bool hasRegistry() {
    return true;
}

/// Drive C:, which is made for one run: what a test adds to it goes with the test.
class UserFolder {
  public:
    UserFolder();
    UserFolder(const UserFolder&) = delete;
    UserFolder& operator=(const UserFolder&) = delete;
    ~UserFolder();

    std::string onC(const std::string& path) const { return "C:\\" + path; }
    void makeFile(const std::string& path, const std::string& text = {}) const;
    std::string textOf(const std::string& path) const;

  private:
    std::set<std::filesystem::path> before_;
};

constexpr const char16_t* windowsFolder = u"C:\\windows";
constexpr const char16_t* systemFolder = u"C:\\windows\\system32";
constexpr const char16_t* shortName = u"C:\\UN_L~LIE";  ///< of C:\un long nom

}  // namespace tovera::testing
