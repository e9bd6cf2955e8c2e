#include "platform/linux/kernel32.h"

#include <cerrno>

#include "frame/last_error.h"
#include "platform/linux/code_pages.h"
#include "platform/linux/long_names.h"
#include "platform/linux/paths.h"
#include "platform/linux/profile_file.h"
#include "platform/linux/profile_text.h"

namespace tovera {
namespace {

constexpr I4 done = 1;
constexpr I4 failed = 0;

std::u16string textOf(const AnsiText& text) {
    return fromAnsi1252(text.terminated());
}

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

/// As much of a text as the buffer holds with a NUL behind it; the number of its characters.
I4 fill(AnsiText& buffer, std::string_view text) {
    text = text.substr(0, std::min(text.find('\0'), buffer.bytes.size() - 1));
    buffer.bytes.replace(0, text.size(), text);
    buffer.bytes[text.size()] = '\0';
    return static_cast<I4>(text.size());
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

/// A path into a buffer that may be too small for it: then the size needed, and nothing is written.
I4 give(AnsiText& buffer, std::u16string_view path) {
    const auto bytes = toAnsi1252(path);
    if (buffer.isNull || bytes.size() >= buffer.bytes.size()) return static_cast<I4>(bytes.size() + 1);
    return fill(buffer, bytes);
}

I4 giveIfFound(AnsiText& buffer, const std::optional<std::u16string>& path) {
    lastError() = path ? 0 : ENOENT;
    return path ? give(buffer, *path) : failed;
}

}  // namespace

I4 LinuxKernel32::WritePrivateProfileStringA(const AnsiText& section, const AnsiText& key,
                                             const AnsiText& value, const AnsiText& file) {
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

I4 LinuxKernel32::GetPrivateProfileStringA(const AnsiText& section, const AnsiText& key,
                                           const AnsiText& defaultValue, AnsiText& buffer,
                                           const AnsiText& file) {
    if (buffer.isNull || buffer.bytes.empty()) return 0;
    if (section.isNull) return fillWithList(buffer, readProfile(file, readProfileSections));
    const auto name = section.terminated();
    const auto byDefault = withoutTrailingBlanks(defaultValue.terminated());
    if (key.isNull) {
        auto keys = readProfile(file, [&](const std::string& path) { return readProfileKeys(path, name); });
        return keys.empty() ? fill(buffer, byDefault) : fillWithList(buffer, std::move(keys));
    }
    const auto value = readProfile(
        file, [&](const std::string& path) { return readProfileEntry(path, name, key.terminated()); });
    return fill(buffer, value ? withoutQuotes(*value) : byDefault);
}

I4 LinuxKernel32::WriteProfileStringA(const AnsiText& section, const AnsiText& key, const AnsiText& value) {
    return WritePrivateProfileStringA(section, key, value, {{}, true});
}

I4 LinuxKernel32::GetProfileStringA(const AnsiText& section, const AnsiText& key,
                                    const AnsiText& defaultValue, AnsiText& buffer) {
    return GetPrivateProfileStringA(section, key, defaultValue, buffer, {{}, true});
}

I4 LinuxKernel32::GetSystemDirectoryA(AnsiText& buffer) {
    makeWindowsFolders();
    return give(buffer, systemFolder);
}

I4 LinuxKernel32::GetWindowsDirectoryA(AnsiText& buffer) {
    makeWindowsFolders();
    return give(buffer, windowsFolder);
}

I4 LinuxKernel32::GetLongPathNameA(const AnsiText& shortName, AnsiText& buffer) {
    return giveIfFound(buffer, longPath(textOf(shortName)));
}

I4 LinuxKernel32::GetShortPathNameA(const AnsiText& longName, AnsiText& buffer) {
    return giveIfFound(buffer, shortPath(textOf(longName)));
}

}  // namespace tovera
