#include "automation/registration.h"

#include <ranges>

#include "automation/registry_changes.h"

namespace tovera {
namespace {

LSTATUS writeEntries(HKEY root, const std::vector<RegistryEntry>& entries) {
    RegistryChanges changes(root);
    for (const auto& entry : entries) {
        if (const LSTATUS status = changes.write(entry); status != ERROR_SUCCESS) return status;
    }
    changes.keep();
    return ERROR_SUCCESS;
}

/// The first failure is told, and the rest is removed all the same.
LSTATUS removeEntries(HKEY root, const std::vector<RegistryEntry>& entries) {
    LSTATUS result = ERROR_SUCCESS;
    for (const auto& entry : std::views::reverse(entries)) {
        const LSTATUS status = removeEntry(root, entry);
        if (result == ERROR_SUCCESS) result = status;
    }
    return result;
}

bool isRegistered(HKEY root, const std::vector<RegistryEntry>& entries) {
    // The last entries are those of the type library, which no other component shares.
    return hasKey(root, entries.back().key);
}

}  // namespace

HRESULT registerComponent() {
    const auto entries = registryEntries();
    LSTATUS status = writeEntries(HKEY_LOCAL_MACHINE, entries);
    if (status == ERROR_ACCESS_DENIED) status = writeEntries(HKEY_CURRENT_USER, entries);
    return HRESULT_FROM_WIN32(status);
}

HRESULT unregisterComponent() {
    const auto entries = registryEntries();
    const bool forUser = isRegistered(HKEY_CURRENT_USER, entries);
    const LSTATUS ofUser = removeEntries(HKEY_CURRENT_USER, entries);
    const LSTATUS ofAll = removeEntries(HKEY_LOCAL_MACHINE, entries);
    // Whoever has no rights for all users has done what they can when their own registration is gone.
    if (forUser && ofAll == ERROR_ACCESS_DENIED) return HRESULT_FROM_WIN32(ofUser);
    return HRESULT_FROM_WIN32(ofUser != ERROR_SUCCESS ? ofUser : ofAll);
}

}  // namespace tovera
