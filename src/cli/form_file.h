#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "cli/form_names.h"

// The text of a Visual Basic form file: where its controls and their properties stand. Everything is bytes of
// the ANSI code page.
namespace tovera::cli {

/// A piece of the file.
struct Extent {
    std::size_t at = 0;
    std::size_t length = 0;
    std::size_t end() const { return at + length; }
};

/// How a property is written: a text in quotes, a number, or anything else (a place in the companion file, a
/// shortcut key, a group of properties), which is never touched.
enum class Written { Text, Number, Other };

struct FormProperty {
    std::string name;
    Written written = Written::Other;
    Extent lines;      ///< with their line ends; a group has several
    Extent value;      ///< of a text with its quotes
    std::string text;  ///< of a text without them, of a number its digits
};

/// A `Begin Class Name … End` block: the form, or one of its controls.
struct FormBlock {
    std::string className;  ///< without the prefix of the built-in classes, `VB.`
    std::string name;
    Extent firstLine;
    std::vector<FormProperty> properties;  ///< its own, in file order
};

struct FormFile {
    std::string bytes;
    int version = 0;                ///< of the format, in hundredths
    std::vector<FormBlock> blocks;  ///< in file order: the form, then its controls
};

/// Reads a form file. Raises error 321 for anything that isn't one, or not a whole one. What follows the
/// form's block, attributes and code, is not looked at.
FormFile readFormFile(std::string bytes);

struct TextChange {
    std::size_t block = 0;
    std::string_view property;
    std::string text;
};

/// The bytes of the file with other texts for some properties, and all other bytes as they are. A property
/// without a line gets one in its alphabetical place, in the style of the lines round it. The changes come in
/// file order, and for one block in alphabetical order.
std::string withTexts(const FormFile& file, std::span<const TextChange> changes);

/// The property with this name, the last one when the file repeats it; null when
/// there is none.
const FormProperty* findProperty(const FormBlock& block, std::string_view name);

}  // namespace tovera::cli
