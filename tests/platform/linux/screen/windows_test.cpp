#include <algorithm>
#include <chrono>
#include <cstring>
#include <thread>

#include "platform/linux/own_display.h"
#include "platform/linux/screen/x_display.h"
#include "platform/screen_windows.h"
#include "shell/cls_windows.h"
#include "support/test_platform.h"

#if __has_include(<xcb/xcb.h>)

namespace tovera::testing {
namespace {

using namespace std::chrono_literals;

/// Windows on a display of the test's own, and what a window manager tells of them.
struct LinuxWindows : ::testing::Test {
    void SetUp() override {
        if (!screen.isThere() || !(display = XDisplay::open())) GTEST_SKIP() << "no Xvfb here";
    }

    xcb_window_t addWindow(const std::string& title, const char* type = nullptr, std::uint32_t colour = 0) {
        const auto window = xcb().generate_id(display->connection());
        xcb().create_window(display->connection(), XCB_COPY_FROM_PARENT, window, display->root(), 10, 10, 200,
                            100, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXEL,
                            &colour);
        if (!title.empty()) setText(window, "_NET_WM_NAME", "UTF8_STRING", title);
        if (type) setNumbers(window, "_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM, {display->atom(type)});
        xcb().map_window(display->connection(), window);
        display->sync();
        return window;
    }
    void setText(xcb_window_t window, const char* name, const char* type, const std::string& text) {
        xcb().change_property(display->connection(), XCB_PROP_MODE_REPLACE, window, display->atom(name),
                              display->atom(type), 8, static_cast<std::uint32_t>(text.size()), text.data());
        display->sync();
    }
    void setNumbers(xcb_window_t window, const char* name, xcb_atom_t type,
                    const std::vector<std::uint32_t>& numbers) {
        xcb().change_property(display->connection(), XCB_PROP_MODE_REPLACE, window, display->atom(name), type,
                              32, static_cast<std::uint32_t>(numbers.size()), numbers.data());
        display->sync();
    }
    void setActive(xcb_window_t window) {
        setNumbers(display->root(), "_NET_ACTIVE_WINDOW", XCB_ATOM_WINDOW, {window});
    }
    bool isMapped(xcb_window_t window) {
        const auto asked = xcb().get_window_attributes(display->connection(), window);
        const auto facts = display->reply(xcb().get_window_attributes_reply, asked);
        return facts && facts->map_state != XCB_MAP_STATE_UNMAPPED;
    }

    /// What a user sees where the windows lie, a number a pixel.
    std::vector<std::uint32_t> pixels() {
        const EntryPoint<decltype(xcb_get_image)> getImage(xcb().library, "xcb_get_image");
        const EntryPoint<decltype(xcb_get_image_reply)> answer(xcb().library, "xcb_get_image_reply");
        const EntryPoint<decltype(xcb_get_image_data)> data(xcb().library, "xcb_get_image_data");
        const auto image = display->reply(
            answer, getImage(display->connection(), std::uint8_t{XCB_IMAGE_FORMAT_Z_PIXMAP}, display->root(),
                             std::int16_t{0}, std::int16_t{0}, std::uint16_t{220}, std::uint16_t{120}, ~0U));
        std::vector<std::uint32_t> seen(image ? std::size_t{image->length} : 0);
        if (image) std::memcpy(seen.data(), data(image.get()), seen.size() * sizeof seen[0]);
        for (auto& pixel : seen) pixel &= 0xFFFFFFU;
        return seen;
    }

    OwnDisplay screen;
    std::shared_ptr<XDisplay> display;
    Cls_Windows object;
};

I4 numberOf(xcb_window_t window) {
    return static_cast<I4>(window);
}

TEST_F(LinuxWindows, ForegroundTitlesAndOwners) {
    EXPECT_EQ(object.Get_ActiveWindow(True), 0) << "without a window manager";
    EXPECT_EQ(object.GetActiveWindowTitle(False), u"");
    const auto main = addWindow("Été \u20AC \u0416");
    const auto dialog = addWindow("10 signes.");
    const auto tool = addWindow("");
    setText(tool, "WM_NAME", "STRING", "caf\xE9");
    setNumbers(dialog, "WM_TRANSIENT_FOR", XCB_ATOM_WINDOW, {main});
    setNumbers(tool, "WM_TRANSIENT_FOR", XCB_ATOM_WINDOW, {dialog});
    setNumbers(main, "WM_TRANSIENT_FOR", XCB_ATOM_WINDOW, {display->root()});
    setActive(tool);
    EXPECT_EQ(object.Get_ActiveWindow(False), numberOf(tool));
    EXPECT_EQ(object.GetActiveWindowTitle(False), u"caf\u00E9");
    EXPECT_EQ(object.Get_ActiveWindow(True), numberOf(main));
    EXPECT_EQ(object.GetActiveWindowTitle(True), u"\u00C9t\u00E9 \u20AC ?");
    EXPECT_EQ(object.Get_WindowTitle(numberOf(dialog)), u"10 signes.");
    for (const auto none : {I4{0}, I4{12345678}, I4{-1}}) EXPECT_EQ(object.Get_WindowTitle(none), u"");
    // Windows in a circle and one that names itself end the walk.
    setNumbers(main, "WM_TRANSIENT_FOR", XCB_ATOM_WINDOW, {dialog});
    EXPECT_NE(object.Get_ActiveWindow(True), 0);
    setNumbers(tool, "WM_TRANSIENT_FOR", XCB_ATOM_WINDOW, {tool});
    EXPECT_EQ(object.Get_ActiveWindow(True), numberOf(tool));
}

TEST_F(LinuxWindows, ByTitleFromTheTop) {
    const auto below = addWindow("Même titre");
    const auto above = addWindow("Même titre");
    const auto foreign = addWindow("\u0416");
    setNumbers(display->root(), "_NET_CLIENT_LIST_STACKING", XCB_ATOM_WINDOW, {below, above, foreign});
    auto& port = homeScreenWindows();
    const AnsiText none{{}, true};
    EXPECT_EQ(port.FindWindowA(none, {"M\xEAme titre"}), numberOf(above));
    EXPECT_EQ(port.FindWindowA(none, {"?"}), numberOf(foreign));
    for (const auto* const other : {"M\xEAme", "m\xEAme titre", ""})
        EXPECT_EQ(port.FindWindowA(none, {other}), 0);
    EXPECT_EQ(port.FindWindowA({"Other"}, {""}), 0);
    EXPECT_EQ(port.FindWindowA(none, none), numberOf(foreign)) << "any";
}

TEST_F(LinuxWindows, PanelsAreHiddenAndComeBack) {
    object.Cacher_BarreDesTaches();
    const auto panel = addWindow("", "_NET_WM_WINDOW_TYPE_DOCK");
    const auto second = addWindow("", "_NET_WM_WINDOW_TYPE_DOCK");
    const auto own = addWindow("", "_NET_WM_WINDOW_TYPE_DOCK");
    const auto window = addWindow("Fenêtre");
    xcb().unmap_window(display->connection(), own);
    display->sync();
    object.Cacher_BarreDesTaches();
    EXPECT_FALSE(isMapped(panel) || isMapped(second));
    EXPECT_TRUE(isMapped(window));
    object.Cacher_BarreDesTaches();
    object.Montrer_BarreDesTaches();
    EXPECT_TRUE(isMapped(panel) && isMapped(second));
    EXPECT_FALSE(isMapped(own)) << "hidden by its own program";
}

TEST_F(LinuxWindows, NoPixelOfAHiddenPanelIsLeft) {
    constexpr std::uint32_t blue = 0x0000FF;
    constexpr std::uint32_t red = 0xFF0000;
    addWindow("Fond", nullptr, blue);
    const auto before = pixels();
    ASSERT_EQ(before.size(), 220U * 120U);
    EXPECT_EQ(std::ranges::count(before, blue), 200 * 100);
    addWindow("", "_NET_WM_WINDOW_TYPE_DOCK", red);
    const auto with = pixels();
    EXPECT_EQ(std::ranges::count(with, red), 200 * 100);
    for (int time = 0; time < 2; ++time) {
        object.Cacher_BarreDesTaches();
        EXPECT_TRUE(pixels() == before);
        object.Montrer_BarreDesTaches();
        EXPECT_TRUE(pixels() == with);
    }
}

TEST_F(LinuxWindows, AreRaisedThroughTheWindowManager) {
    if (!machineHas("openbox")) GTEST_SKIP() << "no window manager here";
    const RunningProgram manager({"openbox"});
    ASSERT_TRUE(comesTrue([&] {
        return !display
                    ->numbers(display->askProperty(display->root(), display->atom("_NET_SUPPORTING_WM_CHECK"),
                                                   XCB_ATOM_WINDOW))
                    .empty();
    }));
    std::this_thread::sleep_for(500ms);  // it tells its name before it looks after windows
    const auto first = addWindow("Première");
    const auto second = addWindow("Seconde");
    for (const auto& [title, window] : {std::pair(u"Premi\u00E8re", first), std::pair(u"Seconde", second)}) {
        ASSERT_TRUE(comesTrue(
            [&, t = Bstr(title)]() mutable { return object.LancerActiverApplication(t, {}) == 1; }));
        EXPECT_TRUE(comesTrue([&, w = window] { return object.Get_ActiveWindow(False) == numberOf(w); }));
        EXPECT_EQ(object.GetActiveWindowTitle(True), title);
        EXPECT_TRUE(comesTrue([&, w = window] {
            const auto stack = display->numbers(display->askProperty(
                display->root(), display->atom("_NET_CLIENT_LIST_STACKING"), XCB_ATOM_WINDOW));
            return !stack.empty() && stack.back() == w;
        }));
    }
}

TEST(LinuxWindowsAnywhere, WithoutADisplayThereAreNone) {
    for (const auto* const name : {"", ":98765", "nowhere.invalid:1"}) {
        setenv("DISPLAY", name, 1);
        Cls_Windows object;
        EXPECT_EQ(object.Get_ActiveWindow(True), 0);
        EXPECT_EQ(object.GetActiveWindowTitle(True), u"");
        Bstr none = u"x";
        EXPECT_EQ(object.LancerActiverApplication(none, {}), 0);
        object.Cacher_BarreDesTaches();
        object.Montrer_BarreDesTaches();
        unsetenv("DISPLAY");
    }
}

}  // namespace
}  // namespace tovera::testing

#endif
