#pragma once

#include "fuzz/input.h"
#include "platform/linux/files/mount_list.h"
#include "platform/linux/screen/pointer.h"
#include "platform/linux/sound/mci_command.h"

namespace tovera::fuzz {

/// A command is read whole, or its code tells what is wrong with it.
inline void soundCommands(Input input) {
    MciCommand command;
    const auto code = readMciCommand(input, command);
    require(code == 0 || (code >= 257 && code <= 301), "a code of the command's own");
    if (code != 0) return;
    require(!command.device.empty(), "a command names a device");
    MciCommand again;
    const auto loud = mciName(input);
    require(readMciCommand(loud, again) == 0, "words match whatever their case");
    require(again.verb == command.verb && mciName(again.device) == mciName(command.device),
            "and mean the same");
}

/// Lines of the kernel's form give a mount each, and all others none.
inline void mountLists(Input input) {
    const auto lines = 1 + std::ranges::count(input, '\n');
    const auto mounts = readMountList(input);
    require(mounts.size() <= static_cast<std::size_t>(lines), "one mount a line");
    const std::string whole = "36 35 98:0 / /mnt\\040x rw - ext4 /dev/sda1 rw";
    const auto more = readMountList(std::string(input) + '\n' + whole + '\n');
    require(more.size() >= mounts.size(), "a line costs no other");
    require(more.back() == Mount{"98:0", "/mnt x", "ext4", "/dev/sda1"}, "a good line is read behind any");
    settingIn(input, "Net/DoubleClickTime");
}

}  // namespace tovera::fuzz
