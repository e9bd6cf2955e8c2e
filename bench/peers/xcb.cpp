#include <cstdlib>
#include <memory>
#include <string>
#include <xcb/xcb.h>

#include "peers/peers.h"

namespace bench {
namespace {

template <class Reply>
using Owned = std::unique_ptr<Reply, decltype([](Reply* reply) { std::free(reply); })>;
using Connection = std::shared_ptr<xcb_connection_t>;

xcb_atom_t atomOf(xcb_connection_t* connection, const std::string& name) {
    const auto asked = xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
    const Owned<xcb_intern_atom_reply_t> answer(xcb_intern_atom_reply(connection, asked, nullptr));
    return answer->atom;
}

using Property = Owned<xcb_get_property_reply_t>;
Property property(xcb_connection_t* connection, xcb_window_t window, xcb_atom_t name, xcb_atom_t type) {
    return Property(xcb_get_property_reply(
        connection, xcb_get_property(connection, 0, window, name, type, 0, 1U << 20U), nullptr));
}

/// The active window, then its title twice: once for its length, once for its text.
Loop title() {
    const Connection connection(xcb_connect(nullptr, nullptr), xcb_disconnect);
    const auto root = xcb_setup_roots_iterator(xcb_get_setup(connection.get())).data->root;
    const auto active = atomOf(connection.get(), "_NET_ACTIVE_WINDOW");
    const auto name = atomOf(connection.get(), "_NET_WM_NAME");
    const auto utf8 = atomOf(connection.get(), "UTF8_STRING");
    return loopOf([=] {
        const auto found = property(connection.get(), root, active, XCB_ATOM_WINDOW);
        const auto window = *static_cast<const xcb_window_t*>(xcb_get_property_value(found.get()));
        std::string text;
        for (int trip = 0; trip < 2; ++trip) {
            const auto value = property(connection.get(), window, name, utf8);
            text.assign(static_cast<const char*>(xcb_get_property_value(value.get())),
                        static_cast<std::size_t>(xcb_get_property_value_length(value.get())));
        }
        return text;
    });
}

const Installed installed(xcbTitle, title);

}  // namespace
}  // namespace bench
