#pragma once

#include <memory>
#include <string>

#include "frame/values.h"

namespace tovera {

/// What becomes of a player at the end of its file.
enum class AtEnd { StaysOpen, Closes };

/// Plays the sound of one file, on threads of its own. It is quiet when it is destroyed.
class Player {
  public:
    /// Opens a file of the system, ready to be played. The code tells why there is no player: no file, no
    /// driver, or a file that can't be opened.
    static std::unique_ptr<Player> open(const std::string& path, AtEnd atEnd, I4& code);

    virtual ~Player() = default;
    /// Goes on from where it was stopped; at the end of the file it begins anew.
    virtual void play() = 0;
    virtual void stop() = 0;
    virtual bool isPlaying() const = 0;
};

}  // namespace tovera
