#include "automation/registry_changes.h"

#include <ranges>

#include "automation/registry_key.h"

namespace tovera {
namespace {

LSTATUS setText(HKEY key, const RegistryEntry& entry) {
    const auto bytes = (entry.text->size() + 1) * sizeof(wchar_t);
    return RegSetValueExW(key, entry.name.c_str(), 0, REG_SZ,
                          reinterpret_cast<const BYTE*>(entry.text->c_str()), static_cast<DWORD>(bytes));
}

}  // namespace

RegistryChanges::~RegistryChanges() {
    for (const auto& undo : std::views::reverse(undo_)) takeBack(undo);
}

LSTATUS RegistryChanges::write(const RegistryEntry& entry) {
    auto& undo = undo_.emplace_back(Undo{entry, false, false, {}});
    const auto key = RegistryKey::create(root_, entry.key, KEY_READ | KEY_WRITE);
    if (!key) return key.status();
    undo.keyMade = key.isNew();
    if (!entry.text) return ERROR_SUCCESS;
    if (const LSTATUS status = read(key.get(), entry.name, undo.before); status != ERROR_SUCCESS)
        return status;
    undo.textWritten = true;
    return setText(key.get(), entry);
}

/// A name that isn't there is no failure.
LSTATUS RegistryChanges::read(HKEY key, const std::wstring& name, std::optional<Held>& found) {
    Held held;
    DWORD size = 0;
    LSTATUS status = RegQueryValueExW(key, name.c_str(), nullptr, &held.type, nullptr, &size);
    if (status == ERROR_FILE_NOT_FOUND) return ERROR_SUCCESS;
    held.data.resize(size);
    if (status == ERROR_SUCCESS)
        status = RegQueryValueExW(key, name.c_str(), nullptr, &held.type, held.data.data(), &size);
    if (status == ERROR_SUCCESS) found = std::move(held);
    return status;
}

void RegistryChanges::takeBack(const Undo& undo) const {
    const auto key = RegistryKey::open(root_, undo.entry.key, KEY_READ | KEY_WRITE);
    if (!key) return;
    const auto* const name = undo.entry.name.c_str();
    if (undo.textWritten && undo.before) {
        RegSetValueExW(key.get(), name, 0, undo.before->type, undo.before->data.data(),
                       static_cast<DWORD>(undo.before->data.size()));
    } else if (undo.textWritten) {
        RegDeleteValueW(key.get(), name);
    }
    if (undo.keyMade && key.isEmpty()) RegDeleteKeyW(root_, undo.entry.key.c_str());
}

LSTATUS removeEntry(HKEY root, const RegistryEntry& entry) {
    LSTATUS status = ERROR_SUCCESS;
    {
        const auto reader = RegistryKey::open(root, entry.key, KEY_READ);
        if (!reader) return reader.status() == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : reader.status();
        if (entry.text) {
            const auto writer = RegistryKey::open(root, entry.key, KEY_WRITE);
            status = writer ? RegDeleteValueW(writer.get(), entry.name.c_str()) : writer.status();
            return status == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : status;
        }
        if (!reader.isEmpty()) return ERROR_SUCCESS;
    }
    return RegDeleteKeyW(root, entry.key.c_str());
}

bool hasKey(HKEY root, const std::wstring& key, REGSAM view) {
    return static_cast<bool>(RegistryKey::open(root, key, KEY_READ | view));
}

}  // namespace tovera
