#if __has_include(<gio/gdesktopappinfo.h>)

#include "platform/linux/shell/portal_dialog.h"

#include <algorithm>

namespace tovera {
namespace {

constexpr const char* portal = "org.freedesktop.portal.Desktop";
constexpr const char* token = "tovera";

/// Where the answer comes from: told by the name of the asker on the bus.
std::string requestOf(const MessageBus& bus) {
    std::string sender = gio().dbus_connection_get_unique_name(bus.connection());
    sender.erase(0, 1);
    std::ranges::replace(sender, '.', '_');
    return "/org/freedesktop/portal/desktop/request/" + sender + '/' + token;
}

}  // namespace

PortalDialog::PortalDialog() : bus_(G_BUS_TYPE_SESSION) {
    if (!bus_) return;
    // What comes waits in a queue of its own, which only a look takes from.
    context_ = gio().main_context_new();
    gio().main_context_push_thread_default(context_);
    const auto subscribe = [&](const char* sender, const char* interface, const char* signal,
                               const char* path, const char* about, GDBusSignalCallback callback) {
        gio().dbus_connection_signal_subscribe(bus_.connection(), sender, interface, signal, path, about,
                                               G_DBUS_SIGNAL_FLAGS_NONE, callback, this, nullptr);
    };
    subscribe(portal, "org.freedesktop.portal.Request", "Response", requestOf(bus_).c_str(), nullptr,
              answered);
    subscribe("org.freedesktop.DBus", "org.freedesktop.DBus", "NameOwnerChanged", "/org/freedesktop/DBus",
              portal, ownerChanged);
    gio().main_context_pop_thread_default(context_);
}

PortalDialog::~PortalDialog() {
    if (!context_) return;
    gio().dbus_connection_close_sync(bus_.connection(), nullptr, GioError().out());
    gio().main_context_unref(context_);
}

std::pair<std::string, GVariant*> PortalDialog::ownOption() {
    return {"handle_token", busText(token)};
}

bool PortalDialog::ask(const char* interface, const char* method, GVariant* arguments, GUnixFDList* files) {
    const GioOwned<GVariant> owned(gio().variant_ref_sink(arguments));
    if (!bus_) return false;
    constexpr int asLongAsUsual = -1;
    const GioOwned<GVariant> answer(gio().dbus_connection_call_with_unix_fd_list_sync(
        bus_.connection(), portal, "/org/freedesktop/portal/desktop", interface, method, arguments, nullptr,
        G_DBUS_CALL_FLAGS_NONE, asLongAsUsual, files, nullptr, nullptr, GioError().out()));
    state_ = answer ? State::Open : State::Gone;
    return answer != nullptr;
}

PortalDialog::State PortalDialog::look() {
    while (context_ && gio().main_context_iteration(context_, 0)) {
    }
    if (state_ == State::Open && gio().dbus_connection_is_closed(bus_.connection())) state_ = State::Gone;
    return state_;
}

GioOwned<GVariant> PortalDialog::result(const char* name, const char* type) const {
    const auto* const wanted = reinterpret_cast<const GVariantType*>(type);
    return GioOwned<GVariant>(results_ ? gio().variant_lookup_value(results_.get(), name, wanted) : nullptr);
}

void PortalDialog::answered(GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar*,
                            GVariant* parameters, gpointer self) {
    if (!gio().variant_is_of_type(parameters, reinterpret_cast<const GVariantType*>("(ua{sv})"))) return;
    auto& dialog = *static_cast<PortalDialog*>(self);
    dialog.state_ = State::Answered;
    const GioOwned<GVariant> code(gio().variant_get_child_value(parameters, 0));
    constexpr std::uint32_t accepted = 0;
    if (gio().variant_get_uint32(code.get()) == accepted)
        dialog.results_.reset(gio().variant_get_child_value(parameters, 1));
}

/// A portal that comes has no owner before. One that goes takes its dialogs with it, also where another
/// comes.
void PortalDialog::ownerChanged(GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar*,
                                GVariant* parameters, gpointer self) {
    const GioOwned<GVariant> before(gio().variant_get_child_value(parameters, 1));
    auto& dialog = *static_cast<PortalDialog*>(self);
    const bool hadOwner = *gio().variant_get_string(before.get(), nullptr) != '\0';
    if (hadOwner && dialog.state_ == State::Open) dialog.state_ = State::Gone;
}

}  // namespace tovera

#endif
