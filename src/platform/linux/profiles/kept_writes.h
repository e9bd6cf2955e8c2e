#pragma once

#include <map>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/linux/profiles/profile_text.h"

namespace tovera {

/// Writes to entries of profile files, kept until they are made: those of one file at once.
class KeptWrites {
  public:
    KeptWrites() = default;
    KeptWrites(const KeptWrites&) = delete;
    KeptWrites& operator=(const KeptWrites&) = delete;
    ~KeptWrites() { make(); }

    /// Of several values of one entry the last counts.
    void keep(const std::string& path, EntryWrite write);
    /// What fails leaves its file as it was.
    void make() noexcept;

  private:
    struct FileWrites {
        std::vector<EntryWrite> writes;
        std::unordered_map<std::string, std::size_t> places;  ///< by section and key in capitals
    };

    std::map<std::string, FileWrites> files_;
};

}  // namespace tovera
