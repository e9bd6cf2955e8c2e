#if __has_include(<gio/gdesktopappinfo.h>)

#include <mutex>

#include "platform/linux/own_bus.h"
#include "platform/linux/shell/launch.h"
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

    std::mutex mutex_;
    Session session_;
    std::string asked_;
    BusService service_{
        G_BUS_TYPE_SYSTEM, "org.freedesktop.login1",
        [this](GDBusMessage*, const std::string& member, GVariant* body) { return answerTo(member, body); }};
};

TEST(LinuxLogOnManager, IsAskedOnlyByWhoSitsInFrontOfTheMachine) {
    OwnDesktop desktop("Other");
    const OwnBus bus(desktop, "system", "DBUS_SYSTEM_BUS_ADDRESS");
    if (!bus.isThere()) GTEST_SKIP() << "no GIO or no bus here";
    ASSERT_TRUE(MessageBus(G_BUS_TYPE_SYSTEM)) << "only on the test's own bus";
    Manager manager;
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
