#include "reference/sources.h"

#include <algorithm>
#include <fstream>
#include <stdexcept>

namespace tovera::reference {
namespace {

std::filesystem::path headerOf(const std::filesystem::path& root, const std::string& className) {
    auto name = className + ".h";
    std::ranges::transform(name, name.begin(),
                           [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c; });
    for (const auto& folder : std::filesystem::directory_iterator(root / "src")) {
        if (std::filesystem::exists(folder.path() / name)) return folder.path() / name;
    }
    throw std::runtime_error("no header of " + className);
}

/// The name that a line of a class declares as a function; empty for any other line.
std::string_view declaredName(std::string_view line) {
    const auto end = line.find('(');
    if (end == std::string_view::npos) return {};
    const auto begin = line.find_last_of(" &", end);
    return begin == std::string_view::npos ? std::string_view() : line.substr(begin + 1, end - begin - 1);
}

/// The comments that stand right before the class and the functions of its public part.
void readHeader(std::istream& header, const std::string& className, ClassTexts& texts) {
    constexpr std::string_view mark = "///";
    std::string comment;
    for (std::string whole; std::getline(header, whole);) {
        const auto line = trimmed(whole);
        if (line == "private:") break;
        if (line.starts_with(mark)) {
            comment.append(trimmed(line.substr(mark.size()))).append("\n");
            continue;
        }
        if (line.starts_with("class " + className + ' '))
            texts.ofClass = comment;
        else if (const auto name = declaredName(line); !name.empty() && !comment.empty())
            texts.comments.emplace(name, comment);
        comment.clear();
    }
}

/// Takes the home out of the line that opens a transcript, and gives it as a paragraph.
std::string withHomeInWords(std::string& line) {
    for (const auto& [word, paragraph] :
         {std::pair{" linux", "On Linux:\n\n"}, std::pair{" windows", "On Windows:\n\n"}}) {
        if (!line.ends_with(word)) continue;
        line.resize(line.size() - std::string_view(word).size());
        return paragraph;
    }
    return {};
}

/// Of the file of transcripts what stands under each member's heading.
void readExamples(std::istream& file, ClassTexts& texts) {
    constexpr std::string_view heading = "## ", fence = "```", test = "Seen by: ", library = "Needs: ";
    Example* example = nullptr;
    bool inside = false;
    for (std::string line; std::getline(file, line);) {
        if (!inside && line.starts_with(heading)) {
            example = &texts.examples[line.substr(heading.size())];
        } else if (!example ||
                   (!inside && (line.empty() || line.starts_with(test) || line.starts_with(library)))) {
            continue;
        } else if (line.starts_with(fence) || inside) {
            if (line.starts_with(fence)) {
                inside = !inside;
                if (inside) example->transcripts += '\n' + withHomeInWords(line);
            }
            example->transcripts += line + '\n';
        } else {
            example->sentence += line + '\n';
        }
    }
}

}  // namespace

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\r";
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

ClassTexts textsOf(const std::filesystem::path& root, const std::string& className) {
    ClassTexts texts;
    std::ifstream header(headerOf(root, className));
    readHeader(header, className, texts);
    std::ifstream examples(root / "docs" / "examples" / (className + ".md"));
    readExamples(examples, texts);
    return texts;
}

}  // namespace tovera::reference
