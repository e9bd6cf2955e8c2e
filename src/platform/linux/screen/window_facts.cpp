#include "platform/linux/screen/window_facts.h"

#if __has_include(<xcb/xcb.h>)

#include <algorithm>

#include "frame/utf8.h"
#include "platform/linux/text/code_pages.h"

namespace tovera {
namespace {

/// The requests for a title, sent together.
struct TitleRequest {
    xcb_get_property_cookie_t utf8, plain;
};

TitleRequest askTitle(XDisplay& display, xcb_window_t window) {
    const auto name = display.atom("_NET_WM_NAME");
    const auto type = display.atom("UTF8_STRING");
    return {display.askProperty(window, name, type),
            display.askProperty(window, XCB_ATOM_WM_NAME, XCB_GET_PROPERTY_TYPE_ANY)};
}

std::u16string latin1(std::string_view bytes) {
    std::u16string text(bytes.size(), u'\0');
    std::ranges::transform(bytes, text.begin(), [](char c) { return static_cast<unsigned char>(c); });
    return text;
}

std::u16string readTitle(XDisplay& display, const TitleRequest& asked) {
    const auto utf8 = display.bytes(asked.utf8);
    const auto plain = display.property(asked.plain);
    if (!utf8.empty()) return fromUtf8(utf8.substr(0, utf8.find('\0')));
    const auto bytes = plain.bytes.substr(0, plain.bytes.find('\0'));
    return plain.type == display.atom("UTF8_STRING") ? fromUtf8(bytes) : latin1(bytes);
}

std::vector<xcb_window_t> childrenOf(XDisplay& display, xcb_query_tree_cookie_t asked) {
    const auto answer = display.reply(xcb().query_tree_reply, asked);
    if (!answer) return {};
    const auto* const first = xcb().query_tree_children(answer.get());
    return {first, first + xcb().query_tree_children_length(answer.get())};
}

/// The windows of the root and those in the frames that the window manager has put round some.
std::vector<xcb_window_t> allWindows(XDisplay& display) {
    auto windows = childrenOf(display, xcb().query_tree(display.connection(), display.root()));
    std::vector<xcb_query_tree_cookie_t> asked;
    asked.reserve(windows.size());
    for (const auto window : windows) asked.push_back(xcb().query_tree(display.connection(), window));
    for (const auto& request : asked) {
        const auto children = childrenOf(display, request);
        windows.insert(windows.end(), children.begin(), children.end());
    }
    return windows;
}

/// What users have opened, as the window manager tells it.
std::vector<xcb_window_t> windowsFromTheTop(XDisplay& display) {
    const auto stack = display.atom("_NET_CLIENT_LIST_STACKING");
    auto windows = display.numbers(display.askProperty(display.root(), stack, XCB_ATOM_WINDOW));
    std::ranges::reverse(windows);
    return windows;
}

xcb_window_t transientFor(XDisplay& display, xcb_window_t window) {
    const auto owner =
        display.numbers(display.askProperty(window, XCB_ATOM_WM_TRANSIENT_FOR, XCB_ATOM_WINDOW));
    return owner.empty() || owner[0] == window || owner[0] == display.root() ? xcb_window_t{0} : owner[0];
}

}  // namespace

xcb_window_t activeWindow(XDisplay& display) {
    const auto property = display.atom("_NET_ACTIVE_WINDOW");
    const auto window = display.numbers(display.askProperty(display.root(), property, XCB_ATOM_WINDOW));
    return window.empty() ? xcb_window_t{0} : window[0];
}

xcb_window_t ownerOf(XDisplay& display, xcb_window_t window) {
    std::vector<xcb_window_t> walked{window};
    const auto owner = transientFor(display, window);
    for (auto next = owner; next != 0; next = transientFor(display, next)) {
        if (next == window) return 0;
        if (std::ranges::find(walked, next) != walked.end()) break;
        walked.push_back(next);
    }
    return owner;
}

std::u16string titleOf(XDisplay& display, xcb_window_t window) {
    return readTitle(display, askTitle(display, window));
}

xcb_window_t topWindow(XDisplay& display) {
    const auto windows = windowsFromTheTop(display);
    return windows.empty() ? xcb_window_t{0} : windows[0];
}

xcb_window_t windowTitled(XDisplay& display, std::string_view ansiTitle) {
    const auto windows = windowsFromTheTop(display);
    std::vector<TitleRequest> asked;
    asked.reserve(windows.size());
    for (const auto window : windows) asked.push_back(askTitle(display, window));
    xcb_window_t found = 0;
    for (std::size_t i = 0; i < windows.size(); ++i) {
        const auto title = readTitle(display, asked[i]);
        if (found == 0 && toAnsi1252(title) == ansiTitle) found = windows[i];
    }
    return found;
}

std::vector<xcb_window_t> panels(XDisplay& display) {
    const auto property = display.atom("_NET_WM_WINDOW_TYPE");
    const auto dock = display.atom("_NET_WM_WINDOW_TYPE_DOCK");
    const auto windows = allWindows(display);
    std::vector<xcb_get_property_cookie_t> asked;
    asked.reserve(windows.size());
    for (const auto window : windows) asked.push_back(display.askProperty(window, property, XCB_ATOM_ATOM));
    std::vector<xcb_window_t> found;
    for (std::size_t i = 0; i < windows.size(); ++i) {
        const auto types = display.numbers(asked[i]);
        if (std::ranges::find(types, dock) != types.end()) found.push_back(windows[i]);
    }
    return found;
}

}  // namespace tovera

#endif
