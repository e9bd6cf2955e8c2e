#include "platform/linux/screen/screen_size.h"

#include <filesystem>
#include <fstream>
#include <set>

#include "platform/linux/screen/x_display.h"

#if __has_include(<xcb/randr.h>)
#include "platform/linux/screen/xcb_extensions.h"
#endif

namespace tovera {
namespace {

#if __has_include(<xcb/randr.h>)

/// The primary monitor, or the first where none is called so. Nothing from a server that doesn't know
/// monitors.
ScreenSize primaryMonitor(const XDisplay& display) {
    if (!xcbExtensions().randr.isPresent() || !display.hasExtension("RANDR")) return {};
    auto* const connection = display.connection();
    display.reply(xcbExtensions().randr_version_reply, xcbExtensions().randr_version(connection, 1U, 5U));
    const auto answer =
        display.reply(xcbExtensions().get_monitors_reply,
                      xcbExtensions().get_monitors(connection, display.root(), std::uint8_t{1}));
    ScreenSize found;
    if (!answer) return found;
    for (auto monitor = xcbExtensions().monitors(answer.get()); monitor.rem > 0;
         xcbExtensions().next_monitor(&monitor)) {
        if (found.width == 0 || monitor.data->primary != 0)
            found = {monitor.data->width, monitor.data->height};
        if (monitor.data->primary != 0) break;
    }
    return found;
}

ScreenSize displaySize() {
    const auto display = XDisplay::open();
    if (!display) return {};
    const auto monitor = primaryMonitor(*display);
    if (monitor.width != 0) return monitor;
    return {display->screen().width_in_pixels, display->screen().height_in_pixels};
}

#else

ScreenSize displaySize() {
    return {};
}

#endif

/// The first line of a file of the system.
std::string lineIn(const std::filesystem::path& file) {
    std::ifstream in(file);
    std::string line;
    std::getline(in, line);
    return line;
}

}  // namespace

ScreenSize connectedMonitor(const std::string& graphicsDevices) {
    std::error_code ignored;
    std::set<std::filesystem::path> connectors;
    for (const auto& entry : std::filesystem::directory_iterator(graphicsDevices, ignored))
        connectors.insert(entry.path());
    for (const auto& connector : connectors) {
        if (lineIn(connector / "status") != "connected") continue;
        ScreenSize size;
        char by = 0;
        std::ifstream mode(connector / "modes");  // the preferred one stands first: 1920x1080
        if (mode >> size.width >> by >> size.height && by == 'x') return size;
    }
    return {};
}

ScreenSize screenSize() {
    const auto size = displaySize();
    return size.width != 0 ? size : connectedMonitor();
}

}  // namespace tovera
