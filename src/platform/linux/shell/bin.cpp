#include "platform/linux/shell/bin.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <unistd.h>
#include <vector>

#include "frame/utf8.h"
#include "platform/linux/files/data_folder.h"
#include "platform/linux/files/file_facts.h"
#include "platform/linux/files/folder_entries.h"
#include "platform/linux/files/mount_list.h"
#include "platform/linux/files/path_text.h"
#include "platform/linux/files/paths.h"
#include "platform/linux/files/whole_file.h"
#include "platform/linux/shell/dialogs.h"
#include "platform/linux/shell/link_twins.h"
#include "platform/linux/shell/user_folders.h"
#include "platform/linux/text/letter_case.h"
#if __has_include(<gio/gdesktopappinfo.h>)
#include "platform/linux/shell/gio_library.h"
#endif

namespace tovera {
namespace {

std::string realPath(const std::string& path) {
    using Text = std::unique_ptr<char, decltype([](char* text) { std::free(text); })>;
    const Text real(realpath(path.c_str(), nullptr));
    return real ? real.get() : std::string();
}

/// The place of an entry itself: its folder without links, and its name.
std::string placeOf(std::string path) {
    while (path.size() > 1 && path.ends_with('/')) path.pop_back();
    const auto name = path.substr(path.rfind('/') + 1);
    if (name.empty() || name == "." || name == "..") return realPath(path);
    const auto folder = realPath(folderOf(path));
    return folder.empty() ? folder : (folder == "/" ? folder : folder + '/') + name;
}

/// Whether several entries fit a name that isn't there as it is written.
bool isAmbiguous(const std::string& written, const std::string& found) {
    const std::filesystem::path left(written);
    const std::filesystem::path right(found);
    std::filesystem::path folder;
    auto other = right.begin();
    for (const auto& name : left) {
        if (other == right.end()) return false;
        if (name != *other) {
            const auto wanted = capitals(fromUtf8(name.string()));
            const auto fits = [&](const std::string& entry) { return capitals(fromUtf8(entry)) == wanted; };
            if (std::ranges::count_if(entriesOf(folder.string()), fits) > 1) return true;
        }
        folder /= *other++;
    }
    return false;
}

/// The kernel gives its list in pieces, whatever is asked for.
std::vector<std::string> mountPoints() {
    std::ifstream list("/proc/self/mountinfo", std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(list), {}};
    std::vector<std::string> folders;
    for (const auto& mount : readMountList(text)) folders.push_back(mount.folder);
    return folders;
}

bool isProtected(const std::string& place) {
    auto kept = mountPoints();
    if (kept.empty()) return true;  // what is mounted can't be told
    for (const auto& own : {std::string("/"), userHome(), dataFolder(), driveC()}) {
        kept.push_back(own);
        kept.push_back(realPath(own));
    }
    return std::ranges::any_of(kept,
                               [&](const auto& folder) { return !folder.empty() && isBelow(folder, place); });
}

#if __has_include(<gio/gdesktopappinfo.h>)

/// 0, ENOTSUP where there is no bin for this place, EACCES for any other failure.
int trash(const std::string& place) {
    if (!gio().gio.isPresent()) return ENOTSUP;
    const GioOwned<GFile> file(gio().file_new_for_path(place.c_str()));
    GioError error;
    if (gio().file_trash(file.get(), nullptr, error.out())) return 0;
    return error.is(G_IO_ERROR_NOT_SUPPORTED) ? ENOTSUP : EACCES;
}

#else

int trash(const std::string&) {
    return ENOTSUP;
}

#endif

int deleteForGood(const std::string& place) {
    const auto question =
        u"Il n'y a pas de corbeille pour cet emplacement.\nSupprimer définitivement ?\n\n" + fromUtf8(place);
    if (!askUser(question, u"HoldDLL")) return ECANCELED;
    std::error_code error;
    std::filesystem::remove_all(place, error);
    return error.value();
}

}  // namespace

int putIntoBin(std::u16string_view path) {
    const auto written = hostPath(path);
    const auto found = foundHostPath(path);
    if (found.empty()) return ENOENT;
    if (isAmbiguous(written, found)) return EEXIST;
    const auto place = placeOf(found);
    const auto facts = place.empty() ? std::nullopt : factsOf(place);
    if (!facts) return ENOENT;
    if (!S_ISLNK(facts->st_mode) && isProtected(place)) return EBUSY;
    const auto twin = markedTwinOf(place);
    int error = trash(place);
    if (error == ENOTSUP) error = deleteForGood(place);
    if (error == 0 && !twin.empty()) unlink(twin.c_str());
    return error;
}

}  // namespace tovera
