#include "platform/linux/shell/programs.h"

#include <cstdlib>
#include <unistd.h>

#include "frame/ascii_case.h"
#include "frame/utf8.h"
#include "platform/linux/files/file_facts.h"
#include "platform/linux/files/paths.h"

namespace tovera {
namespace {

std::optional<FoundProgram> programAt(const std::string& path) {
    const auto facts = factsOfTarget(path);
    if (!facts || !S_ISREG(facts->st_mode)) return std::nullopt;
    return FoundProgram{path, access(path.c_str(), X_OK) == 0};
}

}  // namespace

std::optional<FoundProgram> findProgram(const std::string& name) {
    if (name.empty()) return std::nullopt;
    if (name.find_first_of("/\\") != std::string::npos) return programAt(foundHostPath(fromUtf8(name)));
    const char* const folders = std::getenv("PATH");
    std::string_view rest = folders ? folders : "/usr/local/bin:/usr/bin:/bin";
    std::optional<FoundProgram> mayNotRun;
    for (bool more = true; more;) {
        const auto end = rest.find(':');
        const auto folder = rest.substr(0, end);
        more = end != std::string_view::npos;
        if (more) rest.remove_prefix(end + 1);
        auto found = programAt((folder.empty() ? "." : std::string(folder)) + '/' + name);
        if (found && found->mayRun) return found;
        if (found && !mayNotRun) mayNotRun = found;
    }
    return mayNotRun;
}

bool hasProgram(const std::string& name) {
    const auto found = findProgram(name);
    return found && found->mayRun;
}

std::string asHostPath(std::string_view word) {
    const bool hasDrive =
        word.size() > 2 && isAsciiLetter(word[0]) && word[1] == ':' && (word[2] == '\\' || word[2] == '/');
    const auto path = hasDrive ? foundHostPath(fromUtf8(word)) : std::string();
    return path.empty() ? std::string(word) : path;
}

}  // namespace tovera
