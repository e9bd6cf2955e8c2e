#include <filesystem>
#include <strings.h>
#include <sys/stat.h>
#include <unistd.h>

#include "frame/utf8.h"
#include "platform/linux/files/file_facts.h"
#include "platform/linux/files/file_url.h"
#include "platform/linux/files/paths.h"
#include "platform/linux/shell/opening.h"
#include "platform/linux/shell/process.h"
#include "platform/linux/shell/programs.h"
#include "platform/linux/text/ansi_buffer.h"
#include "platform/opening.h"

namespace tovera {
namespace {

// Answers, as the platform gives them for the same.
constexpr I4 opened = 33;
constexpr I4 fileMissing = 2;
constexpr I4 noProgram = 31;

bool isOpening(const AnsiText& verb) {
    return verb.isNull || verb.terminated().empty() || strcasecmp(verb.bytes.c_str(), "open") == 0;
}

bool isProgram(const std::string& path) {
    const auto facts = factsOfTarget(path);
    return facts && S_ISREG(facts->st_mode) && access(path.c_str(), X_OK) == 0;
}

I4 startProgram(const std::string& path, const AnsiText& parameters, const AnsiText& folder) {
    Command command{path, {}};
    for (auto& word : wordsOf("program " + toUtf8(textOf(parameters))))
        command.arguments.push_back(word.text);
    command.arguments.erase(command.arguments.begin());
    command.folder = foundHostPath(textOf(folder));
    if (!factsOfTarget(command.folder)) command.folder.clear();
    startProcess(command);
    return opened;
}

/// By the desktop's libraries, or by the program that stands for them where they are missing.
bool openByProgram(const std::string& target) {
    if (hasDesktopLibraries()) return openByDesktop(target);
    const auto program = findProgram("xdg-open");
    if (!program) raise(ErrorNumber::FileNotFound);
    startProcess({program->path, {target}});
    return true;
}

class LinuxOpening : public Opening {
    /// Programs here need no owner.
    I4 GetDesktopWindow() override { return 0; }

    I4 ShellExecuteA(I4 /*window*/, const AnsiText& verb, const AnsiText& file, const AnsiText& parameters,
                     const AnsiText& folder, I4 /*show*/) override {
        const auto target = textOf(file);
        if (!isOpening(verb)) return noProgram;
        const auto path = pathOfUrl(target);
        if (!path) return openByProgram(toUtf8(target)) ? opened : noProgram;
        const auto found = foundHostPath(*path);
        if (!found.empty() && factsOfTarget(found)) {
            if (openByProgram(std::filesystem::absolute(found).string())) return opened;
            return isProgram(found) ? startProgram(found, parameters, folder) : noProgram;
        }
        const auto name = toUtf8(*path);
        if (name.empty() || name.find_first_of("/\\") != name.npos) return fileMissing;
        const auto program = findProgram(name);
        return program && program->mayRun ? startProgram(program->path, parameters, folder) : fileMissing;
    }
};

}  // namespace

Opening& homeOpening() {
    static LinuxOpening port;
    return port;
}

}  // namespace tovera
