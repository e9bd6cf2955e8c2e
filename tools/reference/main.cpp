// Writes the reference pages of all classes, one Markdown file a class: the members from the class table,
// what they do from the comments of the class's header, and the transcripts of docs/examples. Usage:
// reference_pages ROOT FOLDER, where ROOT is the source tree

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "catalogue/catalogue.h"
#include "catalogue/signature.h"
#include "reference/sources.h"

namespace {

using tovera::reference::ClassTexts;

void writeMember(std::ostream& page, const tovera::ClassDescription& description, std::string_view name,
                 const ClassTexts& texts) {
    page << "\n## " << name << "\n";
    std::string_view help;
    for (const auto& row : description.members) {
        if (!row.published || row.name != name) continue;
        page << "\n- `" << tovera::signatureOf(row) << "`\n";
        if (help.empty()) help = row.help;
    }
    if (!help.empty()) page << "\n*" << tovera::reference::trimmed(help) << "*\n";
    const auto comment = texts.comments.find(name);
    const auto example = texts.examples.find(name);
    if (comment != texts.comments.end())
        page << '\n' << comment->second;
    else if (example != texts.examples.end())
        page << '\n' << example->second.sentence;
    if (example != texts.examples.end()) page << example->second.transcripts;
}

void writePage(std::ostream& page, const tovera::ClassDescription& description, const ClassTexts& texts) {
    page << "# " << description.name << "\n\nProgID `" << description.progId << "`";
    if (!description.help.empty()) page << ": *" << description.help << '*';
    page << "\n\n" << texts.ofClass;
    page << "\nThe members in slot order, with transcripts of the program `tovera`: \"…\" stands for what "
            "differs by\n"
            "machine. This page is made from the class table, the comments of the class and "
            "`docs/examples`.\n";
    std::string_view last;
    for (const auto& member : description.members) {
        if (member.published && member.name != last) writeMember(page, description, member.name, texts);
        last = member.name;
    }
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 3) {
        std::cerr << "usage: reference_pages ROOT FOLDER\n";
        return 2;
    }
    const std::filesystem::path folder = arguments[2];
    std::filesystem::create_directories(folder);
    for (const auto& entry : tovera::catalogue()) {
        const auto& description = entry.description();
        const std::string name(description.name);
        std::ofstream page(folder / (name + ".md"), std::ios::binary);
        writePage(page, description, tovera::reference::textsOf(arguments[1], name));
        if (!page.flush()) {
            std::cerr << "reference_pages: can't write to " << folder << '\n';
            return 1;
        }
    }
    return 0;
}
