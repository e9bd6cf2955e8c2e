#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>

// What the source tree says of a class, as paragraphs of Markdown with their line ends.
namespace tovera::reference {

struct Example {
    std::string sentence;
    std::string transcripts;  ///< each with a blank line before it
};

struct ClassTexts {
    std::string ofClass;
    std::map<std::string, std::string, std::less<>> comments;  ///< by member
    std::map<std::string, Example, std::less<>> examples;      ///< by member
};

ClassTexts textsOf(const std::filesystem::path& root, const std::string& className);

/// A text without the blanks round it.
std::string_view trimmed(std::string_view text);

}  // namespace tovera::reference
