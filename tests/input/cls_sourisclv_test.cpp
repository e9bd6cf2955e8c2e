#include <gtest/gtest.h>

#include "input/class_table.h"
#include "support/named_calls.h"

namespace tovera::testing {
namespace {

/// Notes its calls, and has keys of its own.
struct RecordedInput : Input {
    I4 ShowCursor(I4 show) override { return noted("show", show); }
    I4 SetCursorPos(I4 x, I4 y) override { return noted("move", x, y); }
    I4 GetCursorPos(PointApi& position) override {
        EXPECT_EQ(std::pair(position.x, position.y), std::pair(0, 0));
        if (canTell) position = {-7, 40'000};
        return canTell ? 5 : 0;
    }
    I4 SwapMouseButton(I4 swap) override { return noted("swap", swap); }
    I4 GetSystemMetrics(I4 index) override { return noted("metric", index) + metric; }
    I4 GetDoubleClickTime() override { return 345; }
    I4 GetKeyboardState(KeyStates states) override {
        if (canTell) std::ranges::copy(keys, states.begin());
        return canTell ? 1 : 0;
    }
    I4 SetKeyboardState(ConstKeyStates states) override {
        std::ranges::copy(states, keys.begin());
        return noted("keys");
    }
    template <class... Values>
    I4 noted(std::string call, Values... values) {
        ((call += ' ' + std::to_string(values)), ...);
        calls.push_back(call);
        return 0;
    }

    std::vector<std::string> calls;
    std::array<UI1, keyCount> keys{};
    I4 metric = 5;
    bool canTell = true;
};

struct SourisClv : ::testing::Test {
    TestPlatform home;
    RecordedInput input;
    Platform platform = home.platform.with(input);
    Cls_SourisClv object{platform};
};

TEST_F(SourisClv, CallsByName) {
    input.keys[144] = 1;
    expectCallsOfEveryMethod<Cls_SourisClv>(platform,
                                            {
                                                gives({}, u"SourisAfficher"),
                                                gives({}, u"SourisMasquer"),
                                                gives({}, u"SourisPositionner", I2{-32768}, I2{32767}),
                                                gives({}, u"SourisBoutonInverser"),
                                                gives({}, u"SourisBoutonOrigine"),
                                                gives(I2{5}, u"SourisNbsBouton"),
                                                gives(I4{345}, u"SourisDelaiDoubleClique"),
                                                gives(I4{5}, u"SourisPosition", I4{1}, I4{2}),
                                                gives(False, u"LireEtat_Shift"),
                                                gives(True, u"LireEtat_NumLock"),
                                                fails(9, u"ChangerEtat_Touche", I4{256}),
                                                fails(9, u"ChangerEtat_Touche", I4{-1}),
                                                gives({}, u"ChangerEtat_Touche", I4{255}),
                                            });
    EXPECT_EQ(input.calls, (std::vector<std::string>{"show -1", "show 0", "move -32768 32767", "swap -1",
                                                     "swap 0", "metric 43", "keys"}));
    input.metric = 40'000;
    EXPECT_EQ(errorOf([&] { object.SourisNbsBouton(); }), 6);
}

TEST_F(SourisClv, PositionOrZero) {
    I4 x = 1;
    I4 y = 2;
    EXPECT_EQ(object.SourisPosition(x, y), 5);
    EXPECT_EQ(std::pair(x, y), std::pair(-7, 40'000));
    input.canTell = false;
    EXPECT_EQ(object.SourisPosition(x, y), 0);
    EXPECT_EQ(std::pair(x, y), std::pair(0, 0));
}

TEST_F(SourisClv, KeyStates) {
    struct Row {
        UI1 before;
        VariantBool isOn;
        UI1 changed;
    };
    for (const auto& row : {Row{0, False, 1}, Row{1, True, 0}, Row{128, False, 1}, Row{129, False, 1}}) {
        for (const I4 key : {20, 144}) {
            input.keys.fill(7);
            input.keys[static_cast<std::size_t>(key)] = row.before;
            EXPECT_EQ(key == 20 ? object.LireEtat_Shift() : object.LireEtat_NumLock(), row.isOn);
            object.ChangerEtat_Touche(key);
            EXPECT_EQ(input.keys[static_cast<std::size_t>(key)], row.changed);
            EXPECT_EQ(std::ranges::count(input.keys, UI1{7}), 255);
        }
    }
    input.keys[20] = 1;
    object.LireEtat_Shift();
    input.canTell = false;
    input.keys[20] = 0;
    EXPECT_EQ(object.LireEtat_Shift(), True) << "a table that can't be had stays as it stood";
}

}  // namespace
}  // namespace tovera::testing
