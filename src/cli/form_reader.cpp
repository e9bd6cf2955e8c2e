#include <algorithm>
#include <charconv>
#include <cmath>

#include "cli/form_file.h"
#include "frame/error.h"

namespace tovera::cli {
namespace {

constexpr std::string_view blanks = " \t\r\n";

[[noreturn]] void refuse() {
    raise(ErrorNumber::InvalidFileFormat);
}

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::vector<std::string_view> wordsOf(std::string_view text) {
    std::vector<std::string_view> words;
    while (!(text = trimmed(text)).empty()) {
        words.push_back(text.substr(0, text.find_first_of(blanks)));
        text.remove_prefix(words.back().size());
    }
    return words;
}

/// The content of a text in quotes, a doubled quote standing for one, and the length that it takes with its
/// quotes. Refused without its closing quote.
struct QuotedText {
    std::string content;
    std::size_t length = 0;
};

QuotedText quotedText(std::string_view value) {
    QuotedText quoted;
    for (std::size_t at = 1; at < value.size(); ++at) {
        if (value[at] == '"') {
            if (at + 1 == value.size() || value[at + 1] != '"') {
                quoted.length = at + 1;
                return quoted;
            }
            ++at;
        }
        quoted.content += value[at];
    }
    refuse();
}

bool isNumber(std::string_view word) {
    if (word.starts_with("&H") || word.starts_with("&h")) return word.size() > 2;
    double number = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    return error == std::errc{} && end == word.data() + word.size();
}

/// Whether nothing but a remark follows a value.
bool endsThere(std::string_view rest) {
    rest = trimmed(rest);
    return rest.empty() || rest.front() == '\'';
}

/// Reads how a value is written. The value begins its view, which reaches to the end of the line.
void readValue(FormProperty& property, std::string_view value) {
    if (value.starts_with('"')) {
        auto quoted = quotedText(value);
        property.value.length = quoted.length;
        if (!endsThere(value.substr(quoted.length))) return;
        property.written = Written::Text;
        property.text = std::move(quoted.content);
    } else {
        const auto word = value.substr(0, value.find_first_of(" \t'"));
        property.value.length = word.size();
        if (!isNumber(word) || !endsThere(value.substr(word.size()))) return;
        property.written = Written::Number;
        property.text = word;
    }
}

class FormReader {
  public:
    explicit FormReader(FormFile& file) : file_(file), bytes_(file.bytes) {}

    void read() {
        readVersion();
        while (open_.empty()) readHeaderLine();
        while (!open_.empty()) readBlockLine();
    }

  private:
    struct Line {
        Extent whole;
        std::string_view content;  ///< without blanks at its ends
        std::vector<std::string_view> words;
    };

    Line nextLine() {
        if (at_ == bytes_.size()) refuse();
        const auto end = std::min(bytes_.find('\n', at_), bytes_.size() - 1) + 1;
        const auto whole = bytes_.substr(at_, end - at_);
        Line line{{at_, whole.size()}, trimmed(whole), wordsOf(whole)};
        at_ = end;
        return line;
    }

    void readVersion() {
        const auto line = nextLine();
        double version = 0;
        if (line.words.size() != 2 || !sameName(line.words[0], "VERSION")) refuse();
        const auto number = line.words[1];
        const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), version);
        constexpr double newest = 100;
        if (error != std::errc{} || end != number.data() + number.size()) refuse();
        if (!(version > 0 && version < newest)) refuse();
        file_.version = static_cast<int>(std::lround(version * 100));
    }

    /// Between the version and the form stand the libraries of its controls.
    void readHeaderLine() {
        const auto line = nextLine();
        if (opensBlock(line)) return beginBlock(line);
        if (line.words.empty() || line.content.starts_with('\'')) return;
        if (!sameName(line.words[0].substr(0, line.words[0].find('=')), "Object")) refuse();
    }

    void readBlockLine() {
        const auto line = nextLine();
        if (line.words.empty() || line.content.starts_with('\'')) return;
        const bool alone = line.words.size() == 1;
        if (opensBlock(line)) {
            beginBlock(line);
        } else if (line.words.size() > 1 && sameName(line.words[0], "BeginProperty") &&
                   !line.words[1].starts_with('=')) {
            beginGroup(line);
        } else if (alone && sameName(line.words[0], "EndProperty")) {
            endGroup(line);
        } else if (alone && sameName(line.words[0], "End")) {
            if (groups_ > 0) refuse();
            open_.pop_back();
        } else {
            addProperty(line);
        }
    }

    static bool opensBlock(const Line& line) {
        return line.words.size() == 3 && sameName(line.words[0], "Begin") && line.words[1] != "=";
    }

    void beginBlock(const Line& line) {
        if (groups_ > 0) refuse();
        constexpr std::string_view builtIn = "VB.";
        auto className = line.words[1];
        if (sameName(className.substr(0, builtIn.size()), builtIn)) className.remove_prefix(builtIn.size());
        open_.push_back(file_.blocks.size());
        file_.blocks.push_back({std::string(className), std::string(line.words[2]), line.whole, {}});
    }

    void beginGroup(const Line& line) {
        if (groups_++ == 0)
            block().properties.push_back({std::string(line.words[1]), Written::Other, line.whole, {}, {}});
    }

    void endGroup(const Line& line) {
        if (groups_ == 0) refuse();
        auto& lines = block().properties.back().lines;
        if (--groups_ == 0) lines.length = line.whole.end() - lines.at;
    }

    void addProperty(const Line& line) {
        const auto sign = line.content.find('=');
        if (sign == std::string_view::npos) refuse();
        FormProperty property;
        property.name = trimmed(line.content.substr(0, sign));
        if (property.name.empty()) refuse();
        property.lines = line.whole;
        const auto value = trimmed(line.content.substr(sign + 1));
        property.value.at =
            value.empty() ? line.whole.end() : static_cast<std::size_t>(value.data() - bytes_.data());
        readValue(property, value);
        if (groups_ == 0) block().properties.push_back(std::move(property));
    }

    FormBlock& block() { return file_.blocks[open_.back()]; }

    FormFile& file_;
    std::string_view bytes_;
    std::size_t at_ = 0;
    std::vector<std::size_t> open_;  ///< the blocks that have begun and not ended
    std::size_t groups_ = 0;         ///< groups of properties that have begun and not ended
};

}  // namespace

const FormProperty* findProperty(const FormBlock& block, std::string_view name) {
    const auto hasName = [&](const FormProperty& property) { return sameName(property.name, name); };
    const auto found = std::find_if(block.properties.rbegin(), block.properties.rend(), hasName);
    return found == block.properties.rend() ? nullptr : &*found;
}

FormFile readFormFile(std::string bytes) {
    FormFile file;
    file.bytes = std::move(bytes);
    FormReader(file).read();
    return file;
}

}  // namespace tovera::cli
