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
    undo_.push_back({entry, false, REG_NONE, {}, false});
    auto& undo = undo_.back();
    const auto key = RegistryKey::create(root_, entry.key, KEY_READ | KEY_WRITE);
    if (!key) return key.status();
    undo.keyMade = key.isNew();
    if (!entry.text) return ERROR_SUCCESS;
    DWORD size = 0;
    const LSTATUS status =
        RegQueryValueExW(key.get(), entry.name.c_str(), nullptr, &undo.type, nullptr, &size);
    undo.data.resize(size);
    undo.hadData =
        status == ERROR_SUCCESS && RegQueryValueExW(key.get(), entry.name.c_str(), nullptr, &undo.type,
                                                    undo.data.data(), &size) == ERROR_SUCCESS;
    return setText(key.get(), entry);
}

void RegistryChanges::takeBack(const Undo& undo) const {
    const auto key = RegistryKey::open(root_, undo.entry.key, KEY_READ | KEY_WRITE);
    if (!key) return;
    if (undo.hadData) {
        RegSetValueExW(key.get(), undo.entry.name.c_str(), 0, undo.type, undo.data.data(),
                       static_cast<DWORD>(undo.data.size()));
    } else if (undo.entry.text) {
        RegDeleteValueW(key.get(), undo.entry.name.c_str());
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

bool hasKey(HKEY root, const std::wstring& key) {
    return static_cast<bool>(RegistryKey::open(root, key, KEY_READ));
}

}  // namespace tovera
