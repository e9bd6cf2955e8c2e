#include "platform/linux/sound/mci_command.h"

#include <algorithm>
#include <array>
#include <vector>

#include "frame/ascii_case.h"

namespace tovera {
namespace {

constexpr std::string_view blanks = " \t";

/// The words of a command: quotes hold one together, and don't belong to it.
I4 split(std::string_view text, std::vector<std::string>& words) {
    text = text.substr(0, text.find('\0'));
    while (true) {
        text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
        if (text.empty()) return mci::success;
        const bool quoted = text.front() == '"';
        if (quoted) text.remove_prefix(1);
        const auto end = quoted ? text.find('"') : text.find_first_of(blanks);
        if (quoted && end == std::string_view::npos) return mci::unclosedQuote;
        const auto word = text.substr(0, end);
        words.emplace_back(word);
        text.remove_prefix(std::min(word.size() + (quoted ? 1 : 0), text.size()));
    }
}

struct VerbRow {
    std::string_view word;
    MciVerb verb;
};
constexpr std::array verbs{VerbRow{"open", MciVerb::Open}, VerbRow{"play", MciVerb::Play},
                           VerbRow{"stop", MciVerb::Stop}, VerbRow{"close", MciVerb::Close},
                           VerbRow{"set", MciVerb::Set}};

/// Goes through the words behind the device.
class Keywords {
  public:
    explicit Keywords(std::vector<std::string> words) : words_(std::move(words)) {}

    bool atEnd() const { return next_ == words_.size(); }
    std::string word() { return mciName(words_[next_++]); }
    I4 argument(std::optional<std::string>& value) {
        if (atEnd()) return mci::missingArgument;
        value = words_[next_++];
        return mci::success;
    }

  private:
    std::vector<std::string> words_;
    std::size_t next_ = 0;
};

I4 readOpen(Keywords& words, MciCommand& command) {
    while (!words.atEnd()) {
        const auto word = words.word();
        if (word != "type" && word != "alias") return mci::unknownKeyword;
        if (const I4 code = words.argument(word == "type" ? command.type : command.alias)) return code;
    }
    return mci::success;
}

I4 readSet(Keywords& words, MciCommand& command) {
    if (words.atEnd()) return mci::missingArgument;
    if (words.word() != "door") return mci::unknownKeyword;
    if (words.atEnd()) return mci::missingArgument;
    const auto position = words.word();
    if (position != "open" && position != "closed") return mci::unknownKeyword;
    command.opensDoor = position == "open";
    if (words.atEnd()) return mci::success;
    return words.word() == "wait" && words.atEnd() ? mci::success : mci::unknownKeyword;
}

}  // namespace

std::string mciName(std::string_view name) {
    return smallAscii(name);
}

I4 readMciCommand(std::string_view text, MciCommand& command) {
    command = {};
    std::vector<std::string> words;
    if (const I4 code = split(text, words)) return code;
    if (words.empty()) return mci::missingCommand;
    const auto* const row = std::ranges::find(verbs, mciName(words[0]), &VerbRow::word);
    if (row == verbs.end()) return mci::unknownCommand;
    command.verb = row->verb;
    if (words.size() < 2 || words[1].empty()) return mci::missingDevice;
    command.device = words[1];
    Keywords rest({words.begin() + 2, words.end()});
    if (command.verb == MciVerb::Open) return readOpen(rest, command);
    if (command.verb == MciVerb::Set) return readSet(rest, command);
    return rest.atEnd() ? mci::success : mci::unknownKeyword;
}

}  // namespace tovera
