#pragma once

#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "platform/linux/sound/mci_command.h"
#include "platform/linux/sound/player.h"

namespace tovera {

/// Opens a file, which commands name as Windows does. The code tells why there is no player.
using PlayerOpener = std::function<std::unique_ptr<Player>(const std::string& file, AtEnd atEnd, I4& code)>;

/// By the media library, where there is a device that sound can come out of.
std::unique_ptr<Player> openPlayer(const std::string& file, AtEnd atEnd, I4& code);

/// The devices of the process, by name, and the commands to them.
class Mci {
  public:
    explicit Mci(PlayerOpener opener = openPlayer) : opener_(std::move(opener)) {}

    /// Carries a command out; the result is a code. Several threads may command at once: what takes its time,
    /// such as the opening of a file, holds up nobody else.
    I4 send(std::string_view text);
    bool isPlaying();

  private:
    using Devices = std::map<std::string, std::unique_ptr<Player>>;

    I4 open(const MciCommand& command);
    I4 play(const MciCommand& command);
    I4 playFile(const MciCommand& command);
    I4 stop(const MciCommand& command);
    void dropEnded();

    PlayerOpener opener_;
    std::mutex mutex_;  ///< of the devices, and never held while one is opened or closed
    Devices devices_;
    std::vector<std::unique_ptr<Player>> unnamed_;  ///< each plays a file to its end, and is then done with
};

}  // namespace tovera
