#include "platform/linux/registry/registry.h"

#include <filesystem>
#include <memory>
#include <string>

#include "peers/peers.h"
#include "registry/cls_initreg.h"

using namespace tovera;

namespace bench {
namespace {

constexpr const char16_t* text = u"C:\\Program Files\\Some Product\\Its Folder";

/// A registry of its own with this many keys of one value each, in a folder that goes with it.
class Filled {
  public:
    explicit Filled(int keys)
        : folder_(makeFolder(keys)),
          registry_(makeRegistry(folder_)),
          platform_(home().with(*registry_)),
          object_(platform_),
          keys_(static_cast<unsigned>(keys)) {
        for (unsigned i = 0; i < keys_; ++i) {
            auto path = pathOf(i);
            object_.CreerREG_Cle(path);
            write(i);
        }
    }
    Filled(const Filled&) = delete;
    Filled& operator=(const Filled&) = delete;
    ~Filled() { std::filesystem::remove_all(folder_); }

    Variant read() { return read(next()); }
    Variant write() { return write(next()); }
    Variant read(unsigned i) {
        auto path = pathOf(i);
        Bstr entry = u"RepInstall";
        return object_.LireREG_STRING(path, entry);
    }

  private:
    static std::string makeFolder(int keys) {
        auto pattern =
            (std::filesystem::temp_directory_path() / ("tovera-bench-" + std::to_string(keys))).string();
        std::filesystem::remove_all(pattern);
        return pattern;
    }
    static Bstr pathOf(unsigned i) {
        const auto digits = std::to_string(i);
        return join(u"HKEY_CURRENT_USER\\Software\\Bench\\Product",
                    std::u16string(digits.begin(), digits.end()));
    }
    Variant write(unsigned i) {
        auto path = pathOf(i);
        Bstr entry = u"RepInstall";
        Bstr value = text;
        return object_.EcrireREG_STRING(path, entry, value);
    }
    /// Keys in an order that no cache foresees.
    unsigned next() {
        seed_ = seed_ * 1664525U + 1013904223U;
        return (seed_ >> 8U) % keys_;
    }

    std::string folder_;
    std::unique_ptr<Registry> registry_;
    Platform platform_;
    Cls_InitREG object_;
    unsigned keys_;
    unsigned seed_ = 1;
};

const Group registry([] {
    std::vector<Row> rows;
    for (const int keys : {100, 100'000}) {
        const auto filled = std::make_shared<Filled>(keys);
        requireSame(filled->read(0) == Variant(text), "registry");
        const auto of = " of " + std::to_string(keys) + " keys";
        rows.push_back({"registry read" + of,
                        loopOf([=] { return filled->read(); }),
                        {"SQLite WAL", loopIfInstalled(sqliteRead, keys)},
                        2});
        rows.push_back({"registry write" + of,
                        loopOf([=] { return filled->write(); }),
                        {"SQLite WAL", loopIfInstalled(sqliteWrite, keys)},
                        1});
        // Its file is rewritten whole at each write: with the large number of keys nobody would wait for it.
        if (keys > 1000) continue;
        rows.push_back({"registry read" + of,
                        loopOf([=] { return filled->read(); }),
                        {"GSettings", loopIfInstalled(gsettingsRead, keys)}});
        rows.push_back({"registry write" + of,
                        loopOf([=] { return filled->write(); }),
                        {"GSettings", loopIfInstalled(gsettingsWrite, keys)}});
    }
    return rows;
});

}  // namespace
}  // namespace bench
