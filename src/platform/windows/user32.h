#pragma once

#include "platform/user32.h"

namespace tovera {

class WindowsUser32 : public User32 {
  public:
    I4 OemToCharA(const AnsiText& source, AnsiText& target) override;
};

}  // namespace tovera
