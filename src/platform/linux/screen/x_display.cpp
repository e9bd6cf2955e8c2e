#include "platform/linux/screen/x_display.h"

#if __has_include(<xcb/xcb.h>)

#include <unistd.h>

namespace tovera {
namespace {

struct OpenDisplay {
    std::shared_ptr<XDisplay> display;
    std::string name;
};

std::shared_ptr<XDisplay> connectTo(const std::string& name) {
    int screenNumber = 0;
    auto* const connection = xcb().connect(name.c_str(), &screenNumber);
    if (xcb().has_error(connection) == 0) return std::make_shared<XDisplay>(connection, screenNumber);
    xcb().disconnect(connection);
    return {};
}

}  // namespace

std::shared_ptr<XDisplay> XDisplay::open() {
    static std::mutex mutex;
    static OpenDisplay kept;
    const char* const name = std::getenv("DISPLAY");
    if (!name || !*name || !xcb().library.isPresent()) return {};
    const std::lock_guard guard(mutex);
    if (kept.display && kept.name == name && kept.display->isUsable()) return kept.display;
    kept = {connectTo(name), name};
    return kept.display;
}

XDisplay::XDisplay(xcb_connection_t* connection, int screenNumber)
    : connection_(connection), screenNumber_(screenNumber), process_(getpid()) {
    auto screens = xcb().setup_roots_iterator(xcb().get_setup(connection_));
    for (; screenNumber > 0 && screens.rem > 1; --screenNumber) xcb().screen_next(&screens);
    screen_ = screens.data;
}

XDisplay::~XDisplay() {
    if (process_ == getpid()) xcb().disconnect(connection_);
}

bool XDisplay::isUsable() const {
    if (process_ != getpid()) return false;
    dropEvents();  // which is also how the end of the server is noticed
    return xcb().has_error(connection_) == 0;
}

void XDisplay::dropEvents() const {
    while (const XReply<xcb_generic_event_t> event{xcb().poll_for_event(connection_)}) {
    }
}

xcb_atom_t XDisplay::atom(std::string_view name) {
    learnAtoms({name});
    const std::lock_guard guard(atomsMutex_);
    const auto known = atoms_.find(name);
    return known == atoms_.end() ? xcb_atom_t{XCB_ATOM_NONE} : known->second;
}

void XDisplay::learnAtoms(std::initializer_list<std::string_view> names) {
    const std::lock_guard guard(atomsMutex_);
    std::vector<std::pair<std::string_view, xcb_intern_atom_cookie_t>> asked;
    for (const auto name : names) {
        if (atoms_.contains(name)) continue;
        asked.emplace_back(
            name, xcb().intern_atom(connection_, 0, static_cast<std::uint16_t>(name.size()), name.data()));
    }
    for (const auto& [name, request] : asked)
        if (const auto answer = reply(xcb().intern_atom_reply, request)) atoms_.emplace(name, answer->atom);
}

xcb_get_property_cookie_t XDisplay::askProperty(xcb_window_t window, xcb_atom_t property,
                                                xcb_atom_t type) const {
    constexpr std::uint32_t longest = 1U << 20U;  // in units of four bytes
    return xcb().get_property(connection_, 0, window, property, type, 0, longest);
}

std::vector<std::uint32_t> XDisplay::numbers(xcb_get_property_cookie_t asked) const {
    const auto answer = reply(xcb().get_property_reply, asked);
    if (!answer || answer->format != 32) return {};
    const auto* const first = static_cast<const std::uint32_t*>(xcb().get_property_value(answer.get()));
    return {first, first + answer->value_len};
}

XDisplay::Property XDisplay::property(xcb_get_property_cookie_t asked) const {
    const auto answer = reply(xcb().get_property_reply, asked);
    if (!answer || answer->format != 8) return {};
    const auto* const first = static_cast<const char*>(xcb().get_property_value(answer.get()));
    return {answer->type, std::string(first, answer->value_len)};
}

std::string XDisplay::bytes(xcb_get_property_cookie_t asked) const {
    return property(asked).bytes;
}

bool XDisplay::hasExtension(std::string_view name) const {
    const auto answer =
        reply(xcb().query_extension_reply,
              xcb().query_extension(connection_, static_cast<std::uint16_t>(name.size()), name.data()));
    return answer && answer->present != 0;
}

void XDisplay::sync() {
    reply(xcb().get_input_focus_reply, xcb().get_input_focus(connection_));
    dropEvents();
}

}  // namespace tovera

#endif
