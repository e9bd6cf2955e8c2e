#include "platform/screen_windows.h"

#include "shell/class_table.h"
#include "support/named_calls.h"

namespace tovera::testing {
namespace {

/// A desktop of three windows, each the child of the next, and a taskbar.
struct KnownWindows : ScreenWindows {
    I4 GetForegroundWindow() override { return foreground; }
    I4 GetParent(I4 window) override {
        EXPECT_NE(window, 0);
        return window < 3 ? window + 1 : 0;
    }
    I4 GetWindowTextLengthA(I4 window) override { return static_cast<I4>(titleOf(window).size()); }
    I4 GetWindowTextA(I4 window, AnsiText& buffer) override {
        const auto title = titleOf(window);
        EXPECT_EQ(buffer.bytes, std::string(title.size() + 1, ' '));
        buffer.bytes.replace(0, title.size() + 1, title.c_str(), title.size() + 1);
        return static_cast<I4>(title.size());
    }
    I4 FindWindowA(const AnsiText& className, const AnsiText& title) override {
        if (!className.isNull) {
            EXPECT_EQ(className.bytes, "Shell_traywnd");
            EXPECT_TRUE(!title.isNull && title.bytes.empty());
            return taskbar;
        }
        if (title.bytes == "lost") raise(ErrorNumber::EntryPointNotFound);
        for (const I4 window : {1, 2, 3, -4})
            if (titleOf(window) == title.bytes) return window;
        return 0;
    }
    I4 BringWindowToTop(I4 window) override { return note("top", {window}); }
    I4 SetActiveWindow(I4 window) override { return note("active", {window}); }
    I4 SetWindowPos(I4 window, I4 after, I4 x, I4 y, I4 width, I4 height, I4 flags) override {
        return note("place", {window, after, x, y, width, height, flags});
    }

    static std::string titleOf(I4 window) {
        const std::vector<std::string> titles{"", "Fen\xEAtre un", "", "Ten chars."};
        return window == -4 ? "below" : window < 4 ? titles.at(static_cast<std::size_t>(window)) : "";
    }
    I4 note(std::string what, std::initializer_list<I4> numbers) {
        for (const auto number : numbers) what += " " + std::to_string(number);
        done.push_back(what);
        return 0;
    }
    I4 foreground = 1;
    I4 taskbar = 9;
    std::vector<std::string> done;
};

struct DesktopWindows : ::testing::Test, TestPlatform {
    KnownWindows windows;
    Platform ours = platform.with(windows);
    Cls_Windows object{ours};
};

TEST_F(DesktopWindows, ForegroundWindowAndItsOutermostParent) {
    const auto other = VariantBool::ofBits(1);
    const std::tuple<I4, VariantBool, I4, Bstr> rows[] = {
        {1, False, 1, u"Fen\u00EAtre un"}, {1, True, 3, u"Ten chars."}, {1, other, 3, u"Ten chars."},
        {3, True, 3, u"Ten chars."},       {0, True, 0, u""},           {0, False, 0, u""}};
    for (const auto& [foreground, parent, window, title] : rows) {
        windows.foreground = foreground;
        expectCall(objectOn<Cls_Windows>(ours), gives(window, u"Get_ActiveWindow", parent));
        expectCall(objectOn<Cls_Windows>(ours), gives(title, u"GetActiveWindowTitle", parent));
        expectCall(objectOn<Cls_Windows>(ours), gives(title, u"Get_WindowTitle", window));
    }
    EXPECT_EQ(object.Get_WindowTitle(2), u"");
}

TEST_F(DesktopWindows, TaskbarIsHiddenAndShown) {
    expectCall(objectOn<Cls_Windows>(ours), gives(Empty(), u"Cacher_BarreDesTaches"));
    expectCall(objectOn<Cls_Windows>(ours), gives(Empty(), u"Montrer_BarreDesTaches"));
    EXPECT_EQ(windows.done, (std::vector<std::string>{"place 9 0 0 0 0 0 151", "place 9 0 0 0 0 0 87"}));
    windows.taskbar = 0;
    object.Cacher_BarreDesTaches();
    EXPECT_EQ(windows.done.size(), 2U);
}

TEST_F(DesktopWindows, AnApplicationIsRaisedOrStarted) {
    EXPECT_CALL(services, launch(Bstr(u"prog.exe x"), WindowStyle::NormalFocus)).Times(1);
    EXPECT_CALL(services, launch(Bstr(u"faux.exe"), ::testing::_)).WillOnce([](auto&&...) -> R8 {
        raise(ErrorNumber::FileNotFound);
    });
    const std::tuple<Bstr, Bstr, I2> rows[] = {
        {u"Ten chars.", u"prog.exe x", 1}, {u"aucune", u"prog.exe x", 1},
        {u"aucune", u"faux.exe", 0},       {u"aucune", u"", 0},
        {u"lost", u"prog.exe x", 0},       {u"below", u"", 0}};
    for (const auto& [title, program, result] : rows)
        expectCall(objectOn<Cls_Windows>(ours), gives(result, u"LancerActiverApplication", title, program));
    Bstr none = u"aucune \u0416";
    EXPECT_EQ(object.LancerActiverApplication(none, {}), 0);
    EXPECT_EQ(none, Bstr(u"aucune J")) << "a title comes back from the code page";
    EXPECT_EQ(windows.done, (std::vector<std::string>{"top 3", "active 3"}));
}

}  // namespace
}  // namespace tovera::testing
