#pragma once

#include "platform/files.h"

namespace tovera {

class WindowsFiles : public Files {
  public:
    void rename(const Bstr& oldPath, const Bstr& newPath) override;
};

}  // namespace tovera
