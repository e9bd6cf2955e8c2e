#include "platform/linux/sound/tray.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <linux/cdrom.h>
#include <sys/ioctl.h>
#include <sys/sysmacros.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/linux/files/file_descriptor.h"
#include "platform/linux/files/file_facts.h"
#include "platform/linux/files/mount_list.h"
#include "platform/linux/processes/spawn_settings.h"
#include "platform/linux/sound/mci_command.h"

namespace tovera {
namespace {

std::vector<std::string> foldersOn(const std::string& drive, const std::string& mountList) {
    const auto facts = factsOfTarget(drive);
    if (!facts || !S_ISBLK(facts->st_mode)) return {};
    const auto device = std::to_string(major(facts->st_rdev)) + ':' + std::to_string(minor(facts->st_rdev));
    std::vector<std::string> folders;
    for (auto& mount : readMountList(wholeText(mountList)))
        if (mount.device == device) folders.push_back(std::move(mount.folder));
    return folders;
}

/// By the system's own program. It may do so for a user where this process may not, and asks the service that
/// has mounted the disc for the desktop.
void unmount(std::string folder) {
    SpawnSettings settings;
    settings.allStreamsOnNothing();
    settings.closeOthers();
    std::string program = "umount";
    std::string endOfOptions = "--";
    const std::array<char*, 4> words{program.data(), endOfOptions.data(), folder.data(), nullptr};
    pid_t process = 0;
    const bool runs = posix_spawnp(&process, program.c_str(), settings.actions(), settings.attributes(),
                                   words.data(), environmentForOthers().data()) == 0;
    while (runs && waitpid(process, nullptr, 0) < 0 && errno == EINTR) {
    }
}

}  // namespace

I4 moveTray(bool open, const OpticalDrives& drives) {
    const auto names = opticalDrives(drives.folders);
    if (names.empty()) return mci::noSuchDevice;
    const auto path = drives.folders.devices + '/' + names.front();
    if (open)
        for (const auto& folder : foldersOn(path, drives.mountList)) unmount(folder);
    const FileDescriptor drive(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_EXCL | O_CLOEXEC));
    if (!drive.isOpen()) return mci::notReady;
    const auto send = [&](unsigned long command) {
        return drives.request ? drives.request(drive.get(), command) : ioctl(drive.get(), command, 0);
    };
    if (!open) return send(CDROMCLOSETRAY) == 0 ? mci::success : mci::notReady;
    send(CDROM_LOCKDOOR);
    return send(CDROMEJECT) == 0 ? mci::success : mci::notReady;
}

}  // namespace tovera
