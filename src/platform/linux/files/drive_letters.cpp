#include "platform/linux/files/drive_letters.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <iterator>
#include <optional>
#include <sys/sysmacros.h>

#include "platform/drives.h"
#include "platform/linux/files/data_folder.h"
#include "platform/linux/files/file_facts.h"
#include "platform/linux/files/mount_list.h"
#include "platform/linux/files/path_text.h"
#include "platform/linux/files/whole_file.h"

namespace tovera {
namespace {

constexpr std::array<std::string_view, 3> userFolders{"/media", "/run/media", "/mnt"};
constexpr std::array<std::string_view, 9> networkFileSystems{
    "cifs", "smb3", "smbfs", "nfs", "nfs4", "fuse.sshfs", "fuse.davfs", "davfs", "9p"};
constexpr std::array<std::string_view, 2> opticalFileSystems{"iso9660", "udf"};
constexpr std::string_view letters = "DEFGHIJKLMNOPQRSTUVWXY";

/// A volume that is to have a letter: what it is known by, and what is there now.
struct Volume {
    std::string identity;
    Drive drive;
};

bool isOneOf(const auto& names, std::string_view name) {
    return std::ranges::find(names, name) != std::end(names);
}

bool isForUsers(const Mount& mount) {
    return std::ranges::any_of(userFolders, [&](std::string_view folder) {
        return mount.folder != folder && isBelow(mount.folder, folder);
    });
}

/// Not the kernel's own file systems, nor a place that is mounted only when somebody looks.
bool holdsFiles(const Mount& mount) {
    return mount.source.starts_with('/') || mount.fileSystem == "tmpfs" ||
           mount.fileSystem.starts_with("fuse.") || isOneOf(networkFileSystems, mount.fileSystem);
}

/// The numbers of the device that a file system lies on. Some have a number of their own in the kernel's
/// list.
std::string deviceOf(const DriveSources& sources, const Mount& mount) {
    constexpr std::string_view devices = "/dev";
    if (!isBelow(mount.source, devices)) return mount.device;
    const auto facts = factsOfTarget(sources.devices + mount.source.substr(devices.size()));
    if (!facts || !S_ISBLK(facts->st_mode)) return mount.device;
    return std::to_string(major(facts->st_rdev)) + ':' + std::to_string(minor(facts->st_rdev));
}

/// Of a partition, the disk that it is on tells.
bool isRemovable(const DriveSources& sources, const Mount& mount) {
    const auto device = sources.blockDevices + '/' + deviceOf(sources, mount);
    return wholeText(device + "/removable").starts_with('1') ||
           wholeText(device + "/../removable").starts_with('1');
}

I4 typeOf(const DriveSources& sources, const Mount& mount) {
    if (isOneOf(networkFileSystems, mount.fileSystem)) return driveTypes::remote;
    if (mount.fileSystem == "tmpfs") return driveTypes::ramDisk;
    if (isOneOf(opticalFileSystems, mount.fileSystem)) return driveTypes::cdRom;
    return isRemovable(sources, mount) ? driveTypes::removable : driveTypes::fixed;
}

std::string identityOf(const DriveSources& sources, const Mount& mount, I4 type) {
    if (type == driveTypes::remote) return "network:" + mount.source;
    if (type == driveTypes::ramDisk) return "memory:" + mount.folder;
    const auto device = deviceOf(sources, mount);
    if (const auto id = volumeId(sources, device); !id.empty()) return "uuid:" + id;
    const auto hardware = hardwareId(sources, device);
    return hardware.empty() ? "device:" + mount.source : "hardware:" + hardware;
}

/// Optical drives are known by themselves, whatever disc they hold; then come the mounts in the kernel's
/// order.
std::vector<Volume> volumes(const DriveSources& sources, const std::vector<Mount>& mounts) {
    std::vector<Volume> found;
    std::vector<std::string> opticalDevices;
    for (const auto& name : opticalDrives(sources)) {
        const auto device = sources.devices + '/' + name;
        const auto mount = std::ranges::find(mounts, device, &Mount::source);
        found.push_back(
            {"optical:" + name, {0, driveTypes::cdRom, mount == mounts.end() ? "" : mount->folder, {}}});
        opticalDevices.push_back(device);
    }
    for (const auto& mount : mounts) {
        if (isOneOf(opticalDevices, mount.source) || !holdsFiles(mount)) continue;
        if (!isForUsers(mount) && !isOneOf(networkFileSystems, mount.fileSystem)) continue;
        const auto type = typeOf(sources, mount);
        auto identity = identityOf(sources, mount, type);
        // A volume that is mounted twice has one letter.
        if (std::ranges::count(found, identity, &Volume::identity) > 0) continue;
        found.push_back({std::move(identity), {0, type, mount.folder, deviceOf(sources, mount)}});
    }
    return found;
}

/// The letters that have been given: lines of a letter, a blank, and what the volume is known by. What an
/// identity can't hold in a line stands there as a blank.
class GivenLetters {
  public:
    explicit GivenLetters(std::string_view lines) {
        while (!lines.empty()) {
            const auto line = lines.substr(0, lines.find('\n'));
            lines.remove_prefix(std::min(line.size() + 1, lines.size()));
            if (line.size() > 2 && isOneOf(letters, line.substr(0, 1)[0]) && line[1] == ' ')
                given_.emplace_back(line[0], line.substr(2));
        }
    }

    /// The letter of a volume, 0 where none is left. A new one is noted.
    char letterOf(std::string identity) {
        std::ranges::replace(identity, '\n', ' ');
        const auto known = std::ranges::find(given_, identity, &Entry::second);
        if (known != given_.end()) return known->first;
        for (const char letter : letters) {
            if (std::ranges::count(given_, letter, &Entry::first) > 0) continue;
            given_.emplace_back(letter, identity);
            hasNew_ = true;
            return letter;
        }
        return 0;
    }
    bool hasNew() const { return hasNew_; }
    std::string text() const {
        std::string lines;
        for (const auto& [letter, identity] : given_)
            lines.append({letter, ' '}).append(identity).append("\n");
        return lines;
    }

  private:
    using Entry = std::pair<char, std::string>;
    static bool isOneOf(std::string_view of, char letter) {
        return of.find(letter) != std::string_view::npos;
    }

    std::vector<Entry> given_;
    bool hasNew_ = false;
};

void giveLetters(GivenLetters& given, std::vector<Volume>& found) {
    for (auto& volume : found) volume.drive.letter = given.letterOf(volume.identity);
}

/// New letters are noted under the lock of the file, beside those that other processes have given meanwhile.
/// Where they can't be noted they hold for this once.
void giveKeptLetters(const std::string& file, std::vector<Volume>& found) {
    if (found.empty()) return;
    GivenLetters known(wholeText(file));
    giveLetters(known, found);
    if (!known.hasNew()) return;
    std::error_code ignored;
    std::filesystem::create_directories(folderOf(file), ignored);
    changeFile(file, [&](std::string_view lines) -> std::optional<std::string> {
        GivenLetters current(lines);
        giveLetters(current, found);
        return current.hasNew() ? std::optional(current.text()) : std::nullopt;
    });
}

}  // namespace

DriveSources machineDrives() {
    DriveSources sources;
    sources.letters = dataFolder() + "/drives";
    return sources;
}

std::vector<Drive> otherDrives(const DriveSources& sources) {
    std::vector<Drive> drives;
    for (int number = 0; number < 2; ++number) {
        const auto device = sources.devices + "/fd" + std::to_string(number);
        const auto facts = factsOfTarget(device);
        if (facts && S_ISBLK(facts->st_mode))
            drives.push_back({static_cast<char>('A' + number), driveTypes::removable, {}, {}});
    }
    auto found = volumes(sources, readMountList(wholeText(sources.mountList)));
    giveKeptLetters(sources.letters, found);
    for (auto& volume : found)
        if (volume.drive.letter != 0) drives.push_back(std::move(volume.drive));
    return drives;
}

}  // namespace tovera
