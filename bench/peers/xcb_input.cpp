#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <memory>
#include <xcb/xcb.h>

#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit

#include "peers/peers.h"

namespace bench {
namespace {

struct Free {
    void operator()(void* reply) const { std::free(reply); }
};
template <class T>
using Reply = std::unique_ptr<T, Free>;

struct Display {
    xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
    xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
};

xcb_atom_t atomOf(xcb_connection_t* connection, const char* name) {
    const auto asked = xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(std::strlen(name)), name);
    const Reply<xcb_intern_atom_reply_t> answer(xcb_intern_atom_reply(connection, asked, nullptr));
    return answer->atom;
}

Loop pointer() {
    return loopOf([display = Display()] {
        const Reply<xcb_query_pointer_reply_t> answer(xcb_query_pointer_reply(
            display.connection, xcb_query_pointer(display.connection, display.root), nullptr));
        return answer->root_x + answer->root_y;
    });
}

Loop keys() {
    const Display display;
    auto* const c = display.connection;
    const Reply<xcb_xkb_use_extension_reply_t> used(
        xcb_xkb_use_extension_reply(c, xcb_xkb_use_extension(c, 1, 0), nullptr));
    const xcb_atom_t names[] = {atomOf(c, "Caps Lock"), atomOf(c, "Num Lock"), atomOf(c, "Scroll Lock")};
    return loopOf([c, display, names] {
        const auto* const setup = xcb_get_setup(c);
        const auto map = xcb_query_keymap(c);
        const auto buttons = xcb_query_pointer(c, display.root);
        const auto symbols = xcb_get_keyboard_mapping(
            c, setup->min_keycode, static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1));
        xcb_xkb_get_named_indicator_cookie_t asked[3];
        for (int i = 0; i < 3; ++i)
            asked[i] = xcb_xkb_get_named_indicator(
                c, XCB_XKB_ID_USE_CORE_KBD, XCB_XKB_LED_CLASS_DFLT_XI_CLASS, XCB_XKB_ID_DFLT_XI_ID, names[i]);
        const Reply<xcb_query_keymap_reply_t> down(xcb_query_keymap_reply(c, map, nullptr));
        const Reply<xcb_query_pointer_reply_t> place(xcb_query_pointer_reply(c, buttons, nullptr));
        const Reply<xcb_get_keyboard_mapping_reply_t> mapping(
            xcb_get_keyboard_mapping_reply(c, symbols, nullptr));
        int on = 0;
        for (const auto cookie : asked) {
            const Reply<xcb_xkb_get_named_indicator_reply_t> light(
                xcb_xkb_get_named_indicator_reply(c, cookie, nullptr));
            on += light->on;
        }
        return on + down->keys[0] + place->root_x + mapping->keysyms_per_keycode;
    });
}

const Installed installedPointer(xcbPointer, pointer);
const Installed installedKeys(xcbKeys, keys);

}  // namespace
}  // namespace bench
