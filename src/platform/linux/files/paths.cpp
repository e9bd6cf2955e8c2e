#include "platform/linux/files/paths.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <sys/stat.h>
#include <vector>

#include "frame/ascii_case.h"
#include "frame/bstr.h"
#include "frame/utf8.h"
#include "platform/linux/files/data_folder.h"
#include "platform/linux/files/drive_letters.h"
#include "platform/linux/files/file_facts.h"
#include "platform/linux/files/named_entry.h"
#include "platform/linux/files/path_text.h"

namespace tovera {
namespace {

char16_t driveLetterOf(std::u16string_view path) {
    if (path.size() < 2 || path[1] != u':') return 0;
    return isAsciiLetter(path[0]) ? smallAscii(path[0]) : u'\0';
}

bool isOnOtherMachine(std::u16string_view path) {
    return path.starts_with(u"\\\\");
}

std::string withSlashes(std::u16string_view path) {
    auto text = toUtf8(path);
    std::ranges::replace(text, '\\', '/');
    return text;
}

/// The path below a drive's root, `.` and `..` taken out; `..` doesn't lead out of the root.
std::string belowRoot(std::string_view path) {
    std::vector<std::string_view> names;
    const bool endsInSlash = path.ends_with('/');
    while (!path.empty()) {
        const auto name = path.substr(0, path.find('/'));
        path.remove_prefix(std::min(name.size() + 1, path.size()));
        if (name == ".." && !names.empty()) names.pop_back();
        if (!name.empty() && name != "." && name != "..") names.push_back(name);
    }
    std::string joined;
    for (const auto name : names) joined.append("/").append(name);
    return endsInSlash || joined.empty() ? joined + '/' : joined;
}

/// The current folder below the root of `C:`, beginning with a slash; nothing where it isn't on `C:`. The
/// system tells it without links, the drive may lie behind one.
std::optional<std::string> currentFolderOnC() {
    std::error_code ignored;
    const auto current = std::filesystem::current_path(ignored).string();
    for (const auto& drive : {driveC(), std::filesystem::weakly_canonical(driveC(), ignored).string()})
        if (!drive.empty() && isBelow(current, drive)) return current.substr(drive.size()) + '/';
    return std::nullopt;
}

/// `C:name` lies in the drive's own current folder: its root where the process's current folder isn't on it.
std::string onC(const std::string& rest) {
    const bool fromRoot = rest.starts_with('/');
    return driveC() + belowRoot(fromRoot ? rest : currentFolderOnC().value_or("/") + rest);
}

/// A path without a drive: no dots of it lead from `C:` to what lies outside.
std::string relative(std::string path) {
    if (path.front() == '/' || path.find("..") == std::string::npos) return path;
    const auto current = currentFolderOnC();
    return current ? driveC() + belowRoot(*current + path) : path;
}

/// Where a drive of another letter is mounted; empty where nothing is.
std::string folderOfDrive(char16_t letter) {
    for (const auto& drive : otherDrives())
        if (smallAscii(char16_t(drive.letter)) == letter) return drive.folder;
    return {};
}

std::string onDrive(char16_t letter, const std::string& rest) {
    const bool fromRoot = rest.starts_with('/');
    if (letter == u'c') return onC(rest);
    if (letter == u'z') return fromRoot ? belowRoot(rest) : rest;
    const auto folder = folderOfDrive(letter);
    return folder.empty() ? folder : folder + belowRoot(rest);
}

/// A path that begins with a backslash starts at the root of the drive that the current folder is on.
std::string rootOfCurrentDrive() {
    return currentFolderOnC() ? driveC() : std::string();
}

bool exists(const std::string& path) {
    return factsOf(path).has_value();
}

}  // namespace

std::string driveC() {
    return dataFolder() + "/drive_c";
}

std::string hostPath(std::u16string_view path) {
    path = beforeNul(path);
    if (path.starts_with(u"\\\\?\\")) path.remove_prefix(4);
    if (path.empty() || isOnOtherMachine(path)) return {};
    if (const auto letter = driveLetterOf(path)) return onDrive(letter, withSlashes(path.substr(2)));
    if (path.front() == u'\\') return rootOfCurrentDrive() + belowRoot(withSlashes(path));
    return relative(withSlashes(path));
}

std::string foundPath(std::string_view hostPath) {
    std::string path(hostPath);
    if (path.empty() || exists(path)) return path;
    std::string found;
    std::string_view rest = path;
    while (!rest.empty()) {
        const auto slashes = std::min(rest.find_first_not_of('/'), rest.size());
        const auto name = std::string(rest.substr(slashes, rest.substr(slashes).find('/')));
        const auto folder = found.empty() && slashes == 0 ? found : found + '/';
        const auto entry = name.empty() ? std::string() : entryNamed(folder, name);
        if (!entry) return found.append(rest);
        found.append(rest.substr(0, slashes)).append(*entry);
        rest.remove_prefix(slashes + name.size());
    }
    return found;
}

std::string foundHostPath(std::u16string_view path) {
    const auto written = hostPath(path);
    if (isBelow(written, driveC()) && !exists(written)) makeWindowsFolders();
    return foundPath(written);
}

void makeWindowsFolders() {
    if (exists(hostPath(systemFolder))) return;
    std::error_code ignored;
    std::filesystem::create_directories(driveC(), ignored);
    for (const auto folder : {windowsFolder, systemFolder}) {
        mkdir(foundPath(hostPath(folder)).c_str(), 0777);
    }
}

std::u16string windowsPath(std::string_view hostPath) {
    const auto drive = driveC();
    const bool onC = isBelow(hostPath, drive);
    auto text = fromUtf8(onC ? hostPath.substr(drive.size()) : hostPath);
    std::ranges::replace(text, u'/', u'\\');
    if (text.empty()) text = u"\\";
    return (onC ? u"C:" : u"Z:") + text;
}

}  // namespace tovera
