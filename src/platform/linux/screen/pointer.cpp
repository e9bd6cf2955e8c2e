#include "platform/linux/screen/pointer.h"

#if __has_include(<xcb/xkb.h>)

#include <algorithm>

#include "platform/linux/screen/x_display.h"
#include "platform/linux/screen/xcb_extensions.h"

namespace tovera {
namespace {

/// The order of the buttons, by their physical place: 1 is the left one, 3 the right one.
std::vector<std::uint8_t> buttonOrder(const XDisplay& display) {
    const auto answer =
        display.reply(xcb().get_pointer_mapping_reply, xcb().get_pointer_mapping(display.connection()));
    if (!answer) return {};
    const auto* const first = xcb().get_pointer_mapping_map(answer.get());
    return {first, first + xcb().get_pointer_mapping_map_length(answer.get())};
}

}  // namespace

bool hasDisplay() {
    return XDisplay::open() != nullptr;
}

void hideCursor(bool hide) {
    // The server shows it again when the connection that hid it ends, and takes no other's word for it.
    static std::shared_ptr<XDisplay> hiding;
    const auto display = hide ? XDisplay::open() : std::exchange(hiding, nullptr);
    if (!display || !xcbExtensions().fixes.isPresent() || !display->hasExtension("XFIXES")) return;
    auto* const connection = display->connection();
    if (hide) {
        display->reply(xcbExtensions().fixes_version_reply,
                       xcbExtensions().fixes_version(connection, 4U, 0U));  // hiding came with this version
        xcbExtensions().hide_cursor(connection, display->root());
        hiding = display;
    } else {
        xcbExtensions().show_cursor(connection, display->root());
    }
    display->sync();
}

std::optional<PointApi> pointerPosition() {
    const auto display = XDisplay::open();
    if (!display) return std::nullopt;
    const auto answer = display->reply(xcb().query_pointer_reply,
                                       xcb().query_pointer(display->connection(), display->root()));
    if (!answer) return std::nullopt;
    return PointApi{answer->root_x, answer->root_y};
}

bool movePointer(PointApi position) {
    const auto display = XDisplay::open();
    if (!display) return false;
    const auto clamp = [](I4 place) { return static_cast<std::int16_t>(std::clamp(place, -32768, 32767)); };
    xcb().warp_pointer(display->connection(), XCB_NONE, display->root(), 0, 0, 0, 0, clamp(position.x),
                       clamp(position.y));
    display->sync();
    return true;
}

std::optional<bool> swapButtons(bool swap) {
    const auto display = XDisplay::open();
    if (!display) return std::nullopt;
    auto order = buttonOrder(*display);
    if (order.size() < 3) return std::nullopt;
    const bool wasSwapped = order[0] > order[2];
    if (wasSwapped == swap) return wasSwapped;
    std::swap(order[0], order[2]);
    // The server refuses while a button is down.
    display->reply(xcb().set_pointer_mapping_reply,
                   xcb().set_pointer_mapping(display->connection(), static_cast<std::uint8_t>(order.size()),
                                             order.data()));
    return wasSwapped;
}

std::optional<I4> doubleClickTime() {
    const auto display = XDisplay::open();
    if (!display) return std::nullopt;
    const auto settings = "_XSETTINGS_S" + std::to_string(display->screenNumber());
    display->learnAtoms({settings, "_XSETTINGS_SETTINGS"});
    const auto owner =
        display->reply(xcb().get_selection_owner_reply,
                       xcb().get_selection_owner(display->connection(), display->atom(settings)));
    if (!owner || owner->owner == XCB_NONE) return std::nullopt;
    const auto kind = display->atom("_XSETTINGS_SETTINGS");
    return settingIn(display->bytes(display->askProperty(owner->owner, kind, kind)), "Net/DoubleClickTime");
}

}  // namespace tovera

#else

namespace tovera {

bool hasDisplay() {
    return false;
}
void hideCursor(bool) {}
std::optional<PointApi> pointerPosition() {
    return std::nullopt;
}
bool movePointer(PointApi) {
    return false;
}
std::optional<bool> swapButtons(bool) {
    return std::nullopt;
}
std::optional<I4> doubleClickTime() {
    return std::nullopt;
}

}  // namespace tovera

#endif
