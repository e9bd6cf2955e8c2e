#include <sys/stat.h>
#include <unistd.h>

#include "frame/failure_marks.h"
#include "frame/utf8.h"
#include "platform/linux/files/file_errors.h"
#include "platform/linux/files/file_facts.h"
#include "platform/linux/files/files.h"
#include "platform/linux/files/path_text.h"
#include "platform/linux/files/paths.h"
#include "platform/linux/files/whole_file.h"
#include "platform/linux/shell/desktop_entry.h"
#include "platform/linux/shell/link_twins.h"
#include "platform/linux/shell/user_folders.h"
#include "platform/linux/text/letter_case.h"

namespace tovera {
namespace {

constexpr std::size_t lengthOfEnd = 4;  // ".lnk"

bool isLinkName(std::string_view path) {
    return path.size() > lengthOfEnd && capitals(fromUtf8(path.substr(path.size() - lengthOfEnd))) == u".LNK";
}

std::string nameIn(const std::string& path) {
    return path.substr(path.rfind('/') + 1);
}

std::string entryBeside(const std::string& link) {
    return link.substr(0, link.size() - lengthOfEnd) + ".desktop";
}

bool isMarkedTwin(const std::string& entry, const std::string& link) {
    FileBytes bytes;
    return readFile(entry, bytes) == 0 && isEntryOf(bytes.view(), nameIn(link));
}

/// A desktop entry of the user's is never touched.
void expectFreePlace(const std::string& link) {
    const auto entry = entryBeside(link);
    if (factsOf(entry) && !isMarkedTwin(entry, link)) raise(ErrorNumber::FileExists);
}

/// Programs that start entries trust those that may be run; what starts by itself at log-on needn't be.
void writeTwin(const std::string& link) {
    FileBytes bytes;
    if (const int error = readFile(link, bytes)) raiseFileError(error);
    const auto read = readLink(bytes.view());
    if (!read) return;
    const auto entry = entryBeside(link);
    const auto text = [&](std::string_view) { return entryFor(*read, nameIn(link)); };
    if (const int error = changeFile(entry, text)) raiseFileError(error);
    const auto autostart = userFolder("XDG_CONFIG_HOME") + "/autostart/";
    chmod(entry.c_str(), folderOf(entry) == autostart ? 0644 : 0755);
}

/// Files of the desktop: beside a link of Windows stands an entry that does the same here, and goes where it
/// goes.
class FilesWithLinks : public LinuxFiles {
    void copy(const Bstr& source, const Bstr& target) override {
        const auto link = foundHostPath(target);
        if (!isLinkName(link)) return LinuxFiles::copy(source, target);
        expectFreePlace(link);
        const bool isFresh = !factsOf(link);
        LinuxFiles::copy(source, target);
        try {
            writeTwin(link);
        } catch (...) {
            if (isFresh) unlink(link.c_str());
            throw;
        }
    }
    void remove(const Bstr& path) override {
        const auto link = foundHostPath(path);
        const auto twin = markedTwinOf(link);
        LinuxFiles::remove(path);
        if (!twin.empty()) unlink(twin.c_str());
    }
    void rename(const Bstr& oldPath, const Bstr& newPath) override {
        const auto from = foundHostPath(oldPath);
        const auto twin = markedTwinOf(from);
        const auto to = hostPath(newPath);
        const bool goesAlong = !twin.empty() && isLinkName(to);
        const bool keepsItsName = goesAlong && entryBeside(foundPath(to)) == twin;
        if (goesAlong && !keepsItsName) expectFreePlace(foundPath(to));
        LinuxFiles::rename(oldPath, newPath);
        try {
            if (goesAlong) writeTwin(foundHostPath(newPath));
        } catch (...) {
            FailuresIgnored()([&] { LinuxFiles::rename(newPath, Bstr(fromUtf8(from))); });
            throw;
        }
        if (!twin.empty() && !keepsItsName) unlink(twin.c_str());
    }
};

}  // namespace

std::string markedTwinOf(const std::string& link) {
    if (!isLinkName(link)) return {};
    auto entry = entryBeside(link);
    return isMarkedTwin(entry, link) ? entry : std::string();
}

Files& homeFiles() {
    static FilesWithLinks port;
    return port;
}

}  // namespace tovera
