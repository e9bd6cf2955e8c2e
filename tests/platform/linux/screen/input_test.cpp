#include "platform/input.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <thread>

#include "input/cls_sourisclv.h"
#include "platform/linux/own_display.h"
#include "platform/linux/screen/key_table.h"
#include "platform/linux/screen/pointer.h"
#include "platform/linux/screen/screen_size.h"
#include "platform/linux/temporary_folder.h"

namespace tovera::testing {
namespace {

bool succeeds(const std::string& command) {
    return std::system((command + " >/dev/null 2>&1").c_str()) == 0;
}

struct InputOnDisplay : ::testing::Test {
    void SetUp() override {
        if (!server.isThere() || !hasDisplay()) GTEST_SKIP() << "no X server for tests (Xvfb)";
    }
    I4 state(std::size_t key) {
        std::array<UI1, keyCount> states{};
        EXPECT_EQ(homeInput().GetKeyboardState(states), 1);
        return states[key];
    }

    /// What the screen shows, with the cursor drawn into it.
    std::string picture() { return contentOf(folder / "Xvfb_screen0"); }

    TemporaryFolder folder;
    OwnDisplay server{{"-fbdir", folder.path()}};
    Cls_SourisClv object;
};

TEST_F(InputOnDisplay, PointerMovesAndIsFound) {
    for (const auto& [x, y] : std::vector<std::pair<I2, I2>>{{0, 0}, {640, 512}, {799, 599}}) {
        object.SourisPositionner(x, y);
        I4 foundX = -1;
        I4 foundY = -1;
        EXPECT_NE(object.SourisPosition(foundX, foundY), 0);
        EXPECT_EQ(std::pair(foundX, foundY), std::pair(I4{x}, I4{y}));
        if (machineHas("xdotool")) {
            EXPECT_TRUE(succeeds("xdotool getmouselocation | grep '^x:" + std::to_string(x) +
                                 " y:" + std::to_string(y) + " '"))
                << "another client finds it there";
        }
    }
}

TEST_F(InputOnDisplay, ButtonsSwapOnce) {
    auto& port = homeInput();
    EXPECT_EQ(port.SwapMouseButton(-1), 0);
    EXPECT_EQ(port.SwapMouseButton(-1), 1) << "swapped twice is swapped still";
    EXPECT_EQ(port.SwapMouseButton(0), 1);
    EXPECT_EQ(port.SwapMouseButton(0), 0);
}

TEST_F(InputOnDisplay, ClicksArriveSwapped) {
    for (const auto* const program : {"xev", "xdotool"})
        if (!machineHas(program)) GTEST_SKIP() << program << " isn't installed";
    const auto events = folder / "events";
    const RunningProgram other({"sh", "-c", "exec xev -root -event button >" + events});
    const auto clickOf = [&](const std::string& physicalButton) {
        const auto before = contentOf(events).size();
        std::string seen;
        for (int tries = 0; tries < 10 && seen.empty(); ++tries) {  // until the other client listens
            EXPECT_TRUE(succeeds("xdotool click " + physicalButton));
            for (int i = 0; i < 50 && seen.find("ButtonRelease") == seen.npos; ++i) {
                std::this_thread::sleep_for(std::chrono::milliseconds(10));
                seen = contentOf(events).substr(before);
            }
        }
        return seen.substr(std::min(seen.find(", button "), seen.size() - 1), 10);
    };
    EXPECT_EQ(clickOf("1"), ", button 1");
    object.SourisBoutonInverser();
    EXPECT_EQ(clickOf("1"), ", button 3");
    EXPECT_EQ(clickOf("3"), ", button 1");
    object.SourisBoutonOrigine();
    EXPECT_EQ(clickOf("3"), ", button 3");
}

TEST_F(InputOnDisplay, LockKeysAreTheDisplaysOwn) {
    object.ChangerEtat_Touche(20);
    EXPECT_EQ(object.LireEtat_Shift(), True);
    EXPECT_EQ(object.LireEtat_NumLock(), False);
    if (machineHas("xset")) {
        EXPECT_TRUE(succeeds("xset q | grep -q 'Caps Lock: *on'")) << "another client sees it";
    }
    object.ChangerEtat_Touche(144);
    std::thread([&] {
        Cls_SourisClv other;
        EXPECT_EQ(other.LireEtat_NumLock(), True) << "another thread sees it";
        other.ChangerEtat_Touche(65);
        EXPECT_EQ(state(65), 1);
    }).join();
    EXPECT_EQ(state(65), 0) << "other keys are the thread's own";
    object.ChangerEtat_Touche(20);
    EXPECT_EQ(object.LireEtat_Shift(), False);
    EXPECT_EQ(object.LireEtat_NumLock(), True);
    object.ChangerEtat_Touche(144);
}

TEST_F(InputOnDisplay, KeysThatAreDown) {
    if (!machineHas("xdotool")) GTEST_SKIP() << "xdotool isn't installed";
    for (const auto& [name, key] : std::vector<std::pair<std::string, std::size_t>>{
             {"a", 0x41}, {"7", 0x37}, {"Return", 13}, {"Shift_R", 0xA1}, {"F12", 0x7B}, {"Left", 0x25}}) {
        EXPECT_EQ(state(key), 0) << name;
        EXPECT_TRUE(succeeds("xdotool keydown " + name));
        EXPECT_EQ(state(key), 128) << name;
        EXPECT_TRUE(succeeds("xdotool keyup " + name));
    }
}

TEST_F(InputOnDisplay, CursorCounts) {
    auto& port = homeInput();
    EXPECT_EQ(port.ShowCursor(0), -1);
    EXPECT_EQ(port.ShowCursor(0), -2);
    EXPECT_EQ(port.ShowCursor(-1), -1);
    EXPECT_EQ(port.ShowCursor(-1), 0);
}

TEST_F(InputOnDisplay, CursorIsDrawnWhileItIsShown) {
    if (!machineHas("xsetroot")) GTEST_SKIP() << "xsetroot isn't installed";
    object.SourisPositionner(400, 300);
    const auto empty = picture();
    ASSERT_TRUE(succeeds("xsetroot -cursor_name left_ptr"));  // no server draws one before a client has
    ASSERT_TRUE(comesTrue([&] { return picture() != empty; }));
    const auto shown = picture();
    object.SourisMasquer();
    EXPECT_TRUE(comesTrue([&] { return picture() == empty; })) << "its pixels are gone";
    object.SourisMasquer();
    object.SourisAfficher();
    EXPECT_EQ(picture(), empty) << "hidden twice";
    object.SourisAfficher();
    EXPECT_TRUE(comesTrue([&] { return picture() == shown; })) << "and they are back";
}

TEST_F(InputOnDisplay, ServerThatGoesAway) {
    object.SourisMasquer();
    server.end();
    I4 x = 1;
    I4 y = 1;
    EXPECT_EQ(object.SourisPosition(x, y), 0);
    object.SourisPositionner(1, 1);
    object.SourisBoutonInverser();
    object.SourisAfficher();
    EXPECT_EQ(object.LireEtat_Shift(), False);
    EXPECT_EQ(object.SourisDelaiDoubleClique(), 500);
}

TEST(KeyTable, WhatIsSetLiesOverARealState) {
    KeyTable table;
    KeyTable::States real{};
    KeyTable::States seen{};
    std::vector<std::size_t> locked;
    const auto lock = [&](std::size_t key, UI1) { return key == 20 ? locked.push_back(key), true : false; };
    real[144] = 1;
    table.get(real, seen);
    real[144] = 0;  // changes between reading and setting: it isn't meant
    seen[20] = 1;
    seen[65] = 1;
    table.set(real, seen, lock);
    EXPECT_EQ(locked, std::vector<std::size_t>{20});
    table.get(real, seen);
    EXPECT_EQ(std::vector<int>({seen[20], seen[65], seen[144]}), std::vector<int>({0, 1, 0}));
    real[65] = 128;
    table.get(real, seen);
    EXPECT_EQ(seen[65], 128) << "until the key really changes";
    real[65] = 0;
    table.get(real, seen);
    EXPECT_EQ(seen[65], 0);
}

TEST(MouseFacts, ButtonsOfRelativeDevices) {
    const TemporaryFolder folder;
    EXPECT_EQ(mouseButtons(folder.path()), std::nullopt);
    EXPECT_EQ(mouseButtons(folder / "missing"), std::nullopt);
    const auto device = [&](const std::string& name, const std::string& key, const std::string& rel) {
        const auto capabilities = folder / (name + "/capabilities");
        std::filesystem::create_directories(capabilities);
        std::ofstream(capabilities + "/key") << key << '\n';
        std::ofstream(capabilities + "/rel") << rel << '\n';
    };
    device("input1", "70000 0 0 0 0", "903");
    EXPECT_EQ(mouseButtons(folder.path()), 3);
    device("input2", "ff0000 0 0 0 0", "0");  // a touch screen
    EXPECT_EQ(mouseButtons(folder.path()), 3);
    device("input3", "1f0000 0 0 0 0", "1943");
    device("input4", "noise", "1943");
    EXPECT_EQ(mouseButtons(folder.path()), 5);
}

TEST(MouseFacts, SettingsOfTheDesktop) {
    using namespace std::string_literals;
    const auto little =
        "\0\0\0\0\1\0\0\0\3\0\0\0"
        "\1\0\5\0Theme\0\0\0\0\0\0\0\3\0\0\0abc\0"
        "\2\0\1\0c\0\0\0\0\0\0\0ABCDEFGH"
        "\0\0\23\0Net/DoubleClickTime\0\0\0\0\0\x2c\1\0\0"s;
    EXPECT_EQ(settingIn(little, "Net/DoubleClickTime"), 300);
    EXPECT_EQ(settingIn(little, "Theme"), std::nullopt);
    const auto big = "\1\0\0\0\0\0\0\1\0\0\0\1\0\0\0\1n\0\0\0\0\0\0\0\0\0\1\x2c"s;
    EXPECT_EQ(settingIn(big, "n"), 300);
    for (std::size_t size = 0; size < little.size(); ++size)
        EXPECT_EQ(settingIn(little.substr(0, size), "Net/DoubleClickTime"), std::nullopt);
    EXPECT_EQ(settingIn("\0\0\0\0\0\0\0\0\xff\xff\xff\xff"s, "n"), std::nullopt);
}

TEST_F(InputOnDisplay, ScreenOfTheDisplay) {
    EXPECT_EQ(screenSize(), (ScreenSize{800, 600}));
}

TEST(ScreenSize, OfAConnectedMonitor) {
    const TemporaryFolder folder;
    EXPECT_EQ(connectedMonitor(folder / "missing"), ScreenSize{});
    const auto connector = [&](const std::string& name, const std::string& status, const std::string& modes) {
        std::filesystem::create_directories(folder / name);
        std::ofstream(folder / (name + "/status")) << status << '\n';
        std::ofstream(folder / (name + "/modes")) << modes;
    };
    connector("card0-DP-1", "disconnected", "640x480\n");
    connector("card0-DP-2", "connected", "");
    EXPECT_EQ(connectedMonitor(folder.path()), ScreenSize{});
    connector("card0-HDMI-A-1", "connected", "1920x1080\n1280x720\n");
    EXPECT_EQ(connectedMonitor(folder.path()), (ScreenSize{1920, 1080}));
}

}  // namespace
}  // namespace tovera::testing
