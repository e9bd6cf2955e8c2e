#include <array>
#include <glib.h>
#include <memory>
#include <string>

#include "peers/peers.h"

namespace bench {
namespace {

using KeyFile = std::unique_ptr<GKeyFile, decltype([](GKeyFile* file) { g_key_file_unref(file); })>;
using Text = std::unique_ptr<char, decltype([](char* text) { g_free(text); })>;

KeyFile load(const ProfileEntry& entry) {
    KeyFile file(g_key_file_new());
    const auto flags = static_cast<GKeyFileFlags>(G_KEY_FILE_KEEP_COMMENTS | G_KEY_FILE_KEEP_TRANSLATIONS);
    requireSame(g_key_file_load_from_file(file.get(), entry.path.c_str(), flags, nullptr), "GLib");
    return file;
}

std::string readEntry(const ProfileEntry& entry) {
    const auto file = load(entry);
    const Text value(g_key_file_get_string(file.get(), entry.section.c_str(), entry.key.c_str(), nullptr));
    return value ? value.get() : "";
}

Loop read(ProfileEntry entry) {
    requireSame(!readEntry(entry).empty(), "GLib");
    return loopOf([entry] { return readEntry(entry); });
}

Loop write(ProfileEntry entry) {
    return loopOf([entry, odd = false]() mutable {
        const auto file = load(entry);
        const auto* const value =
            (odd = !odd) ? "Another value of ordinary length" : "And a value of ordinary length";
        g_key_file_set_string(file.get(), entry.section.c_str(), entry.key.c_str(), value);
        gsize length = 0;
        const Text text(g_key_file_to_data(file.get(), &length, nullptr));
        constexpr auto durable =
            static_cast<GFileSetContentsFlags>(G_FILE_SET_CONTENTS_CONSISTENT | G_FILE_SET_CONTENTS_DURABLE);
        return g_file_set_contents_full(entry.path.c_str(), text.get(), static_cast<gssize>(length), durable,
                                        0644, nullptr);
    });
}

Loop spawn(std::string program) {
    return loopOf([program] {
        std::array<char*, 2> words{const_cast<char*>(program.c_str()), nullptr};
        constexpr auto silent =
            static_cast<GSpawnFlags>(G_SPAWN_STDOUT_TO_DEV_NULL | G_SPAWN_STDERR_TO_DEV_NULL);
        return g_spawn_async(nullptr, words.data(), nullptr, silent, nullptr, nullptr, nullptr, nullptr);
    });
}

Loop specialFolder() {
    return loopOf([] {
        g_reload_user_special_dirs_cache();
        return g_get_user_special_dir(G_USER_DIRECTORY_DESKTOP);
    });
}

const Installed installedSpawn(glibSpawn, spawn);
const Installed installedSpecialFolder(glibSpecialFolder, specialFolder);
const Installed installedRead(glibRead, read);
const Installed installedWrite(glibWrite, write);

}  // namespace
}  // namespace bench
