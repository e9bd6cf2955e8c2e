#include <cstdlib>
#include <gtest/gtest.h>

// No test of this program reaches the buses and the display of who runs it, also where it forgets to set up
// its own: a real log-on manager could be asked to switch the machine off.
namespace tovera::testing {
namespace {

struct NoRealDesktop : ::testing::Environment {
    void SetUp() override {
        for (const auto* const bus : {"DBUS_SESSION_BUS_ADDRESS", "DBUS_SYSTEM_BUS_ADDRESS"})
            setenv(bus, "unix:path=/nonexistent/bus", 1);
        for (const auto* const own :
             {"DISPLAY", "WAYLAND_DISPLAY", "XDG_CURRENT_DESKTOP", "XDG_SESSION_DESKTOP", "DESKTOP_SESSION",
              "XDG_SESSION_ID", "DESKTOP_STARTUP_ID", "XDG_ACTIVATION_TOKEN", "PULSE_SERVER"})
            unsetenv(own);
    }
};

const auto* const guard = ::testing::AddGlobalTestEnvironment(std::make_unique<NoRealDesktop>().release());

}  // namespace
}  // namespace tovera::testing
