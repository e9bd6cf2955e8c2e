#include "platform/linux/shell/opening.h"

#if __has_include(<gio/gdesktopappinfo.h>)

#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <mutex>
#include <vector>

#include "frame/utf8.h"
#include "platform/linux/files/file_descriptor.h"
#include "platform/linux/files/file_facts.h"
#include "platform/linux/files/file_url.h"
#include "platform/linux/processes/spawn_settings.h"
#include "platform/linux/shell/portal_dialog.h"
#include "platform/linux/shell/programs.h"
#include "platform/program_streams.h"

namespace tovera {
namespace {

bool isAddress(const std::string& target) {
    return !schemeOf(fromUtf8(target)).empty();
}

GioOwned<GFile> fileOf(const std::string& target) {
    return GioOwned<GFile>(isAddress(target) ? gio().file_new_for_uri(target.c_str())
                                             : gio().file_new_for_path(target.c_str()));
}

GioOwned<GAppInfo> appFor(const std::string& type) {
    constexpr std::string_view scheme = "x-scheme-handler/";
    return GioOwned<GAppInfo>(type.starts_with(scheme)
                                  ? gio().app_info_get_default_for_uri_scheme(&type[scheme.size()])
                                  : gio().app_info_get_default_for_type(type.c_str(), 0));
}

GioOwned<GAppInfo> appOf(const std::string& target) {
    if (isAddress(target)) return appFor("x-scheme-handler/" + target.substr(0, target.find(':')));
    const auto file = fileOf(target);
    const GioOwned<GFileInfo> info(gio().file_query_info(file.get(), "standard::content-type",
                                                         G_FILE_QUERY_INFO_NONE, nullptr, GioError().out()));
    const char* const type = info ? gio().file_info_get_content_type(info.get()) : nullptr;
    return type ? appFor(type) : nullptr;
}

/// A program that is reached over the session's bus is started by a message, which a process that ends soon
/// would take with it.
void flushBus() {
    const char* const runtime = std::getenv("XDG_RUNTIME_DIR");
    const bool hasBus =
        std::getenv("DBUS_SESSION_BUS_ADDRESS") || (runtime && factsOf(std::string(runtime) + "/bus"));
    if (!hasBus) return;
    const GioOwned<GDBusConnection> bus(gio().bus_get_sync(G_BUS_TYPE_SESSION, nullptr, GioError().out()));
    if (bus) gio().dbus_connection_flush_sync(bus.get(), nullptr, GioError().out());
}

using LaunchContext = GioOwned<GAppLaunchContext>;

/// The host's environment without what belongs to the host's own start.
LaunchContext contextForOthers() {
    LaunchContext context(gio().app_launch_context_new());
    for (const auto* const own : ownStartVariables) gio().app_launch_context_unsetenv(context.get(), own);
    return context;
}

bool launch(GAppInfo* app, const std::string& target) {
    std::string address = target;
    const auto file = isAddress(target) ? nullptr : fileOf(target);
    GList targets{file ? static_cast<void*>(file.get()) : address.data(), nullptr, nullptr};
    const auto start = file ? gio().app_info_launch.address() : gio().app_info_launch_uris.address();
    const bool started = start(app, &targets, contextForOthers().get(), GioError().out()) != 0;
    if (started) flushBus();
    return started;
}

/// The dialogs that nobody has waited for, as long as the user looks at them.
class OpenDialogs {
  public:
    void keep(std::unique_ptr<PortalDialog> dialog) {
        const std::lock_guard guard(mutex_);
        dropClosed();
        dialogs_.push_back(std::move(dialog));
    }
    bool areThere() {
        const std::lock_guard guard(mutex_);
        dropClosed();
        return !dialogs_.empty();
    }

  private:
    void dropClosed() {
        std::erase_if(dialogs_,
                      [](const auto& dialog) { return dialog->look() != PortalDialog::State::Open; });
    }
    std::mutex mutex_;
    std::vector<std::unique_ptr<PortalDialog>> dialogs_;
};

/// Never given back: the bus's own thread may still be at work when the process ends.
OpenDialogs& openDialogs() {
    static auto& all = *std::make_unique<OpenDialogs>().release();
    return all;
}

}  // namespace

bool hasDesktopLibraries() {
    return gio().gio.isPresent();
}

std::optional<Opener> openerOf(const std::string& path) {
    if (!gio().gio.isPresent()) return std::nullopt;
    const auto app = appOf(path);
    if (!app) return std::nullopt;
    const char* const name = gio().app_info_get_executable(app.get());
    const auto found = findProgram(name ? name : "");
    return Opener{found ? found->path : ""};
}

bool openByDesktop(const std::string& target) {
    if (!gio().gio.isPresent()) return false;
    const auto app = appOf(target);
    return app && launch(app.get(), target);
}

bool startProgramFor(const std::string& type) {
    if (!gio().gio.isPresent()) return false;
    const auto app = appFor(type);
    const bool isStarted =
        app && gio().app_info_launch(app.get(), nullptr, contextForOthers().get(), GioError().out()) != 0;
    if (isStarted) flushBus();
    return isStarted;
}

bool openWithDialog(const std::string& path) {
    if (!gio().gio.isPresent()) return false;
    const FileDescriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!file.isOpen()) return false;
    auto dialog = std::make_unique<PortalDialog>();
    const GioOwned<GUnixFDList> files(gio().unix_fd_list_new());
    const int handle = gio().unix_fd_list_append(files.get(), file.get(), GioError().out());
    auto* const options =
        busOptions({PortalDialog::ownOption(), {"ask", busTruth(true)}, {"writable", busTruth(true)}});
    if (!dialog->ask("org.freedesktop.portal.OpenURI", "OpenFile",
                     busTuple({busText(""), gio().variant_new_handle(handle), options}), files.get()))
        return false;
    return openDialogs().keep(std::move(dialog)), true;
}

bool hasOpenDialog() {
    return openDialogs().areThere();
}

}  // namespace tovera

#else  // built without GIO

#include "platform/program_streams.h"

namespace tovera {

bool hasDesktopLibraries() {
    return false;
}
std::optional<Opener> openerOf(const std::string&) {
    return std::nullopt;
}
bool openByDesktop(const std::string&) {
    return false;
}
bool startProgramFor(const std::string&) {
    return false;
}
bool openWithDialog(const std::string&) {
    return false;
}
bool hasOpenDialog() {
    return false;
}

}  // namespace tovera

#endif
