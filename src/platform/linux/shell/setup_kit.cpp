#include "platform/setup_kit.h"

#include <filesystem>

#include "frame/last_error.h"
#include "frame/utf8.h"
#include "platform/linux/files/path_text.h"
#include "platform/linux/files/paths.h"
#include "platform/linux/files/whole_file.h"
#include "platform/linux/shell/programs.h"
#include "platform/linux/shell/shell_link.h"
#include "platform/linux/text/ansi_buffer.h"

namespace tovera {
namespace {

/// A path as Windows sees it, for one that is there; for a bare name that of the program on the path.
std::u16string targetOf(std::u16string_view given) {
    auto path = foundHostPath(given);
    if (path.find('/') == std::string::npos) {
        if (const auto program = findProgram(path)) path = program->path;
    }
    std::error_code ignored;
    return path.empty() ? std::u16string(given)
                        : windowsPath(std::filesystem::absolute(path, ignored).string());
}

class LinuxSetupKit : public SetupKit {
    I4 fCreateShellLink(const AnsiText& /*folder*/, const AnsiText& name, const AnsiText& target,
                        const AnsiText& arguments) override {
        const auto file = toUtf8(textOf(name)) + ".lnk";
        if (file.find_first_of("/\\") != std::string::npos) return 0;
        ShellLink link;
        link.target = targetOf(textOf(target));
        link.folder = link.target.substr(0, link.target.rfind(u'\\') + 1);
        link.arguments = textOf(arguments);
        lastError() = changeFile(file, [&](std::string_view) { return linkBytes(link); });
        return lastError() == 0 ? 1 : 0;
    }
};

}  // namespace

SetupKit& homeSetupKit() {
    static LinuxSetupKit port;
    return port;
}

}  // namespace tovera
