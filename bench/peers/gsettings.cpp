#define G_SETTINGS_ENABLE_BACKEND
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gio/gio.h>
#include <gio/gsettingsbackend.h>
#include <memory>
#include <string>
#include <vector>

#include "peers/peers.h"

namespace bench {
namespace {

constexpr const char* text = "C:\\Program Files\\Some Product\\Its Folder";

template <class T>
using Counted = std::unique_ptr<T, decltype([](T* object) { g_object_unref(object); })>;

/// The settings of so many products, one text each, on GLib's own file backend, which keeps them without a
/// daemon. The schema is compiled here.
class Settings {
  public:
    explicit Settings(int products)
        : folder_(std::filesystem::temp_directory_path() /
                  ("tovera-bench-settings-" + std::to_string(products))),
          products_(static_cast<unsigned>(products)) {
        std::filesystem::remove_all(folder_);
        std::filesystem::create_directories(folder_);
        std::ofstream(folder_ / "bench.gschema.xml")
            << "<schemalist><schema id='bench.product'><key name='rep-install' type='s'><default>''</default>"
               "</key></schema></schemalist>";
        requireSame(std::system(("glib-compile-schemas " + folder_.string()).c_str()) == 0, "GSettings");
        source_ = g_settings_schema_source_new_from_directory(folder_.c_str(), nullptr, FALSE, nullptr);
        schema_ = g_settings_schema_source_lookup(source_, "bench.product", FALSE);
        backend_.reset(g_keyfile_settings_backend_new((folder_ / "settings").c_str(), "/", nullptr));
        for (unsigned i = 0; i < products_; ++i) write(i);
        requireSame(read(0) == text, "GSettings");
    }
    Settings(const Settings&) = delete;
    Settings& operator=(const Settings&) = delete;
    ~Settings() {
        g_settings_schema_unref(schema_);
        g_settings_schema_source_unref(source_);
        std::filesystem::remove_all(folder_);
    }

    std::string read() { return read(next()); }
    bool write() { return write(next()); }

  private:
    Counted<GSettings> open(unsigned product) const {
        const auto path = "/software/bench/product" + std::to_string(product) + "/";
        return Counted<GSettings>(g_settings_new_full(schema_, backend_.get(), path.c_str()));
    }
    std::string read(unsigned product) const {
        const auto settings = open(product);
        const std::unique_ptr<char, decltype([](char* value) { g_free(value); })> value(
            g_settings_get_string(settings.get(), "rep-install"));
        return value.get();
    }
    bool write(unsigned product) const {
        const auto settings = open(product);
        const bool written = g_settings_set_string(settings.get(), "rep-install", text);
        g_settings_sync();
        return written;
    }
    unsigned next() {
        seed_ = seed_ * 1664525U + 1013904223U;
        return (seed_ >> 8U) % products_;
    }

    std::filesystem::path folder_;
    unsigned products_;
    GSettingsSchemaSource* source_ = nullptr;
    GSettingsSchema* schema_ = nullptr;
    Counted<GSettingsBackend> backend_;
    unsigned seed_ = 1;
};

Loop read(int products) {
    return loopOf([settings = std::make_shared<Settings>(products)] { return settings->read(); });
}

Loop write(int products) {
    return loopOf([settings = std::make_shared<Settings>(products)] { return settings->write(); });
}

const Installed installedRead(gsettingsRead, read);
const Installed installedWrite(gsettingsWrite, write);

}  // namespace
}  // namespace bench
