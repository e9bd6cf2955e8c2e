#include <algorithm>

#include "cli/form_file.h"
#include "cli/value_text.h"

namespace tovera::cli {
namespace {

struct Edit {
    Extent replaced;
    std::string by;
};

std::string_view lineEndOf(std::string_view line) {
    return line.ends_with("\r\n") ? "\r\n" : "\n";
}

std::string_view indentationOf(std::string_view line) {
    return line.substr(0, std::min(line.find_first_not_of(" \t"), line.size()));
}

/// How the lines of a block are laid out: what stands before the name, before the sign and behind it.
struct LineStyle {
    std::string indentation;
    std::size_t signColumn = 16;  ///< from the beginning of the name; shorter names are filled up with blanks
    std::size_t blanksBefore = 0;
    std::string blanksBehind = "   ";
    std::string lineEnd;

    std::string line(std::string_view name, std::string_view text) const {
        std::string written = indentation;
        written += name;
        const auto fill = signColumn > name.size() ? signColumn - name.size() : blanksBefore;
        return written.append(fill, ' ') + '=' + blanksBehind + inQuotes(text) + lineEnd;
    }
};

/// The property line that tells the style best: the one with the shortest name, whose sign is most clearly
/// either right behind the name or lined up with others.
const FormProperty* modelOf(const FormBlock& block, std::string_view bytes) {
    const FormProperty* model = nullptr;
    for (const auto& property : block.properties) {
        const bool isLine = bytes.substr(property.lines.at, property.lines.length).find('=') <
                            bytes.substr(property.lines.at, property.lines.length).find('\n');
        if (isLine && (!model || property.name.size() < model->name.size())) model = &property;
    }
    return model;
}

LineStyle styleOf(const FormBlock& block, std::string_view bytes) {
    const auto lineAt = [&](Extent extent) { return bytes.substr(extent.at, extent.length); };
    LineStyle style;
    const auto first = lineAt(block.firstLine);
    style.lineEnd = lineEndOf(first);
    style.indentation = indentationOf(first);
    style.indentation += style.indentation.find('\t') == std::string::npos ? "   " : "\t";
    const auto* const model = modelOf(block, bytes);
    if (!model) return style;
    const auto line = lineAt(model->lines);
    style.indentation = indentationOf(line);
    const auto sign = line.find('=');
    const auto column = sign - style.indentation.size();
    const bool linedUp = column > model->name.size() + 1;
    style.signColumn = linedUp ? column : 0;
    style.blanksBefore = linedUp ? 0 : column - model->name.size();
    style.blanksBehind = indentationOf(line.substr(sign + 1));
    return style;
}

bool alphabeticallyBefore(std::string_view a, std::string_view b) {
    return std::ranges::lexicographical_compare(a, b, {}, capitalByte, capitalByte);
}

/// Where a new property's line goes: before the first property whose name comes later in the alphabet.
std::size_t placeOf(std::string_view name, const FormBlock& block) {
    const auto later = std::ranges::find_if(block.properties, [&](const FormProperty& property) {
        return alphabeticallyBefore(name, property.name);
    });
    if (later != block.properties.end()) return later->lines.at;
    return block.properties.empty() ? block.firstLine.end() : block.properties.back().lines.end();
}

Edit editFor(const FormFile& file, const TextChange& change) {
    const auto& block = file.blocks[change.block];
    if (const auto* property = findProperty(block, change.property))
        return {property->value, inQuotes(change.text)};
    const auto style = styleOf(block, file.bytes);
    return {{placeOf(change.property, block), 0}, style.line(change.property, change.text)};
}

}  // namespace

std::string withTexts(const FormFile& file, std::span<const TextChange> changes) {
    std::vector<Edit> edits;
    for (const auto& change : changes) edits.push_back(editFor(file, change));
    std::ranges::stable_sort(edits, {}, [](const Edit& edit) { return edit.replaced.at; });
    std::string bytes;
    std::size_t done = 0;
    for (const auto& edit : edits) {
        bytes.append(file.bytes, done, edit.replaced.at - done).append(edit.by);
        done = edit.replaced.end();
    }
    return bytes.append(file.bytes, done);
}

}  // namespace tovera::cli
