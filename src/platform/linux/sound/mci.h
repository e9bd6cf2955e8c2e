#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "platform/linux/sound/mci_command.h"
#include "platform/linux/sound/player.h"

namespace tovera {

/// The devices of the process, by name, and the commands to them.
class Mci {
  public:
    /// Carries a command out; the result is a code. Commands of several threads come one after the other.
    I4 send(std::string_view command);
    bool isPlaying();

  private:
    I4 open(const MciCommand& command);
    I4 play(const MciCommand& command);
    I4 playFile(const MciCommand& command);
    Player* deviceOf(const MciCommand& command);

    std::mutex mutex_;
    std::map<std::string, std::unique_ptr<Player>> devices_;
    std::vector<std::unique_ptr<Player>> unnamed_;  ///< each plays a file to its end, and is then done with
};

}  // namespace tovera
