#pragma once

#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "platform/advapi32.h"
#include "platform/linux/registry_store.h"

namespace tovera {

/// The registry on a store of the user's own. All seven roots are the user's; HKEY_CLASSES_ROOT shows the
/// classes of HKEY_CURRENT_USER in front of those of HKEY_LOCAL_MACHINE.
class LinuxAdvapi32 : public Advapi32 {
  public:
    explicit LinuxAdvapi32(std::string registryFolder) : store_(std::move(registryFolder)) {}

    I4 RegOpenKeyExA(I4 key, const AnsiText& subKey, I4 options, I4 access, I4& opened) override;
    I4 RegCreateKeyA(I4 key, const AnsiText& subKey, I4& created) override;
    I4 RegSetValueExA(I4 key, const AnsiText& name, I4 reserved, I4 type,
                      std::span<const std::byte> data) override;
    I4 RegQueryValueExA(I4 key, const AnsiText& name, I4& type, std::span<std::byte> data, I4& size) override;
    I4 RegDeleteKeyA(I4 key, const AnsiText& subKey) override;
    I4 RegCloseKey(I4 key) override;

  private:
    struct OpenKey {
        KeyPlace place;
        /// Of a class key: the same key of the machine, which shows through where the user has nothing.
        std::optional<KeyPlace> behind;
        I4 access = 0;
        bool isOpen = false;
    };

    std::optional<OpenKey> keyOf(I4 handle);
    I4 find(const OpenKey& key, const AnsiText& subKey, OpenKey& found);
    I4 handleFor(OpenKey key);

    RegistryStore store_;
    std::mutex mutex_;
    std::vector<OpenKey> keys_;
    std::vector<std::size_t> freePlaces_;
};

}  // namespace tovera
