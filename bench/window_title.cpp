#if __has_include(<xcb/xcb.h>)

#include <array>
#include <csignal>
#include <cstdlib>
#include <memory>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

#include "peers/peers.h"
#include "platform/linux/screen/x_display.h"
#include "shell/cls_windows.h"

using namespace tovera;

namespace bench {
namespace {

/// A display of the bench's own with one window, which is the active one; nothing without Xvfb.
class OwnScreen {
  public:
    OwnScreen() {
        std::array<int, 2> ends{};
        if (pipe(ends.data()) != 0) return;
        server_ = fork();
        if (server_ == 0) {
            dup2(ends[1], 3);
            execlp("Xvfb", "Xvfb", "-displayfd", "3", "-nolisten", "tcp", "-screen", "0", "640x480x24",
                   nullptr);
            _exit(127);
        }
        close(ends[1]);
        std::array<char, 16> number{};
        const auto count = read(ends[0], number.data(), number.size() - 1);
        close(ends[0]);
        if (count <= 0) return;
        const std::string name = ":" + std::string(number.data(), static_cast<std::size_t>(count));
        setenv("DISPLAY", name.substr(0, name.find('\n')).c_str(), 1);
        display_ = XDisplay::open();
        if (display_) addWindow();
    }
    OwnScreen(const OwnScreen&) = delete;
    OwnScreen& operator=(const OwnScreen&) = delete;
    ~OwnScreen() {
        if (server_ <= 0) return;
        kill(server_, SIGTERM);
        waitpid(server_, nullptr, 0);
    }
    bool isThere() const { return display_ != nullptr; }

  private:
    void addWindow() {
        const std::string title = "Une fen\xC3\xAAtre ordinaire";
        const auto window = xcb().generate_id(display_->connection());
        xcb().create_window(display_->connection(), XCB_COPY_FROM_PARENT, window, display_->root(), 0, 0, 9,
                            9, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
        xcb().change_property(display_->connection(), XCB_PROP_MODE_REPLACE, window,
                              display_->atom("_NET_WM_NAME"), display_->atom("UTF8_STRING"), 8,
                              static_cast<std::uint32_t>(title.size()), title.data());
        xcb().change_property(display_->connection(), XCB_PROP_MODE_REPLACE, display_->root(),
                              display_->atom("_NET_ACTIVE_WINDOW"), XCB_ATOM_WINDOW, 32, 1, &window);
        display_->sync();
    }
    pid_t server_ = -1;
    std::shared_ptr<XDisplay> display_;
};

std::vector<Row> titleRows() {
    static OwnScreen screen;
    if (!screen.isThere()) return {};
    const auto object = std::make_shared<Cls_Windows>();
    return {{"title of the foreground window",
             loopOf([object] { return object->GetActiveWindowTitle(False); }),
             {"bare XCB, the same round trips", loopIfInstalled(xcbTitle)},
             1 / 1.3}};
}

const Group titles(titleRows);

}  // namespace
}  // namespace bench

#endif
