#include "platform/linux/shell/session.h"

#if __has_include(<gio/gdesktopappinfo.h>)

#include "frame/error.h"
#include "platform/linux/shell/message_bus.h"

namespace tovera {
namespace {

constexpr const char* manager = "org.freedesktop.login1";

std::string textOf(const GioOwned<GVariant>& value) {
    const auto* const type = reinterpret_cast<const GVariantType*>("s");
    if (!value || !gio().variant_is_of_type(value.get(), type)) return {};
    return gio().variant_get_string(value.get(), nullptr);
}

bool isTruth(const GioOwned<GVariant>& value) {
    return value && gio().variant_is_of_type(value.get(), reinterpret_cast<const GVariantType*>("b"));
}

bool truthOf(const GioOwned<GVariant>& value) {
    return isTruth(value) && gio().variant_get_boolean(value.get());
}

/// Whether the session of this process is one in which a user sits in front of this machine.
bool isInFrontOfTheMachine(const MessageBus& bus) {
    constexpr const char* session = "/org/freedesktop/login1/session/auto";
    constexpr const char* interface = "org.freedesktop.login1.Session";
    const auto property = [&](const char* name) { return bus.property(manager, session, interface, name); };
    const auto kind = textOf(property("Type"));
    const auto remote = property("Remote");
    const auto seat = property("Seat");
    const GioOwned<GVariant> seatName(seat ? gio().variant_get_child_value(seat.get(), 0) : nullptr);
    return (kind == "x11" || kind == "wayland") && truthOf(property("Active")) && remote && isTruth(remote) &&
           !truthOf(remote) && textOf(property("Class")) == "user" && !textOf(seatName).empty();
}

}  // namespace

bool callSession(const std::string& name, const std::string& path, const std::string& method) {
    if (!gio().gio.isPresent()) return false;
    const MessageBus bus(G_BUS_TYPE_SESSION);
    if (bus.call(name, path, name, method, nullptr)) return true;
    if (bus.hasService(name)) raise(ErrorNumber::FileNotFound);
    return false;
}

bool askLogOnManager(const std::string& method) {
    if (!gio().gio.isPresent()) return false;
    const MessageBus bus(G_BUS_TYPE_SYSTEM);
    if (!bus || !isInFrontOfTheMachine(bus)) return false;
    return bus.call(manager, "/org/freedesktop/login1", "org.freedesktop.login1.Manager", method,
                    busTuple({busTruth(true)})) != nullptr;
}

}  // namespace tovera

#else  // built without GIO

namespace tovera {

bool callSession(const std::string&, const std::string&, const std::string&) {
    return false;
}
bool askLogOnManager(const std::string&) {
    return false;
}

}  // namespace tovera

#endif
