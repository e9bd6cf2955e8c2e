#if __has_include(<gio/gdesktopappinfo.h>)

#include <mutex>

#include "platform/linux/own_desktop.h"
#include "platform/linux/own_display.h"
#include "platform/linux/shell/gio_library.h"
#include "platform/linux/shell/launch.h"
#include "platform/linux/shell/message_bus.h"
#include "support/test_platform.h"

namespace tovera::testing {
namespace {

/// What the manager says of the session that asks.
struct Session {
    const char* type = "x11";
    const char* seat = "seat0";
    bool active = true;
    bool remote = false;
};

/// A log-on manager of the test's own, on a bus of the test's own: it notes what it is asked to do.
class Manager {
  public:
    explicit Manager(const MessageBus& bus) : bus_(bus) {
        addFilter(bus.connection(), &Manager::heard, this, GDestroyNotify{});
        bus.call("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "RequestName",
                 busTuple({busText("org.freedesktop.login1"), gio().variant_new_uint32(0)}));
    }

    void be(const Session& session) {
        const std::lock_guard guard(mutex_);
        session_ = session;
        asked_.clear();
    }
    std::string asked() {
        const std::lock_guard guard(mutex_);
        return asked_;
    }

  private:
    template <class Function>
    using Bound = EntryPoint<Function>;

    static GDBusMessage* heard(GDBusConnection* connection, GDBusMessage* message, gboolean incoming,
                               gpointer self) {
        auto& manager = *static_cast<Manager*>(self);
        if (!incoming || manager.typeOf(message) != G_DBUS_MESSAGE_TYPE_METHOD_CALL) return message;
        const GioOwned<GDBusMessage> answer(manager.replyTo(message));
        manager.setBody(answer.get(), manager.answerTo(manager.memberOf(message), manager.bodyOf(message)));
        manager.send(connection, answer.get(), G_DBUS_SEND_MESSAGE_FLAGS_NONE, nullptr, nullptr);
        gio().object_unref(message);
        return nullptr;
    }

    GVariant* answerTo(const std::string& member, GVariant* body) {
        const std::lock_guard guard(mutex_);
        if (member != "Get") {
            const GioOwned<GVariant> interactive(gio().variant_get_child_value(body, 0));
            asked_ += member + (gio().variant_get_boolean(interactive.get()) ? " with leave" : " at once");
            return busTuple({});
        }
        const GioOwned<GVariant> name(gio().variant_get_child_value(body, 1));
        return busTuple({gio().variant_new_variant(property(gio().variant_get_string(name.get(), nullptr)))});
    }
    GVariant* property(const std::string& name) const {
        if (name == "Type") return busText(session_.type);
        if (name == "Class") return busText("user");
        if (name == "Seat")
            return busTuple({busText(session_.seat), busText("/org/freedesktop/login1/seat/x")});
        return busTruth(name == "Active" ? session_.active : session_.remote);
    }

    SharedLibrary& library_ = gio().gio;
    Bound<decltype(g_dbus_connection_add_filter)> addFilter{library_, "g_dbus_connection_add_filter"};
    Bound<decltype(g_dbus_connection_send_message)> send{library_, "g_dbus_connection_send_message"};
    Bound<decltype(g_dbus_message_get_message_type)> typeOf{library_, "g_dbus_message_get_message_type"};
    Bound<decltype(g_dbus_message_get_member)> memberOf{library_, "g_dbus_message_get_member"};
    Bound<decltype(g_dbus_message_get_body)> bodyOf{library_, "g_dbus_message_get_body"};
    Bound<decltype(g_dbus_message_set_body)> setBody{library_, "g_dbus_message_set_body"};
    Bound<decltype(g_dbus_message_new_method_reply)> replyTo{library_, "g_dbus_message_new_method_reply"};

    const MessageBus& bus_;
    std::mutex mutex_;
    Session session_;
    std::string asked_;
};

TEST(LinuxLogOnManager, IsAskedOnlyByWhoSitsInFrontOfTheMachine) {
    OwnDesktop desktop("Other");
    const auto daemon = findProgramOfMachine("dbus-daemon");
    if (!gio().gio.isPresent() || daemon.empty()) GTEST_SKIP() << "no GIO or no bus here";
    const auto address = "unix:path=" + (desktop / "run/bus");
    std::ofstream(desktop / "bus.conf")
        << "<busconfig><type>system</type><listen>" << address
        << "</listen><auth>EXTERNAL</auth><policy context=\"default\"><allow send_destination=\"*\" "
           "eavesdrop=\"true\"/><allow eavesdrop=\"true\"/><allow own=\"*\"/></policy></busconfig>\n";
    const RunningProgram bus({daemon, "--nofork", "--config-file=" + (desktop / "bus.conf")});
    for (int tries = 200; tries > 0 && !std::filesystem::exists(desktop / "run/bus"); --tries)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    desktop.variables.set("DBUS_SYSTEM_BUS_ADDRESS", address);
    const MessageBus own(G_BUS_TYPE_SYSTEM);
    ASSERT_TRUE(own) << "only on the test's own bus";
    Manager manager(own);
    const std::pair<Session, I4> rows[] = {
        {{}, 0},
        {{"wayland"}, 0},
        {{"tty"}, 53},
        {{"x11", ""}, 53},
        {{"x11", "seat0", false}, 53},
        {{"x11", "seat0", true, true}, 53},
    };
    for (const auto& [session, error] : rows) {
        for (const auto& [line, method] :
             {std::pair("rundll32.exe user.exe,restartwindows", "Reboot with leave"),
              std::pair("rundll32.exe user.exe,exitwindows", "PowerOff with leave")}) {
            manager.be(session);
            EXPECT_EQ(errorOf([&, l = line] { launchCommand(l); }), error);
            EXPECT_EQ(manager.asked(), error == 0 ? method : "");
        }
    }
    // The desktop's own program goes before the manager.
    manager.be({});
    desktop.addProgram("gnome-session-quit");
    desktop.variables.set("XDG_CURRENT_DESKTOP", "GNOME");
    launchCommand("rundll32.exe user.exe,exitwindows");
    EXPECT_EQ(desktop.record(), "[gnome-session-quit][--power-off]\n");
    EXPECT_EQ(manager.asked(), "");
}

}  // namespace
}  // namespace tovera::testing

#endif
