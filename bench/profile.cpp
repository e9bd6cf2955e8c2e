#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "frame/utf8.h"
#include "peers/peers.h"
#include "registry/cls_initreg.h"

using namespace tovera;

namespace bench {
namespace {

/// A profile file with this many keys in sections of a hundred, as ours and the peers find it.
class ProfileFile {
  public:
    explicit ProfileFile(int keys)
        : path_(std::filesystem::temp_directory_path() / ("tovera-bench-" + std::to_string(keys) + ".ini")),
          file_(Bstr(fromUtf8(path_.string()))) {
        std::ofstream out(path_);
        for (int i = 0; i < keys; ++i) {
            if (i % 100 == 0) out << "[Section" << i / 100 << "]\n";
            out << "Key" << i << "=A value of ordinary length, number " << i << "\n";
        }
        section_ = fromUtf8("Section" + std::to_string((keys - 1) / 200));
        key_ = fromUtf8("Key" + std::to_string((keys - 1) / 200 * 100 + 50));
    }
    ProfileFile(const ProfileFile&) = delete;
    ProfileFile& operator=(const ProfileFile&) = delete;
    ~ProfileFile() { std::filesystem::remove(path_); }

    ProfileEntry entry() const { return {path_.string(), toUtf8(section_), toUtf8(key_)}; }
    Bstr read() {
        Bstr none;
        return object_.IniLire(section_, key_, none, file_);
    }
    /// Another value each time: one that stands there already would not be written.
    I4 write() {
        Bstr value = (odd_ = !odd_) ? u"Another value of ordinary length" : u"And a value of ordinary length";
        return object_.IniEcrire(section_, key_, value, file_);
    }

  private:
    std::filesystem::path path_;
    Bstr file_;
    Bstr section_;
    Bstr key_;
    bool odd_ = false;
    Cls_InitREG object_;
};

/// The file is opened anew for each operation, by all of them; a write replaces it whole and syncs it.
const Group profiles([] {
    std::vector<Row> rows;
    const auto add = [&](const std::string& name, const Loop& ours, const char* peer, const Loop& theirs,
                         double target) {
        rows.push_back({name, ours, {peer, theirs}, target});
    };
    for (const int keys : {100, 10'000}) {
        const auto file = std::make_shared<ProfileFile>(keys);
        const auto entry = file->entry();
        requireSame(file->read().length() > 30, "profile file");
        const auto of = " of " + std::to_string(keys) + " keys";
        const auto read = loopOf([=] { return file->read(); });
        const auto write = loopOf([=] { return file->write(); });
        add("profile read" + of, read, "GLib key file", loopIfInstalled(glibRead, entry),
            keys == 100 ? 5 : 20);
        add("profile read" + of, read, "SimpleIni", loopIfInstalled(simpleIniRead, entry), 0);
        add("profile write" + of, write, "GLib key file", loopIfInstalled(glibWrite, entry), 1);
    }
    return rows;
});

}  // namespace
}  // namespace bench
