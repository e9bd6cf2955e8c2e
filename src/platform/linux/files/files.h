#pragma once

#include "platform/files.h"

namespace tovera {

/// The run-time's operations on files of this system.
class LinuxFiles : public Files {
  public:
    void rename(const Bstr& oldPath, const Bstr& newPath) override;
    void readI2(const Bstr& path, I4 position, I2& number) override;
    void append(const Bstr& path, std::string_view bytes) override;
    void changeFolder(const Bstr& path) override;
    std::vector<Bstr> filesLike(const Bstr& pattern) override;
    void copy(const Bstr& source, const Bstr& target) override;
    void remove(const Bstr& path) override;
};

}  // namespace tovera
