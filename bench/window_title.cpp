#if __has_include(<xcb/xcb.h>)

#include <array>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <memory>
#include <spawn.h>
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
    std::string window() const { return std::to_string(window_); }

  private:
    void addWindow() {
        const std::string title = "Une fen\xC3\xAAtre ordinaire";
        const auto window = window_ = xcb().generate_id(display_->connection());
        xcb().create_window(display_->connection(), XCB_COPY_FROM_PARENT, window, display_->root(), 0, 0, 9,
                            9, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
        xcb().change_property(display_->connection(), XCB_PROP_MODE_REPLACE, window,
                              display_->atom("_NET_WM_NAME"), display_->atom("UTF8_STRING"), 8,
                              static_cast<std::uint32_t>(title.size()), title.data());
        xcb().change_property(display_->connection(), XCB_PROP_MODE_REPLACE, display_->root(),
                              display_->atom("_NET_ACTIVE_WINDOW"), XCB_ATOM_WINDOW, 32, 1, &window);
        constexpr std::array<std::uint32_t, 2> normalState{1, 0};
        const auto state = display_->atom("WM_STATE");
        xcb().change_property(display_->connection(), XCB_PROP_MODE_REPLACE, window, state, state, 32, 2,
                              normalState.data());
        xcb().map_window(display_->connection(), window);
        display_->sync();
    }
    pid_t server_ = -1;
    xcb_window_t window_ = 0;
    std::shared_ptr<XDisplay> display_;
};

/// What a program prints, its last line end left out; empty where there is no such program.
std::string printedBy(std::vector<std::string> words) {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) return {};
    std::vector<char*> arguments;
    for (auto& word : words) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t streams{};
    posix_spawn_file_actions_init(&streams);
    posix_spawn_file_actions_adddup2(&streams, ends[1], STDOUT_FILENO);
    pid_t process = -1;
    const int error = posix_spawnp(&process, arguments[0], &streams, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&streams);
    close(ends[1]);
    std::string printed;
    std::array<char, 4096> piece{};
    for (ssize_t count = 0; (count = read(ends[0], piece.data(), piece.size())) > 0;)
        printed.append(piece.data(), static_cast<std::size_t>(count));
    close(ends[0]);
    if (error == 0) waitpid(process, nullptr, 0);
    return printed.substr(0, printed.find_last_not_of('\n') + 1);
}

/// Both as programs that start, print the title, and end.
std::vector<Row> programRows(const OwnScreen& screen) {
    const auto ours = std::filesystem::read_symlink("/proc/self/exe").parent_path().parent_path() / "tovera";
    const std::vector<std::string> ourWords{ours, "Cls_Windows", "GetActiveWindowTitle(False)"};
    const std::vector<std::string> theirWords{"xdotool", "getwindowfocus", "getwindowname"};
    printedBy({"xdotool", "windowfocus", "--sync", screen.window()});
    const auto theirs = printedBy(theirWords);
    if (!theirs.empty()) requireSame(printedBy(ourWords) == theirs, "xdotool");
    return {{"title of the foreground window, by a program",
             loopOf([ourWords] { return printedBy(ourWords); }),
             {"xdotool", theirs.empty() ? Loop() : loopOf([theirWords] { return printedBy(theirWords); })},
             1 / 1.3}};
}

std::vector<Row> titleRows() {
    static OwnScreen screen;
    if (!screen.isThere()) return {};
    const auto object = std::make_shared<Cls_Windows>();
    auto rows = programRows(screen);
    rows.push_back({"title of the foreground window",
                    loopOf([object] { return object->GetActiveWindowTitle(False); }),
                    {"bare XCB, the same round trips", loopIfInstalled(xcbTitle)},
                    1 / 1.3});
    return rows;
}

const Group titles(titleRows);

}  // namespace
}  // namespace bench

#endif
