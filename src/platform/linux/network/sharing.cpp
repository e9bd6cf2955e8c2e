#include "platform/sharing.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <fcntl.h>
#include <strings.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "frame/utf8.h"
#include "platform/linux/files/file_descriptor.h"
#include "platform/linux/files/file_facts.h"
#include "platform/linux/files/folder_entries.h"
#include "platform/linux/files/paths.h"
#include "platform/linux/network/program_output.h"
#include "platform/linux/network/samba_settings.h"
#include "platform/linux/text/letter_case.h"

// Shares of users are the one way by which an ordinary user of a usual server shares a folder. The program
// that makes them takes texts for options, writes line breaks into its file, and replaces what has the name:
// all that is looked at before.
namespace tovera {
namespace {

constexpr std::size_t longestName = 80;
constexpr std::size_t longestRemark = 256;
/// Names that no share of a user can have, whatever the settings name.
constexpr std::array<std::u16string_view, 6> reservedNames{u"GLOBAL", u"HOMES", u"PRINTERS",
                                                           u"PRINT$", u"IPC$",  u"ADMIN$"};

bool hasControls(std::u16string_view text) {
    return std::ranges::any_of(
        text, [](char16_t c) { return c < 0x20 || (c >= 0x7F && c < 0xA0) || c == 0x2028 || c == 0x2029; });
}

bool isThisMachine(std::u16string_view server) {
    while (server.starts_with(u'\\')) server.remove_prefix(1);
    std::array<char, 256> own{};
    gethostname(own.data(), own.size() - 1);
    const auto name = toUtf8(server);
    return name.empty() || strcasecmp(name.c_str(), "localhost") == 0 ||
           strcasecmp(name.c_str(), own.data()) == 0;
}

bool isGoodName(std::u16string_view name) {
    constexpr std::u16string_view bad = u"%<>*?|/\\+=;:\",[]";
    return name.size() <= longestName && !hasControls(name) && name.find_first_of(bad) == name.npos &&
           name != u"." && name != u".." && name.front() != u' ' && name.back() != u' ';
}

/// The folder's own path without links; empty where there is none. Its names may come from links and short
/// names, and the server's files have a line for each setting.
std::string folderOfShare(std::u16string_view path) {
    if (hasControls(path)) return {};
    const auto found = foundHostPath(path);
    const auto facts = factsOfTarget(found);
    if (!facts || !S_ISDIR(facts->st_mode)) return {};
    std::array<char, PATH_MAX> real;
    if (!realpath(found.c_str(), real.data()) || hasControls(fromUtf8(real.data()))) return {};
    return real.data();
}

bool isTaken(const std::u16string& name, const SambaSettings& settings) {
    if (settings.sections.contains(name) || std::ranges::find(reservedNames, name) != reservedNames.end())
        return true;
    return std::ranges::any_of(entriesOf(settings.userShareFolder),
                               [&](const std::string& entry) { return capitals(fromUtf8(entry)) == name; });
}

/// What is wrong with the texts of a share; success for nothing.
I4 checked(const ShareInfo2& share) {
    if (share.shi2_netname.empty()) return networkStatus::invalidParameter;
    if (!isGoodName(share.shi2_netname)) return networkStatus::invalidName;
    if (share.shi2_remark.length() > longestRemark || hasControls(share.shi2_remark))
        return networkStatus::invalidParameter;
    return networkStatus::success;
}

I4 add(const ShareInfo2& share, const std::string& folder, const SambaSettings& settings) {
    // Two that want one name at the same time: the second one finds it taken.
    const FileDescriptor lock(open(settings.userShareFolder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!lock.isOpen())
        return errno == ENOENT ? networkStatus::serverNotStarted : networkStatus::accessDenied;
    while (flock(lock.get(), LOCK_EX) != 0)
        if (errno != EINTR) return networkStatus::accessDenied;
    const auto name = capitals(share.shi2_netname);
    if (isTaken(name, settings)) return networkStatus::duplicateShare;
    const auto made = runProgram({"net", "usershare", "add", "--", toUtf8(share.shi2_netname), folder,
                                  toUtf8(share.shi2_remark), "S-1-1-0:F", "guest_ok=n"});
    if (!made) raise(ErrorNumber::FileNotFound);
    // The program says so, too, of names for which it does nothing.
    return isTaken(name, settings) ? networkStatus::success : networkStatus::accessDenied;
}

class LinuxSharing : public Sharing {
    I4 NetShareAdd(const Bstr& server, I4 /*level*/, const ShareInfo2& share,
                   I4& /*invalidParameter*/) override {
        const auto printed = runProgram({"testparm", "-s", "-v"});
        if (!printed) raise(ErrorNumber::FileNotFound);
        if (!isThisMachine(server)) return networkStatus::notSupported;
        if (const I4 fault = checked(share)) return fault;
        const auto folder = folderOfShare(share.shi2_path);
        if (folder.empty()) return networkStatus::unknownFolder;
        if (folder.find('%') != folder.npos)
            return networkStatus::accessDenied;  // the server replaces what follows
        const auto settings = sambaSettingsIn(printed->text);
        if (!settings.allowsUserShares || settings.userShareFolder.empty())
            return networkStatus::serverNotStarted;
        return add(share, folder, settings);
    }
};

}  // namespace

Sharing& homeSharing() {
    static LinuxSharing port;
    return port;
}

}  // namespace tovera
