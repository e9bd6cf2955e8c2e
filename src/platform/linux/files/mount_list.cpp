#include "platform/linux/files/mount_list.h"

#include <algorithm>

namespace tovera {
namespace {

/// Goes through the fields of a line, which single blanks separate.
class Fields {
  public:
    explicit Fields(std::string_view line) : rest_(line) {}

    std::string_view next() {
        const auto field = rest_.substr(0, rest_.find(' '));
        rest_.remove_prefix(std::min(field.size() + 1, rest_.size()));
        return field;
    }
    void skip(int count) {
        for (; count > 0; --count) next();
    }
    /// Any number of optional fields, up to a hyphen; false when it doesn't come.
    bool skipOptional() {
        while (!rest_.empty())
            if (next() == "-") return true;
        return false;
    }

  private:
    std::string_view rest_;
};

bool isOctal(std::string_view digits) {
    return digits.size() == 3 && std::ranges::all_of(digits, [](char c) { return c >= '0' && c <= '7'; });
}

/// Blanks, line ends and backslashes stand in a field as a backslash and three octal digits.
std::string unescaped(std::string_view field) {
    std::string text(field.substr(0, field.find('\\')));
    field.remove_prefix(text.size());
    while (!field.empty()) {
        const auto digits = field.substr(1, 3);
        if (field.front() == '\\' && isOctal(digits)) {
            text += static_cast<char>((digits[0] - '0') * 64 + (digits[1] - '0') * 8 + (digits[2] - '0'));
            field.remove_prefix(4);
        } else {
            text += field.front();
            field.remove_prefix(1);
        }
    }
    return text;
}

}  // namespace

std::vector<Mount> readMountList(std::string_view list) {
    std::vector<Mount> mounts;
    while (!list.empty()) {
        const auto line = list.substr(0, list.find('\n'));
        list.remove_prefix(std::min(line.size() + 1, list.size()));
        Fields fields(line);
        Mount mount;
        fields.skip(2);  // the mount's number, and that of its parent
        mount.device = fields.next();
        fields.skip(1);  // what of the file system is mounted
        mount.folder = unescaped(fields.next());
        if (!fields.skipOptional()) continue;
        mount.fileSystem = unescaped(fields.next());
        mount.source = unescaped(fields.next());
        if (mount.folder.starts_with('/')) mounts.push_back(std::move(mount));
    }
    return mounts;
}

}  // namespace tovera
