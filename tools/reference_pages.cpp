// Writes the reference pages of all classes, one Markdown file a class, from the class table.
// Usage: reference_pages FOLDER

#include <filesystem>
#include <fstream>
#include <iostream>

#include "catalogue/catalogue.h"
#include "catalogue/signature.h"

namespace {

void writePage(std::ostream& page, const tovera::ClassDescription& description) {
    page << "# " << description.name << "\n\nProgID `" << description.progId << "`";
    if (!description.help.empty()) page << ": " << description.help;
    page << "\n\nThe members in slot order. This page is made from the class table.\n";
    for (const auto& member : description.members) {
        if (!member.published) continue;
        page << "\n- `" << tovera::signatureOf(member) << "`\n";
        if (!member.help.empty()) page << "\n  " << member.help << "\n";
    }
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 2) {
        std::cerr << "usage: reference_pages FOLDER\n";
        return 2;
    }
    const std::filesystem::path folder = arguments[1];
    std::filesystem::create_directories(folder);
    for (const auto& entry : tovera::catalogue()) {
        const auto& description = entry.description();
        std::ofstream page(folder / (std::string(description.name) + ".md"), std::ios::binary);
        writePage(page, description);
        if (!page.flush()) {
            std::cerr << "reference_pages: can't write to " << folder << '\n';
            return 1;
        }
    }
    return 0;
}
