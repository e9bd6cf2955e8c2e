#include "cli/still_playing.h"

#include <gtest/gtest.h>
#include <sstream>

#include "platform/sound.h"

namespace tovera::cli {
namespace {

/// A sound that is heard at so many looks.
struct ShortSound : Sound {
    explicit ShortSound(int looks) : left(looks) {}
    bool isPlaying() override { return left-- > 0; }
    int left;
};

TEST(StillPlaying, IsWaitedForToItsEnd) {
    for (const int looks : {0, 1, 3}) {
        ShortSound sound(looks);
        std::ostringstream err;
        waitForSound(home().with(sound), err);
        EXPECT_EQ(sound.left, -1);
    }
}

}  // namespace
}  // namespace tovera::cli
