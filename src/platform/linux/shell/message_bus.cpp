#if __has_include(<gio/gdesktopappinfo.h>)

#include "platform/linux/shell/message_bus.h"

namespace tovera {

GVariant* busText(const std::string& text) {
    return gio().variant_new_string(text.c_str());
}

GVariant* busTruth(bool value) {
    return gio().variant_new_boolean(value ? 1 : 0);
}

GVariant* busTuple(const std::vector<GVariant*>& values) {
    return gio().variant_new_tuple(values.data(), values.size());
}

GVariant* busOptions(const std::vector<std::pair<std::string, GVariant*>>& options) {
    std::vector<GVariant*> entries;
    entries.reserve(options.size());
    for (const auto& [name, value] : options)
        entries.push_back(gio().variant_new_dict_entry(busText(name), gio().variant_new_variant(value)));
    // The macro for a type would hide a call.
    const auto* const type = reinterpret_cast<const GVariantType*>("{sv}");
    return gio().variant_new_array(type, entries.data(), entries.size());
}

MessageBus::MessageBus(GBusType type) {
    const GioOwned<char> address(gio().dbus_address_get_for_bus_sync(type, nullptr, GioError().out()));
    if (!address) return;
    constexpr auto flags = static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                             G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
    connection_.reset(
        gio().dbus_connection_new_for_address_sync(address.get(), flags, nullptr, nullptr, GioError().out()));
}

GioOwned<GVariant> MessageBus::call(const std::string& name, const std::string& path,
                                    const std::string& interface, const std::string& method,
                                    GVariant* arguments, int milliseconds) const {
    if (!connection_) {
        if (arguments) gio().variant_unref(gio().variant_ref_sink(arguments));
        return {};
    }
    return GioOwned<GVariant>(gio().dbus_connection_call_sync(
        connection_.get(), name.c_str(), path.c_str(), interface.c_str(), method.c_str(), arguments, nullptr,
        G_DBUS_CALL_FLAGS_NONE, milliseconds, nullptr, GioError().out()));
}

bool MessageBus::hasService(const std::string& name) const {
    const auto answer = call("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                             "NameHasOwner", busTuple({busText(name)}));
    if (!answer) return false;
    const GioOwned<GVariant> truth(gio().variant_get_child_value(answer.get(), 0));
    return gio().variant_get_boolean(truth.get()) != 0;
}

GioOwned<GVariant> MessageBus::property(const std::string& name, const std::string& path,
                                        const std::string& interface, const std::string& property) const {
    const auto answer = call(name, path, "org.freedesktop.DBus.Properties", "Get",
                             busTuple({busText(interface), busText(property)}));
    if (!answer) return {};
    const GioOwned<GVariant> boxed(gio().variant_get_child_value(answer.get(), 0));
    return GioOwned<GVariant>(gio().variant_get_variant(boxed.get()));
}

}  // namespace tovera

#endif
