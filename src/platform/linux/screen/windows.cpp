#include <algorithm>
#include <array>

#include "frame/ascii_case.h"
#include "platform/linux/screen/window_facts.h"
#include "platform/linux/text/ansi_buffer.h"
#include "platform/linux/text/code_pages.h"
#include "platform/screen_windows.h"

namespace tovera {
namespace {

#if __has_include(<xcb/xcb.h>)

/// Bears witness that a panel was hidden here, also for another process that is to show it again.
constexpr std::string_view hiddenMark = "_TOVERA_HIDDEN";

bool isTaskbarClass(std::string_view name) {
    return isWord(name, "shell_traywnd");
}

void hide(XDisplay& display, xcb_window_t window) {
    const auto asked = xcb().get_window_attributes(display.connection(), window);
    const auto facts = display.reply(xcb().get_window_attributes_reply, asked);
    if (!facts || facts->map_state == XCB_MAP_STATE_UNMAPPED) return;
    constexpr std::uint32_t yes = 1;
    xcb().change_property(display.connection(), XCB_PROP_MODE_REPLACE, window, display.atom(hiddenMark),
                          XCB_ATOM_CARDINAL, 32, 1, &yes);
    xcb().unmap_window(display.connection(), window);
}

void show(XDisplay& display, xcb_window_t window) {
    const auto mark = display.atom(hiddenMark);
    if (display.numbers(display.askProperty(window, mark, XCB_ATOM_CARDINAL)).empty()) return;
    xcb().delete_property(display.connection(), window, mark);
    xcb().map_window(display.connection(), window);
}

/// Asks the window manager to turn to a window, as a pager does.
void activate(XDisplay& display, xcb_window_t window) {
    constexpr std::uint32_t asPager = 2;
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = display.atom("_NET_ACTIVE_WINDOW");
    event.data.data32[0] = asPager;
    event.data.data32[1] = XCB_CURRENT_TIME;
    constexpr std::uint32_t toManager =
        XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    std::array<char, 32> bytes{};
    static_assert(sizeof event == bytes.size());
    std::ranges::copy(std::span(reinterpret_cast<const char*>(&event), sizeof event), bytes.begin());
    xcb().send_event(display.connection(), 0, display.root(), toManager, bytes.data());
}

xcb_window_t idOf(I4 window) {
    return static_cast<xcb_window_t>(window);
}

class LinuxWindows : public ScreenWindows {
    I4 GetForegroundWindow() override {
        return onDisplay([](XDisplay& display) { return activeWindow(display); });
    }
    I4 GetParent(I4 window) override {
        return onDisplay([&](XDisplay& display) { return ownerOf(display, idOf(window)); });
    }
    I4 GetWindowTextLengthA(I4 window) override { return static_cast<I4>(ansiTitle(window).size()); }
    I4 GetWindowTextA(I4 window, AnsiText& buffer) override {
        return buffer.bytes.empty() ? 0 : fill(buffer, ansiTitle(window));
    }
    I4 FindWindowA(const AnsiText& className, const AnsiText& title) override {
        return onDisplay([&](XDisplay& display) -> xcb_window_t {
            if (className.isNull && title.isNull) return topWindow(display);
            if (className.isNull) return windowTitled(display, title.terminated());
            if (!isTaskbarClass(className.terminated())) return 0;
            const auto found = panels(display);
            return found.empty() ? 0 : found[0];
        });
    }
    I4 BringWindowToTop(I4 window) override {
        return onDisplay([&](XDisplay& display) {
            constexpr std::uint32_t above = XCB_STACK_MODE_ABOVE;
            xcb().configure_window(display.connection(), idOf(window), XCB_CONFIG_WINDOW_STACK_MODE, &above);
            display.sync();
            return 1;
        });
    }
    I4 SetActiveWindow(I4 window) override {
        return onDisplay([&](XDisplay& display) {
            activate(display, idOf(window));
            display.sync();
            return 0;
        });
    }
    /// Windows are hidden and shown alone; all panels together, since there may be several.
    I4 SetWindowPos(I4 window, I4 /*insertAfter*/, I4 /*x*/, I4 /*y*/, I4 /*width*/, I4 /*height*/,
                    I4 flags) override {
        return onDisplay([&](XDisplay& display) {
            auto windows = panels(display);
            if (std::ranges::find(windows, idOf(window)) == windows.end()) windows = {idOf(window)};
            for (const auto each : windows) {
                if ((flags & windowFlags::hide) != 0) hide(display, each);
                if ((flags & windowFlags::show) != 0) show(display, each);
            }
            display.sync();
            return 1;
        });
    }

    /// Without a display there is no window.
    template <class Work>
    static I4 onDisplay(Work&& work) {
        const auto display = XDisplay::open();
        return display ? static_cast<I4>(work(*display)) : 0;
    }
    static std::string ansiTitle(I4 window) {
        const auto display = XDisplay::open();
        return display && window != 0 ? toAnsi1252(titleOf(*display, idOf(window))) : std::string();
    }
};

#else  // built without XCB: as where there is no display

class LinuxWindows : public ScreenWindows {
    I4 GetForegroundWindow() override { return 0; }
    I4 GetParent(I4) override { return 0; }
    I4 GetWindowTextLengthA(I4) override { return 0; }
    I4 GetWindowTextA(I4, AnsiText& buffer) override { return buffer.bytes.empty() ? 0 : fill(buffer, ""); }
    I4 FindWindowA(const AnsiText&, const AnsiText&) override { return 0; }
    I4 BringWindowToTop(I4) override { return 0; }
    I4 SetActiveWindow(I4) override { return 0; }
    I4 SetWindowPos(I4, I4, I4, I4, I4, I4, I4) override { return 0; }
};

#endif

}  // namespace

ScreenWindows& homeScreenWindows() {
    static LinuxWindows port;
    return port;
}

}  // namespace tovera
