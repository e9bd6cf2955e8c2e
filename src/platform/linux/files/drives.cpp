#include "platform/drives.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <sys/statfs.h>
#include <sys/sysmacros.h>

#include "platform/linux/files/drive_letters.h"
#include "platform/linux/files/drives.h"
#include "platform/linux/files/file_facts.h"
#include "platform/linux/files/paths.h"

namespace tovera {
namespace {

/// The letter of a root path, in capitals: `C:\`, with nothing behind it; 0 for any other text.
char letterOf(std::string_view rootPath) {
    const bool isRoot =
        rootPath.size() == 3 && rootPath[1] == ':' && (rootPath[2] == '\\' || rootPath[2] == '/');
    if (!isRoot) return 0;
    const auto letter = static_cast<char>(rootPath[0] & ~0x20);
    return letter >= 'A' && letter <= 'Z' ? letter : '\0';
}

std::optional<Drive> driveOf(std::string_view rootPath) {
    const auto letter = letterOf(rootPath);
    if (letter == 0) return std::nullopt;
    if (letter == 'C') {
        makeWindowsFolders();
        return Drive{letter, driveTypes::fixed, driveC(), {}};
    }
    if (letter == 'Z') return Drive{letter, driveTypes::fixed, "/", {}};
    const auto drives = otherDrives();
    const auto found = std::ranges::find(drives, letter, &Drive::letter);
    return found == drives.end() ? std::nullopt : std::optional(*found);
}

/// What tells a volume that has no UUID.
I4 fileSystemId(const std::string& folder) {
    struct statfs facts {};
    if (statfs(folder.c_str(), &facts) != 0) return 0;
    return facts.f_fsid.__val[0] ^ facts.f_fsid.__val[1];
}

class LinuxDrives : public Drives {
    I4 GetDriveTypeA(const AnsiText& rootPath) override {
        const auto drive = driveOf(rootPath.terminated());
        return drive ? drive->type : driveTypes::noSuchRoot;
    }
    I4 GetVolumeInformationA(const AnsiText& rootPath, I4& serialNumber, I4& longestName,
                             I4& /*flags*/) override {
        constexpr I4 longest = 255;
        const auto drive = driveOf(rootPath.terminated());
        if (!drive || drive->folder.empty()) return 0;
        const auto facts = factsOfTarget(drive->folder);
        if (!facts) return 0;
        const auto device = !drive->device.empty() ? drive->device
                                                   : std::to_string(major(facts->st_dev)) + ':' +
                                                         std::to_string(minor(facts->st_dev));
        const auto id = volumeId(machineDrives(), device);
        serialNumber = id.empty() ? fileSystemId(drive->folder) : serialOf(id);
        longestName = longest;
        return 1;
    }
};

}  // namespace

I4 serialOf(std::string_view uuid) {
    constexpr std::size_t digitsOfNumber = 8;
    std::string digits;
    std::ranges::copy_if(uuid, std::back_inserter(digits), [](char c) { return c != '-'; });
    // Of the 16 digits of an NTFS volume Windows shows the lower half; longer ones are folded.
    if (digits.size() == 2 * digitsOfNumber) digits.erase(0, digitsOfNumber);
    std::uint32_t serial = 0;
    for (std::size_t place = 0; place < digits.size(); place += digitsOfNumber) {
        std::uint32_t part = 0;
        const auto* const first = digits.data() + place;
        std::from_chars(first, first + std::min(digitsOfNumber, digits.size() - place), part, 16);
        serial ^= part;
    }
    return static_cast<I4>(serial);
}

Drives& homeDrives() {
    static LinuxDrives port;
    return port;
}

}  // namespace tovera
