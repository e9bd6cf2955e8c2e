#include "cli/still_playing.h"

#include <ostream>

#include "platform/program_streams.h"
#include "platform/sound.h"

namespace tovera::cli {

void waitForSound(const Platform& platform, std::ostream& err) {
    using namespace std::chrono_literals;
    auto& sound = platform.port<Sound>();
    if (!sound.isPlaying()) return;
    if (isTerminal(StandardStream::Error)) err << "tovera: the sound plays to its end; Ctrl-C ends it\n";
    while (sound.isPlaying()) pause(50ms);
}

void waitForDialogs(std::ostream& err) {
    using namespace std::chrono_literals;
    if (!hasOpenDialog()) return;
    if (isTerminal(StandardStream::Error)) err << "tovera: the dialog waits for you; Ctrl-C closes it\n";
    while (hasOpenDialog()) pause(50ms);
}

}  // namespace tovera::cli
