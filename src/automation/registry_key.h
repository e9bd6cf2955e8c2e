#pragma once

#include <string>
#include <utility>

#include "platform/windows/system.h"

namespace tovera {

/// An open key of the registry, or the status that tells why there is none.
class RegistryKey {
  public:
    static RegistryKey open(HKEY root, const std::wstring& path, REGSAM access) {
        RegistryKey key;
        key.status_ = RegOpenKeyExW(root, path.c_str(), 0, access, &key.handle_);
        return key;
    }
    static RegistryKey create(HKEY root, const std::wstring& path, REGSAM access) {
        RegistryKey key;
        DWORD disposition = 0;
        key.status_ =
            RegCreateKeyExW(root, path.c_str(), 0, nullptr, 0, access, nullptr, &key.handle_, &disposition);
        key.isNew_ = disposition == REG_CREATED_NEW_KEY;
        return key;
    }
    RegistryKey(RegistryKey&& other) noexcept
        : handle_(std::exchange(other.handle_, nullptr)), status_(other.status_), isNew_(other.isNew_) {}
    RegistryKey& operator=(RegistryKey&&) = delete;
    ~RegistryKey() {
        if (handle_) RegCloseKey(handle_);
    }

    HKEY get() const { return handle_; }
    LSTATUS status() const { return status_; }
    bool isNew() const { return isNew_; }
    explicit operator bool() const { return status_ == ERROR_SUCCESS; }

    bool isEmpty() const {
        DWORD keys = 0;
        DWORD values = 0;
        return RegQueryInfoKeyW(handle_, nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values, nullptr,
                                nullptr, nullptr, nullptr) == ERROR_SUCCESS &&
               keys == 0 && values == 0;
    }

  private:
    RegistryKey() = default;

    HKEY handle_ = nullptr;
    LSTATUS status_ = ERROR_SUCCESS;
    bool isNew_ = false;
};

}  // namespace tovera
