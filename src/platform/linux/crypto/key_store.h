#pragma once

#include <optional>
#include <string>

#include "frame/values.h"
#include "platform/linux/crypto/key_pair.h"

namespace tovera {

/// The user's container of key pairs: a folder of his own (0700) with a file for each pair (0600). A file is
/// made whole or not at all, and never replaced. The functions give 0 or the provider's error code.
class KeyStore {
  public:
    explicit KeyStore(std::string folder) : folder_(std::move(folder)) {}

    /// Looks whether the folder is there, and nobody else can write it.
    I4 open() const;
    /// Makes the folder. One without any file counts as just made: another process may have been quicker.
    I4 create() const;

    /// Reads a pair, by the provider's number for it.
    I4 read(I4 pair, std::optional<KeyPair>& found) const;
    /// Makes a pair and stores it. Where another process has been quicker, its pair is taken.
    I4 make(I4 pair, std::optional<KeyPair>& made) const;

  private:
    std::string fileOf(I4 pair) const;

    std::string folder_;
};

}  // namespace tovera
