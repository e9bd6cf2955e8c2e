#if __has_include(<gio/gdesktopappinfo.h>)

#include "platform/linux/answering_display.h"
#include "platform/linux/own_bus.h"
#include "platform/linux/shell/folder_picker.h"
#include "support/test_platform.h"

namespace tovera::testing {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

/// What a dialog of the made-up portal comes to.
enum class End { Accepted, Cancelled, Unreadable, Dead };

/// A desktop portal of the test's own: it notes what it is asked, and ends each dialog after a while.
class Portal {
  public:
    Portal(End end, std::string chosen) : end_(end), chosen_(std::move(chosen)) {}

    std::string asked() {
        const std::lock_guard guard(mutex_);
        return asked_;
    }
    /// Whether the asker was on the bus until its dialog ended.
    bool wasWaitedFor() const { return wasWaitedFor_; }

  private:
    GVariant* answerTo(GDBusMessage* message, const std::string& member, GVariant* arguments) {
        const GioOwned<char> text(print(arguments, 0));
        const std::lock_guard guard(mutex_);
        asked_ += member + text.get() + contentOfFile(message) + '\n';
        const std::string sender = senderOf(message);
        auto request = "/org/freedesktop/portal/desktop/request/" + sender.substr(1) + "/tovera";
        std::ranges::replace(request, '.', '_');
        ending_ = std::jthread([this, sender, request] {
            std::this_thread::sleep_for(300ms);
            wasWaitedFor_ = service_.bus().hasService(sender);
            if (end_ == End::Dead) return service_.leave();
            const auto code = gio().variant_new_uint32(end_ == End::Cancelled ? 1 : 0);
            const std::vector<GVariant*> uris{busText(chosen_)};
            service_.signal(request, "org.freedesktop.portal.Request", "Response",
                            end_ == End::Unreadable
                                ? busTuple({code})
                                : busTuple({code, busOptions({{"uris", array(nullptr, uris.data(), 1)}})}));
        });
        return busTuple({gio().variant_new_string(request.c_str())});
    }
    std::string contentOfFile(GDBusMessage* message) {
        auto* const files = filesOf(message);
        if (!files) return {};
        char content[64]{};
        const auto count = pread(peek(files, nullptr)[0], content, sizeof content, 0);
        return std::string(content, static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    }

    template <class Function>
    using Bound = EntryPoint<Function>;
    Bound<decltype(g_variant_print)> print{gio().glib, "g_variant_print"};
    Bound<decltype(g_variant_new_array)>& array = gio().variant_new_array;
    Bound<decltype(g_dbus_message_get_sender)> senderOf{gio().gio, "g_dbus_message_get_sender"};
    Bound<decltype(g_dbus_message_get_unix_fd_list)> filesOf{gio().gio, "g_dbus_message_get_unix_fd_list"};
    Bound<decltype(g_unix_fd_list_peek_fds)> peek{gio().gio, "g_unix_fd_list_peek_fds"};

    End end_;
    std::string chosen_, asked_;
    std::mutex mutex_;
    std::atomic<bool> wasWaitedFor_ = false;
    BusService service_{G_BUS_TYPE_SESSION, "org.freedesktop.portal.Desktop",
                        [this](GDBusMessage* message, const std::string& member, GVariant* arguments) {
                            return answerTo(message, member, arguments);
                        }};
    std::jthread ending_;
};

struct LinuxPortal : ::testing::Test {
    void SetUp() override {
        if (!bus.isThere()) GTEST_SKIP() << "no GIO or no bus here";
    }
    double secondsSinceStart() const { return std::chrono::duration<double>(Clock::now() - start).count(); }

    OwnDesktop desktop{"GNOME"};
    OwnBus bus{desktop, "session", "DBUS_SESSION_BUS_ADDRESS"};
    Clock::time_point start = Clock::now();
};

TEST_F(LinuxPortal, LetsTheUserChooseAFolder) {
    const AnsweringDisplay display(desktop);
    std::filesystem::create_directories(desktop / "Un été");
    const auto address = "file://" + (desktop / "Un%20%C3%A9t%C3%A9");
    const std::tuple<End, std::string, std::string> rows[] = {
        {End::Accepted, address, desktop / "Un été"},
        {End::Accepted, "file:///nowhere", ""},
        {End::Accepted, "http://localhost/", ""},
        {End::Cancelled, address, ""},
    };
    for (const auto& [end, address, chosen] : rows) {
        Portal portal(end, address);
        EXPECT_EQ(chooseFolder(u"O\u00F9 ?", 0x12AB), chosen) << address;
        EXPECT_EQ(portal.asked(),
                  "OpenFile('x11:12ab', 'Où ?', {'handle_token': <'tovera'>, "
                  "'directory': <true>, 'modal': <true>})\n");
    }
}

/// A portal that ends, or says what can't be read, holds nobody: the next way to ask takes its place.
TEST_F(LinuxPortal, MayEndInTheMiddle) {
    const AnsweringDisplay display(desktop);
    std::ofstream(desktop / "bin/zenity") << "#!/bin/sh\necho '" << (desktop / "config") << "'\n";
    std::filesystem::permissions(desktop / "bin/zenity", std::filesystem::perms::owner_all);
    {
        Portal portal(End::Dead, "");
        EXPECT_EQ(chooseFolder(u"?", 0), desktop / "config");
        EXPECT_NE(portal.asked(), "");
    }
    EXPECT_EQ(chooseFolder(u"?", 0), desktop / "config") << "none at all";
    EXPECT_LT(secondsSinceStart(), 5);
}

TEST_F(LinuxPortal, ThatSaysWhatCantBeReadIsStillWaitedForUntilItEnds) {
    const AnsweringDisplay display(desktop);
    Portal portal(End::Unreadable, "");
    std::jthread killer([&] {
        std::this_thread::sleep_for(700ms);
        bus.end();
    });
    EXPECT_EQ(chooseFolder(u"?", 0), "");
    EXPECT_GE(secondsSinceStart(), 0.7);
    EXPECT_LT(secondsSinceStart(), 5);
}

TEST_F(LinuxPortal, LetsTheUserChooseAProgram) {
    std::ofstream(desktop / "data/tovera/drive_c/un texte.txt") << "des mots";
    const auto ask = [&] {
        return desktop.tovera({"Cls_Windows", "GstFichierAssociation(\"C:\\UN TEXTE.txt\")"});
    };
    for (const auto end : {End::Accepted, End::Cancelled, End::Dead}) {
        Portal portal(end, "");
        EXPECT_EQ(ask(), "");
        EXPECT_EQ(portal.asked(),
                  "OpenFile('', 0, {'handle_token': <'tovera'>, 'ask': <true>, "
                  "'writable': <true>})des mots\n");
        EXPECT_TRUE(portal.wasWaitedFor()) << "the dialog would close with the program";
    }
    EXPECT_LT(secondsSinceStart(), 10);
    EXPECT_NE(ask().find("error 53"), std::string::npos) << "no portal";
}

}  // namespace
}  // namespace tovera::testing

#endif
