#include "platform/linux/shell/command_line.h"

#include <cerrno>

#include "frame/error.h"
#include "frame/last_error.h"
#include "frame/utf8.h"
#include "platform/linux/files/file_facts.h"
#include "platform/linux/files/paths.h"
#include "platform/linux/shell/programs.h"

namespace tovera {
namespace {

constexpr std::string_view blanks = " \t";

CommandWord programName(std::string_view line, std::size_t start) {
    CommandWord word;
    bool quoted = false;
    for (word.end = start; word.end < line.size(); ++word.end) {
        const char c = line[word.end];
        if (!quoted && blanks.find(c) != std::string_view::npos) break;
        if (c == '"') {
            quoted = !quoted;
            word.wasQuoted = true;
        } else {
            word.text += c;
        }
    }
    return word;
}

CommandWord argumentAt(std::string_view line, std::size_t start) {
    CommandWord word;
    bool quoted = false;
    auto& at = word.end;
    for (at = start; at < line.size();) {
        const char c = line[at];
        if (!quoted && blanks.find(c) != std::string_view::npos) break;
        const auto backslashes = std::min(line.find_first_not_of('\\', at), line.size()) - at;
        const bool beforeQuote = at + backslashes < line.size() && line[at + backslashes] == '"';
        if (backslashes > 0) {
            word.text.append(beforeQuote ? backslashes / 2 : backslashes, '\\');
            at += backslashes;
            if (!beforeQuote || backslashes % 2 == 0) continue;
            word.text += line[at++];
        } else if (c != '"') {
            word.text += c;
            ++at;
        } else if (quoted && line.substr(at, 2) == "\"\"") {
            word.text += c;
            at += 2;
        } else {
            quoted = !quoted;
            word.wasQuoted = true;
            ++at;
        }
    }
    return word;
}

bool namesFile(std::string_view path) {
    return !path.empty() && factsOfTarget(foundHostPath(fromUtf8(path))).has_value();
}

std::string_view withoutBlanks(std::string_view text) {
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

}  // namespace

std::vector<CommandWord> wordsOf(std::string_view line) {
    std::vector<CommandWord> words;
    for (std::size_t at = 0; (at = line.find_first_not_of(blanks, at)) != std::string_view::npos;) {
        words.push_back(words.empty() ? programName(line, at) : argumentAt(line, at));
        at = words.back().end;
    }
    return words;
}

Command commandOf(std::string_view line) {
    auto words = wordsOf(line);
    if (words.empty()) raise(ErrorNumber::InvalidCall);
    const auto start = line.find_first_not_of(blanks);
    auto endOfName = words[0].end;
    auto found = findProgram(words[0].text);
    std::size_t taken = 1;
    const bool mayGoOn = words[0].text.find_first_of("/\\") != std::string::npos && !words[0].wasQuoted;
    for (; !found && mayGoOn && taken < words.size(); ++taken) {
        endOfName = words[taken].end;
        found = findProgram(std::string(line.substr(start, endOfName - start)));
    }
    lastError() = !found ? ENOENT : found->mayRun ? 0 : EACCES;
    if (!found) raise(ErrorNumber::FileNotFound);
    if (!found->mayRun) raise(ErrorNumber::InvalidCall);
    Command command{found->path, {}};
    const auto rest = withoutBlanks(line.substr(endOfName));
    if (namesFile(rest)) {
        command.arguments.push_back(asHostPath(rest));
        return command;
    }
    for (std::size_t i = taken; i < words.size(); ++i) command.arguments.push_back(asHostPath(words[i].text));
    return command;
}

}  // namespace tovera
