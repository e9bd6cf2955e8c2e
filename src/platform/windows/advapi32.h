#pragma once

#include "platform/advapi32.h"

namespace tovera {

class WindowsAdvapi32 : public Advapi32 {
  public:
    I4 RegOpenKeyExA(I4 key, const AnsiText& subKey, I4 options, I4 access, I4& opened) override;
    I4 RegCreateKeyA(I4 key, const AnsiText& subKey, I4& created) override;
    I4 RegSetValueExA(I4 key, const AnsiText& name, I4 reserved, I4 type,
                      std::span<const std::byte> data) override;
    I4 RegQueryValueExA(I4 key, const AnsiText& name, I4& type, std::span<std::byte> data, I4& size) override;
    I4 RegDeleteKeyA(I4 key, const AnsiText& subKey) override;
    I4 RegCloseKey(I4 key) override;
};

}  // namespace tovera
