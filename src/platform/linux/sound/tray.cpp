#include "platform/linux/sound/tray.h"

#include <cerrno>
#include <fcntl.h>
#include <linux/cdrom.h>
#include <sys/ioctl.h>

#include "platform/linux/files/file_descriptor.h"
#include "platform/linux/files/file_facts.h"
#include "platform/linux/sound/mci_command.h"

namespace tovera {
namespace {

constexpr int mostDrives = 16;

std::string firstDrive(const std::string& devices) {
    for (int number = 0; number < mostDrives; ++number) {
        auto path = devices + "/sr" + std::to_string(number);
        if (factsOfTarget(path)) return path;
    }
    return {};
}

}  // namespace

I4 moveTray(bool open, const std::string& devices, const DriveRequest& request) {
    const auto path = firstDrive(devices);
    if (path.empty()) return mci::noSuchDevice;
    const FileDescriptor drive(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_EXCL | O_CLOEXEC));
    if (!drive.isOpen()) return mci::notReady;
    const auto send = [&](unsigned long command) {
        return request ? request(drive.get(), command) : ioctl(drive.get(), command, 0);
    };
    if (!open) return send(CDROMCLOSETRAY) == 0 ? mci::success : mci::notReady;
    send(CDROM_LOCKDOOR);
    return send(CDROMEJECT) == 0 ? mci::success : mci::notReady;
}

}  // namespace tovera
