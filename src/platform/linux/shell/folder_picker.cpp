#include "platform/linux/shell/folder_picker.h"

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
#include "platform/linux/shell/portal_dialog.h"
#endif

namespace tovera {
namespace {

bool isFolder(const std::string& path) {
    const auto facts = factsOfTarget(path);
    return facts && S_ISDIR(facts->st_mode);
}

#if __has_include(<gio/gdesktopappinfo.h>)

std::string pathOf(const char* address) {
    const GioOwned<GFile> file(gio().file_new_for_uri(address));
    const GioOwned<char> path(gio().file_get_path(file.get()));
    return path ? path.get() : "";
}

/// What the user has chosen; empty for a cancelled dialog.
std::string chosenIn(const PortalDialog& dialog) {
    const auto addresses = dialog.result("uris", "as");
    if (!addresses || gio().variant_n_children(addresses.get()) == 0) return {};
    const GioOwned<GVariant> first(gio().variant_get_child_value(addresses.get(), 0));
    return pathOf(gio().variant_get_string(first.get(), nullptr));
}

std::string hexadecimal(I4 number) {
    std::string digits;
    for (auto rest = static_cast<std::uint32_t>(number); rest != 0 || digits.empty(); rest /= 16)
        digits.insert(0, 1, "0123456789abcdef"[rest % 16]);
    return digits;
}

/// The desktop portal's dialog; nothing where there is no portal, or none any more.
std::optional<std::string> askPortal(const std::string& title, I4 owner) {
    if (!gio().gio.isPresent()) return std::nullopt;
    PortalDialog dialog;
    const auto parent = owner == 0 ? std::string() : "x11:" + hexadecimal(owner);
    if (!dialog.ask("org.freedesktop.portal.FileChooser", "OpenFile",
                    busTuple({busText(parent), busText(title),
                              busOptions({PortalDialog::ownOption(),
                                          {"directory", busTruth(true)},
                                          {"modal", busTruth(true)}})})))
        return std::nullopt;
    constexpr int betweenLooks = 20;  // milliseconds
    constexpr int looksInASecond = 1000 / betweenLooks;
    auto state = dialog.look();
    for (int looks = 1; state == PortalDialog::State::Open; ++looks) {
        pumpHostLoop();
        poll(nullptr, 0, betweenLooks);
        state = dialog.look();
        if (looks % looksInASecond == 0 && !displayAnswers()) break;  // nobody will answer any more
    }
    return state == PortalDialog::State::Gone ? std::nullopt : std::optional(chosenIn(dialog));
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
