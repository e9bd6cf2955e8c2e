#pragma once

#include "platform/kernel32.h"

namespace tovera {

class WindowsKernel32 : public Kernel32 {
  public:
    I4 WritePrivateProfileStringA(const AnsiText& section, const AnsiText& key, const AnsiText& value,
                                  const AnsiText& file) override;
    I4 GetPrivateProfileStringA(const AnsiText& section, const AnsiText& key, const AnsiText& defaultValue,
                                AnsiText& buffer, const AnsiText& file) override;
    I4 WriteProfileStringA(const AnsiText& section, const AnsiText& key, const AnsiText& value) override;
    I4 GetProfileStringA(const AnsiText& section, const AnsiText& key, const AnsiText& defaultValue,
                         AnsiText& buffer) override;
    I4 GetSystemDirectoryA(AnsiText& buffer) override;
    I4 GetWindowsDirectoryA(AnsiText& buffer) override;
    I4 GetLongPathNameA(const AnsiText& shortName, AnsiText& buffer) override;
    I4 GetShortPathNameA(const AnsiText& longName, AnsiText& buffer) override;
};

}  // namespace tovera
