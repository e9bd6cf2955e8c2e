#pragma once

#include "platform/linux/libraries/shared_library.h"
#include "platform/linux/registry/registry.h"
#include "platform/linux/temporary_folder.h"

namespace tovera::testing {

/// A registry on a store of the test's own.
class OwnRegistry {
  public:
    explicit OwnRegistry(const std::string& store) : made_(makeRegistry(store)) {}
    Registry& port() { return *made_; }

  private:
    std::unique_ptr<Registry> made_;
};

/// Whether this system has what the store is made with.
inline bool hasRegistry() {
#if __has_include(<lmdb.h>)
    return SharedLibrary("liblmdb.so.0").isPresent();
#else
    return false;
#endif
}

constexpr const char16_t* windowsFolder = u"C:\\WINDOWS";
constexpr const char16_t* systemFolder = u"C:\\WINDOWS\\SYSTEM32";
constexpr const char16_t* shortName = u"C:\\UNLONG~1";  ///< of C:\un long nom

}  // namespace tovera::testing
