#include "platform/linux/shell/folder_picker.h"

#include <algorithm>
#include <iostream>
#include <optional>
#include <poll.h>
#include <unistd.h>

#include "frame/utf8.h"
#include "platform/linux/files/file_facts.h"
#include "platform/linux/files/paths.h"
#include "platform/linux/shell/dialogs.h"
#include "platform/linux/shell/host_loop.h"
#include "platform/linux/shell/programs.h"
#if __has_include(<gio/gdesktopappinfo.h>)
#include "platform/linux/shell/message_bus.h"
#endif

namespace tovera {
namespace {

bool isFolder(const std::string& path) {
    const auto facts = factsOfTarget(path);
    return facts && S_ISDIR(facts->st_mode);
}

#if __has_include(<gio/gdesktopappinfo.h>)

/// A loop of this thread's own, for the time of one dialog.
class OwnLoop {
  public:
    OwnLoop() : context_(gio().main_context_new()) { gio().main_context_push_thread_default(context_); }
    OwnLoop(const OwnLoop&) = delete;
    OwnLoop& operator=(const OwnLoop&) = delete;
    ~OwnLoop() {
        gio().main_context_pop_thread_default(context_);
        gio().main_context_unref(context_);
    }
    void iterate() {
        while (gio().main_context_iteration(context_, 0)) {
        }
    }

  private:
    GMainContext* context_;
};

/// The portal's answer, once it is there: a path, or nothing when the user has cancelled.
struct Response {
    bool isThere = false;
    std::string path;
};

std::string pathOf(const char* address) {
    const GioOwned<GFile> file(gio().file_new_for_uri(address));
    const GioOwned<char> path(gio().file_get_path(file.get()));
    return path ? path.get() : "";
}

void take(GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar*, GVariant* parameters,
          gpointer place) {
    auto& response = *static_cast<Response*>(place);
    response.isThere = true;
    const GioOwned<GVariant> code(gio().variant_get_child_value(parameters, 0));
    const GioOwned<GVariant> results(gio().variant_get_child_value(parameters, 1));
    const auto* const texts = reinterpret_cast<const GVariantType*>("as");
    const GioOwned<GVariant> addresses(gio().variant_lookup_value(results.get(), "uris", texts));
    if (gio().variant_get_uint32(code.get()) != 0 || !addresses ||
        gio().variant_n_children(addresses.get()) == 0)
        return;
    const GioOwned<GVariant> first(gio().variant_get_child_value(addresses.get(), 0));
    response.path = pathOf(gio().variant_get_string(first.get(), nullptr));
}

std::string hexadecimal(I4 number) {
    std::string digits;
    for (auto rest = static_cast<std::uint32_t>(number); rest != 0 || digits.empty(); rest /= 16)
        digits.insert(0, 1, "0123456789abcdef"[rest % 16]);
    return digits;
}

/// The desktop portal's dialog; nothing where there is no portal.
std::optional<std::string> askPortal(const std::string& title, I4 owner) {
    if (!gio().gio.isPresent()) return std::nullopt;
    OwnLoop loop;
    const MessageBus bus(G_BUS_TYPE_SESSION);
    if (!bus) return std::nullopt;
    std::string sender = gio().dbus_connection_get_unique_name(bus.connection());
    sender.erase(0, 1);
    std::ranges::replace(sender, '.', '_');
    const std::string token = "tovera";
    const auto request = "/org/freedesktop/portal/desktop/request/" + sender + '/' + token;
    Response response;
    gio().dbus_connection_signal_subscribe(bus.connection(), "org.freedesktop.portal.Desktop",
                                           "org.freedesktop.portal.Request", "Response", request.c_str(),
                                           nullptr, G_DBUS_SIGNAL_FLAGS_NONE, take, &response, nullptr);
    const auto parent = owner == 0 ? std::string() : "x11:" + hexadecimal(owner);
    const auto asked = bus.call("org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop",
                                "org.freedesktop.portal.FileChooser", "OpenFile",
                                busTuple({busText(parent), busText(title),
                                          busOptions({{"handle_token", busText(token)},
                                                      {"directory", busTruth(true)},
                                                      {"modal", busTruth(true)}})}));
    if (!asked) return std::nullopt;
    constexpr int betweenLooks = 20;  // milliseconds
    constexpr int looksInASecond = 1000 / betweenLooks;
    for (int looks = 1; !response.isThere; ++looks) {
        loop.iterate();
        pumpHostLoop();
        poll(nullptr, 0, betweenLooks);
        if (looks % looksInASecond == 0 && !displayAnswers()) break;  // nobody will answer any more
    }
    return response.path;
}

#else

std::optional<std::string> askPortal(const std::string&, I4) {
    return std::nullopt;
}

#endif

std::string askProgram(const std::string& title) {
    if (hasProgram("zenity"))
        return runDialog({"zenity", "--file-selection", "--directory", "--modal", "--title=" + title}).output;
    if (hasProgram("kdialog"))
        return runDialog({"kdialog", "--title=" + title, "--getexistingdirectory", "."}).output;
    return {};
}

std::string askTerminal(const std::string& title) {
    if (!isatty(STDIN_FILENO) || !isatty(STDERR_FILENO)) return {};
    std::cout.flush();
    std::cerr << title << ' ' << std::flush;
    std::string answer;
    std::getline(std::cin, answer);
    return answer.empty() ? answer : foundHostPath(fromUtf8(answer));
}

}  // namespace

std::string chooseFolder(std::u16string_view title, I4 owner) {
    const auto text = toUtf8(title);
    auto chosen = displayAnswers() ? askPortal(text, owner) : std::nullopt;
    if (!chosen) chosen = displayAnswers() ? askProgram(text) : askTerminal(text);
    return isFolder(*chosen) && chosen->starts_with('/') ? *chosen : std::string();
}

}  // namespace tovera
