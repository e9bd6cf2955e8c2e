#pragma once

#include <sys/socket.h>
#include <sys/un.h>

#include "platform/linux/own_desktop.h"

namespace tovera::testing {

/// A display that only answers, which is all that the choice of a dialog looks at.
struct AnsweringDisplay {
    explicit AnsweringDisplay(OwnDesktop& desktop) : listener(socket(AF_UNIX, SOCK_STREAM, 0)) {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        const auto path = desktop / "run/wayland-9";
        path.copy(address.sun_path, path.size());
        const auto* const place = reinterpret_cast<const sockaddr*>(&address);
        isThere = bind(listener, place, sizeof address) == 0 && listen(listener, 50) == 0;
        desktop.variables.set("WAYLAND_DISPLAY", "wayland-9");
    }
    AnsweringDisplay(const AnsweringDisplay&) = delete;
    AnsweringDisplay& operator=(const AnsweringDisplay&) = delete;
    ~AnsweringDisplay() { close(listener); }

    int listener;
    bool isThere = false;
};

}  // namespace tovera::testing
