#pragma once

#if __has_include(<gio/gdesktopappinfo.h>)

#include <functional>
#include <sys/socket.h>
#include <sys/un.h>

#include "platform/linux/files/file_descriptor.h"
#include "platform/linux/own_desktop.h"
#include "platform/linux/own_display.h"
#include "platform/linux/shell/message_bus.h"

namespace tovera::testing {

/// A message bus of the test's own, which the environment names.
class OwnBus {
  public:
    /// The kind is `system` or `session`.
    OwnBus(OwnDesktop& desktop, const std::string& kind, const char* variable)
        : daemon_(findProgramOfMachine("dbus-daemon")) {
        if (!isThere()) return;
        const auto address = "unix:path=" + (desktop / "run/bus");
        std::ofstream(desktop / "bus.conf")
            << "<busconfig><type>" << kind << "</type><listen>" << address
            << "</listen><auth>EXTERNAL</auth><policy context=\"default\"><allow send_destination=\"*\" "
               "eavesdrop=\"true\"/><allow eavesdrop=\"true\"/><allow own=\"*\"/></policy></busconfig>\n";
        program_.emplace(
            std::vector<std::string>{daemon_, "--nofork", "--config-file=" + (desktop / "bus.conf")});
        comesTrue([&] { return listens(desktop / "run/bus"); });
        desktop.variables.set(variable, address);
    }
    void end() { program_.reset(); }
    bool isThere() const { return gio().gio.isPresent() && !daemon_.empty(); }

  private:
    /// Its file is there a moment before it listens.
    static bool listens(const std::string& path) {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        path.copy(address.sun_path, sizeof address.sun_path - 1);
        const FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
        return connect(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    }

    std::string daemon_;
    std::optional<RunningProgram> program_;
};

/// A service on the test's own bus, which answers every call by one function.
class BusService {
  public:
    /// Gets a call's member, its arguments, and who has called; gives the answer's values, a tuple.
    using Answer = std::function<GVariant*(GDBusMessage*, const std::string& member, GVariant* arguments)>;

    BusService(GBusType type, const char* name, Answer answer) : bus_(type), answer_(std::move(answer)) {
        addFilter(bus_.connection(), &BusService::heard, this, GDestroyNotify{});
        bus_.call("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "RequestName",
                  busTuple({busText(name), gio().variant_new_uint32(0)}));
    }
    BusService(const BusService&) = delete;
    BusService& operator=(const BusService&) = delete;
    ~BusService() { leave(); }

    /// Ends, as where its process does.
    void leave() { gio().dbus_connection_close_sync(bus_.connection(), nullptr, GioError().out()); }
    void signal(const std::string& path, const char* interface, const char* name, GVariant* values) {
        emit(bus_.connection(), static_cast<const char*>(nullptr), path.c_str(), interface, name, values,
             static_cast<GError**>(nullptr));
    }
    const MessageBus& bus() const { return bus_; }

  private:
    template <class Function>
    using Bound = EntryPoint<Function>;

    static GDBusMessage* heard(GDBusConnection* connection, GDBusMessage* message, gboolean incoming,
                               gpointer self) {
        auto& service = *static_cast<BusService*>(self);
        if (!incoming || service.typeOf(message) != G_DBUS_MESSAGE_TYPE_METHOD_CALL) return message;
        const GioOwned<GDBusMessage> answer(service.replyTo(message));
        service.setBody(answer.get(),
                        service.answer_(message, service.memberOf(message), service.bodyOf(message)));
        service.send(connection, answer.get(), G_DBUS_SEND_MESSAGE_FLAGS_NONE, nullptr, nullptr);
        gio().object_unref(message);
        return nullptr;
    }

    SharedLibrary& library_ = gio().gio;
    Bound<decltype(g_dbus_connection_add_filter)> addFilter{library_, "g_dbus_connection_add_filter"};
    Bound<decltype(g_dbus_connection_send_message)> send{library_, "g_dbus_connection_send_message"};
    Bound<decltype(g_dbus_connection_emit_signal)> emit{library_, "g_dbus_connection_emit_signal"};
    Bound<decltype(g_dbus_message_get_message_type)> typeOf{library_, "g_dbus_message_get_message_type"};
    Bound<decltype(g_dbus_message_get_member)> memberOf{library_, "g_dbus_message_get_member"};
    Bound<decltype(g_dbus_message_get_body)> bodyOf{library_, "g_dbus_message_get_body"};
    Bound<decltype(g_dbus_message_set_body)> setBody{library_, "g_dbus_message_set_body"};
    Bound<decltype(g_dbus_message_new_method_reply)> replyTo{library_, "g_dbus_message_new_method_reply"};

    MessageBus bus_;
    Answer answer_;
};

}  // namespace tovera::testing

#endif
