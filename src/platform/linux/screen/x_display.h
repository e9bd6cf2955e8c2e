#pragma once

// What is built without the headers of XCB answers as where there is no display.
#if __has_include(<xcb/xcb.h>)

#include <cstdlib>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "platform/linux/screen/xcb_library.h"

namespace tovera {

struct FreeReply {
    void operator()(void* reply) const { std::free(reply); }
};
/// What the display server has answered; nothing where the request failed.
template <class R>
using XReply = std::unique_ptr<R, FreeReply>;

/// A connection to the display that `DISPLAY` names. It may be used by several threads at once.
class XDisplay {
  public:
    /// The connection of this process, opened when first asked for and kept. It is made anew after the server
    /// has ended, in a forked process, and when `DISPLAY` has changed. Nothing without a display or without
    /// the library.
    static std::shared_ptr<XDisplay> open();

    XDisplay(xcb_connection_t* connection, int screenNumber);
    XDisplay(const XDisplay&) = delete;
    XDisplay& operator=(const XDisplay&) = delete;
    ~XDisplay();

    xcb_connection_t* connection() const { return connection_; }
    const xcb_screen_t& screen() const { return *screen_; }
    /// The number of the screen among those of the server, counted from 0.
    int screenNumber() const { return screenNumber_; }
    xcb_window_t root() const { return screen_->root; }

    /// Waits for the answer to a request: `reply(xcb().query_pointer_reply, xcb().query_pointer(...))`.
    /// Requests that are sent before the first wait share one round trip.
    template <class R, class Cookie>
    XReply<R> reply(const EntryPoint<R*(xcb_connection_t*, Cookie, xcb_generic_error_t**)>& answer,
                    Cookie request) const {
        return XReply<R>(answer(connection_, request, nullptr));
    }

    /// The number of a name, 0 where the server can't be reached. Asked of it once.
    xcb_atom_t atom(std::string_view name);
    /// Asks for several names in one round trip.
    void learnAtoms(std::initializer_list<std::string_view> names);

    xcb_get_property_cookie_t askProperty(xcb_window_t window, xcb_atom_t property, xcb_atom_t type) const;
    /// The 32-bit numbers of a property, empty where it is missing or of another format.
    std::vector<std::uint32_t> numbers(xcb_get_property_cookie_t asked) const;
    /// A property of bytes with its type; empty where it is missing or of another format.
    struct Property {
        xcb_atom_t type = XCB_ATOM_NONE;
        std::string bytes;
    };
    Property property(xcb_get_property_cookie_t asked) const;
    /// Its bytes alone.
    std::string bytes(xcb_get_property_cookie_t asked) const;

    /// Whether the server has an extension. A request of one that it hasn't got would end the connection.
    bool hasExtension(std::string_view name) const;

    /// Sends what has been asked, waits until the server has done it, and drops events and errors that came.
    void sync();

  private:
    bool isUsable() const;
    void dropEvents() const;

    xcb_connection_t* connection_;
    xcb_screen_t* screen_ = nullptr;
    int screenNumber_;
    /// A forked process can't use the connection of its maker, and closing it would end it for both.
    int process_;
    std::mutex atomsMutex_;
    std::map<std::string, xcb_atom_t, std::less<>> atoms_;
};

}  // namespace tovera

#endif
