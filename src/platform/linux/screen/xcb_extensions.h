#pragma once

#include <xcb/randr.h>
#include <xcb/xfixes.h>

// The header has members of a name that C++ keeps for itself.
#define explicit explicit_  // NOLINT(clang-diagnostic-keyword-macro)
#include <xcb/xkb.h>
#undef explicit

#include "platform/linux/libraries/shared_library.h"

namespace tovera {

/// The functions of XCB's extensions that mouse, keyboard and screen call, each extension in a library of its
/// own.
struct XcbExtensions {
    template <class Function>
    using Bound = EntryPoint<Function>;

    SharedLibrary fixes{"libxcb-xfixes.so.0"};
    Bound<decltype(xcb_xfixes_query_version)> fixes_version{fixes, "xcb_xfixes_query_version"};
    Bound<decltype(xcb_xfixes_query_version_reply)> fixes_version_reply{fixes,
                                                                        "xcb_xfixes_query_version_reply"};
    Bound<decltype(xcb_xfixes_hide_cursor)> hide_cursor{fixes, "xcb_xfixes_hide_cursor"};
    Bound<decltype(xcb_xfixes_show_cursor)> show_cursor{fixes, "xcb_xfixes_show_cursor"};

    SharedLibrary keyboard{"libxcb-xkb.so.1"};
    Bound<decltype(xcb_xkb_use_extension)> use_keyboard{keyboard, "xcb_xkb_use_extension"};
    Bound<decltype(xcb_xkb_use_extension_reply)> use_keyboard_reply{keyboard, "xcb_xkb_use_extension_reply"};
    Bound<decltype(xcb_xkb_get_named_indicator)> named_indicator{keyboard, "xcb_xkb_get_named_indicator"};
    Bound<decltype(xcb_xkb_get_named_indicator_reply)> named_indicator_reply{
        keyboard, "xcb_xkb_get_named_indicator_reply"};
    Bound<decltype(xcb_xkb_latch_lock_state)> latch_lock_state{keyboard, "xcb_xkb_latch_lock_state"};
    Bound<decltype(xcb_xkb_set_named_indicator)> set_named_indicator{keyboard, "xcb_xkb_set_named_indicator"};

    SharedLibrary randr{"libxcb-randr.so.0"};
    Bound<decltype(xcb_randr_query_version)> randr_version{randr, "xcb_randr_query_version"};
    Bound<decltype(xcb_randr_query_version_reply)> randr_version_reply{randr,
                                                                       "xcb_randr_query_version_reply"};
    Bound<decltype(xcb_randr_get_monitors)> get_monitors{randr, "xcb_randr_get_monitors"};
    Bound<decltype(xcb_randr_get_monitors_reply)> get_monitors_reply{randr, "xcb_randr_get_monitors_reply"};
    Bound<decltype(xcb_randr_get_monitors_monitors_iterator)> monitors{
        randr, "xcb_randr_get_monitors_monitors_iterator"};
    Bound<decltype(xcb_randr_monitor_info_next)> next_monitor{randr, "xcb_randr_monitor_info_next"};
};

inline XcbExtensions& xcbExtensions() {
    static XcbExtensions functions;
    return functions;
}

}  // namespace tovera
