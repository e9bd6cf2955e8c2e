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
LSTATUS removeEntries(HKEY root, const std::vector<RegistryEntry>& entries, Owner owner) {
    LSTATUS result = ERROR_SUCCESS;
    for (const auto& entry : std::views::reverse(entries)) {
        const LSTATUS status = entry.owner == owner ? removeEntry(root, entry) : ERROR_SUCCESS;
        if (result == ERROR_SUCCESS) result = status;
    }
    return result;
}

/// On a system without the other bitness its view is this one's.
constexpr REGSAM viewOfTheOther = sizeof(void*) == 8 ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;

/// What both bitnesses share stays as long as either is registered.
LSTATUS removeFrom(HKEY root, const std::vector<RegistryEntry>& entries) {
    LSTATUS result = ERROR_SUCCESS;
    const auto remove = [&](Owner owner) {
        const LSTATUS status = removeEntries(root, entries, owner);
        if (result == ERROR_SUCCESS) result = status;
    };
    remove(Owner::ThisBitness);
    if (!hasKey(root, keyOfOtherLibrary())) remove(Owner::Library);
    if (!hasKey(root, keyOfFirstClass(), viewOfTheOther)) remove(Owner::Names);
    return result;
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
    const bool forUser = hasKey(HKEY_CURRENT_USER, keyOfFirstClass());
    const LSTATUS ofUser = removeFrom(HKEY_CURRENT_USER, entries);
    const LSTATUS ofAll = removeFrom(HKEY_LOCAL_MACHINE, entries);
    // Whoever has no rights for all users has done what they can when their own registration is gone.
    if (forUser && ofAll == ERROR_ACCESS_DENIED) return HRESULT_FROM_WIN32(ofUser);
    return HRESULT_FROM_WIN32(ofUser != ERROR_SUCCESS ? ofUser : ofAll);
}

}  // namespace tovera
