#include "platform/profiles.h"

#include <cerrno>

#include "frame/last_error.h"
#include "platform/linux/files/paths.h"
#include "platform/linux/profiles/kept_writes.h"
#include "platform/linux/profiles/profile_file.h"
#include "platform/linux/profiles/profile_text.h"
#include "platform/linux/text/ansi_buffer.h"

namespace tovera {
namespace {

constexpr I4 done = 1;
constexpr I4 failed = 0;

/// A bare name lies in the Windows folder, and no name at all means WIN.INI.
std::u16string profileName(const AnsiText& file) {
    auto name = file.isNull ? std::u16string(u"WIN.INI") : textOf(file);
    if (name.empty() || name.find_first_of(u"\\/:") != std::u16string::npos) return name;
    return std::u16string(windowsFolder).append(u"\\").append(name);
}

/// Reads from the file as it is named; only when it isn't there the names are looked up.
template <class Read>
auto readProfile(const AnsiText& file, Read read) {
    const auto name = profileName(file);
    auto found = read(hostPath(name));
    if (lastError() == ENOENT || lastError() == ENOTDIR) found = read(foundHostPath(name));
    return found;
}

/// A list of names, each with its NUL, and one NUL more. In a buffer that this fills to its end or beyond the
/// last name is cut in front of the two last NULs.
I4 fillWithList(AnsiText& buffer, std::string list) {
    const auto size = buffer.bytes.size();
    if (list.empty() || size < 3) return fill(buffer, {});
    if (list.size() + 1 >= size) {
        list.resize(size - 2);
        buffer.bytes = list + std::string(2, '\0');
    } else {
        buffer.bytes.replace(0, list.size() + 1, list + '\0');
    }
    return static_cast<I4>(list.size());
}

std::string_view withoutTrailingBlanks(std::string_view text) {
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

class LinuxProfiles : public Profiles {
  public:
    I4 WritePrivateProfileStringA(const AnsiText& section, const AnsiText& key, const AnsiText& value,
                                  const AnsiText& file) override {
        if (section.isNull) {
            lastError() = ENOENT;
            return failed;
        }
        const auto path = foundHostPath(profileName(file));
        const auto name = section.terminated();
        if (key.isNull) return removeProfileSection(path, name) ? done : failed;
        if (value.isNull) return removeProfileEntry(path, name, key.terminated()) ? done : failed;
        return writeProfileEntry(path, name, key.terminated(), value.terminated()) ? done : failed;
    }

    I4 GetPrivateProfileStringA(const AnsiText& section, const AnsiText& key, const AnsiText& defaultValue,
                                AnsiText& buffer, const AnsiText& file) override {
        if (buffer.isNull || buffer.bytes.empty()) return 0;
        if (section.isNull) return fillWithList(buffer, readProfile(file, readProfileSections));
        const auto name = section.terminated();
        const auto byDefault = withoutTrailingBlanks(defaultValue.terminated());
        if (key.isNull) {
            auto keys =
                readProfile(file, [&](const std::string& path) { return readProfileKeys(path, name); });
            return keys.empty() ? fill(buffer, byDefault) : fillWithList(buffer, std::move(keys));
        }
        const auto value = readProfile(
            file, [&](const std::string& path) { return readProfileEntry(path, name, key.terminated()); });
        return fill(buffer, value ? withoutQuotes(*value) : byDefault);
    }

    I4 WriteProfileStringA(const AnsiText& section, const AnsiText& key, const AnsiText& value) override {
        return WritePrivateProfileStringA(section, key, value, {{}, true});
    }

    I4 GetProfileStringA(const AnsiText& section, const AnsiText& key, const AnsiText& defaultValue,
                         AnsiText& buffer) override {
        return GetPrivateProfileStringA(section, key, defaultValue, buffer, {{}, true});
    }

    std::unique_ptr<Profiles> keepingWrites() override;
};

class KeepingProfiles : public LinuxProfiles {
    I4 WritePrivateProfileStringA(const AnsiText& section, const AnsiText& key, const AnsiText& value,
                                  const AnsiText& file) override {
        if (section.isNull || key.isNull) {
            kept_.make();
            return LinuxProfiles::WritePrivateProfileStringA(section, key, value, file);
        }
        EntryWrite write{std::string(section.terminated()), std::string(key.terminated()), std::nullopt};
        if (!value.isNull) write.value = value.terminated();
        kept_.keep(foundHostPath(profileName(file)), std::move(write));
        return done;
    }

    I4 GetPrivateProfileStringA(const AnsiText& section, const AnsiText& key, const AnsiText& defaultValue,
                                AnsiText& buffer, const AnsiText& file) override {
        kept_.make();
        return LinuxProfiles::GetPrivateProfileStringA(section, key, defaultValue, buffer, file);
    }

    KeptWrites kept_;
};

std::unique_ptr<Profiles> LinuxProfiles::keepingWrites() {
    return std::make_unique<KeepingProfiles>();
}

}  // namespace

Profiles& homeProfiles() {
    static LinuxProfiles port;
    return port;
}

}  // namespace tovera
