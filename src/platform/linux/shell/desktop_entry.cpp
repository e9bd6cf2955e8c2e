#include "platform/linux/shell/desktop_entry.h"

#include <vector>

#include "frame/utf8.h"
#include "platform/linux/files/file_facts.h"
#include "platform/linux/files/paths.h"
#include "platform/linux/shell/command_line.h"
#include "platform/linux/shell/programs.h"

namespace tovera {
namespace {

constexpr std::string_view mark = "\nX-Tovera-Link=";

/// A value of the file: backslashes and line breaks are written as escapes.
std::string valueOf(std::string_view text) {
    std::string value;
    for (const char c : text) {
        if (c == '\\')
            value += "\\\\";
        else if (c == '\n')
            value += "\\n";
        else if (c == '\r')
            value += "\\r";
        else if (c == '\t')
            value += "\\t";
        else
            value += c;
    }
    return value;
}

/// A word of a command: in quotes, where four characters need a backslash, and with `%` doubled.
std::string quoted(std::string_view word) {
    std::string text = "\"";
    for (const char c : word) {
        if (c == '"' || c == '`' || c == '$' || c == '\\') text += '\\';
        if (c == '%') text += c;
        text += c;
    }
    return text + '"';
}

/// Programs are started with the link's arguments, anything else is opened by the desktop.
std::vector<std::string> commandOf(const ShellLink& link, const std::string& target) {
    const auto program = findProgram(target);
    if (!program || !program->mayRun) return {"xdg-open", target};
    auto command = tovera::commandOf('"' + target + "\" " + toUtf8(link.arguments));
    command.arguments.insert(command.arguments.begin(), target);
    return command.arguments;
}

}  // namespace

std::string entryFor(const ShellLink& link, const std::string& linkName) {
    const auto target = foundHostPath(link.target);
    const auto folder = foundHostPath(link.folder);
    std::string exec;
    for (const auto& word : commandOf(link, target)) exec += (exec.empty() ? "" : " ") + quoted(word);
    const auto name = linkName.substr(0, linkName.rfind('.'));
    std::string entry = "[Desktop Entry]\nType=Application\nVersion=1.0\nName=" + valueOf(name) +
                        "\nExec=" + valueOf(exec) + '\n';
    if (factsOfTarget(folder)) entry += "Path=" + valueOf(folder) + '\n';
    return entry + "Terminal=false" + std::string(mark) + valueOf(linkName) + '\n';
}

bool isEntryOf(std::string_view entry, const std::string& linkName) {
    return entry.find(std::string(mark) + valueOf(linkName) + '\n') != std::string_view::npos;
}

}  // namespace tovera
