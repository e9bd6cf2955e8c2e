#include "platform/sound_with_boxes.h"

#include <gtest/gtest.h>

#include "support/test_platform.h"

namespace tovera {
namespace {

/// Sound that refuses each command with a code.
struct RefusedSound : Sound {
    I4 mciSendStringA(const AnsiText& command, AnsiText& reply, I4, I4) override {
        EXPECT_EQ(command.terminated(), "play a.wav");
        EXPECT_TRUE(reply.isNull);
        return code;
    }
    I4 mciExecute(const AnsiText&) override { throw std::logic_error("it has message boxes of its own"); }
    Bstr failureText(I4 failed) override { return failed == 275 ? u"introuvable" : u""; }
    I4 code = 275;
};

TEST(SoundWithBoxes, TellsFailuresInTheHostsBoxes) {
    testing::TestPlatform test;
    RefusedSound home;
    SoundWithBoxes sound(home, test.services);
    EXPECT_EQ(sound.mciExecute({"play a.wav", false}), 0);
    EXPECT_EQ(test.services.boxes, (std::vector{testing::ShownBox{u"introuvable", 0, u"MCI"}}));
    home.code = 0;
    EXPECT_EQ(sound.mciExecute({"play a.wav", false}), 1);
    EXPECT_EQ(test.services.boxes.size(), 1U);
}

}  // namespace
}  // namespace tovera
