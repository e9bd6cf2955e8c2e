#include "cli/form_classes.h"

#include <algorithm>
#include <array>

namespace tovera::cli {
namespace {

using enum TextAccess;

/// The built-in classes with their texts. Those with none (timers, lines, shapes, scroll bars) have rows too,
/// or they would count as classes that nothing is known of.
struct BuiltInClass {
    std::string_view name;
    TextAccess caption = None;
    TextAccess text = None;
    TextAccess toolTipText = None;
};

constexpr std::array builtInClasses{
    BuiltInClass{"Form", ReadWrite, None, None},
    BuiltInClass{"MDIForm", ReadWrite, None, None},
    BuiltInClass{"PropertyPage", ReadWrite, None, None},
    BuiltInClass{"UserControl", None, None, None},
    BuiltInClass{"UserDocument", None, None, None},
    BuiltInClass{"Label", ReadWrite, None, ReadWrite},
    BuiltInClass{"CommandButton", ReadWrite, None, ReadWrite},
    BuiltInClass{"CheckBox", ReadWrite, None, ReadWrite},
    BuiltInClass{"OptionButton", ReadWrite, None, ReadWrite},
    BuiltInClass{"Frame", ReadWrite, None, ReadWrite},
    BuiltInClass{"Data", ReadWrite, None, ReadWrite},
    BuiltInClass{"Menu", ReadWrite, None, None},
    BuiltInClass{"TextBox", None, ReadWrite, ReadWrite},
    BuiltInClass{"ComboBox", None, ReadWrite, ReadWrite},
    BuiltInClass{"ListBox", None, Read, ReadWrite},
    BuiltInClass{"DriveListBox", None, None, ReadWrite},
    BuiltInClass{"DirListBox", None, None, ReadWrite},
    BuiltInClass{"FileListBox", None, None, ReadWrite},
    BuiltInClass{"PictureBox", None, None, ReadWrite},
    BuiltInClass{"Image", None, None, ReadWrite},
    BuiltInClass{"OLE"},
    BuiltInClass{"Timer"},
    BuiltInClass{"Line"},
    BuiltInClass{"Shape"},
    BuiltInClass{"HScrollBar"},
    BuiltInClass{"VScrollBar"},
};

/// Tool tips came with this version of the format.
constexpr int firstVersionWithToolTips = 500;

TextAccess accessOfClass(const BuiltInClass& builtIn, std::string_view property) {
    if (sameName(property, "Caption")) return builtIn.caption;
    return sameName(property, "Text") ? builtIn.text : builtIn.toolTipText;
}

/// A combo box that only lets choose from its list: its text follows the choice.
bool isDropDownList(const FormBlock& block) {
    const auto* const style = findProperty(block, "Style");
    return sameName(block.className, "ComboBox") && style && style->text == "2";
}

}  // namespace

TextAccess accessTo(const FormFile& file, const FormBlock& block, std::string_view property) {
    const auto* const builtIn = std::ranges::find_if(
        builtInClasses, [&](const BuiltInClass& row) { return sameName(row.name, block.className); });
    const auto* const present = findProperty(block, property);
    if (present && present->written != Written::Text) return None;
    auto access = present ? ReadWrite : None;
    if (builtIn != builtInClasses.end()) {
        const auto ofClass = accessOfClass(*builtIn, property);
        if (ofClass == Read || !present) access = ofClass;
        const bool isToolTip = sameName(property, "ToolTipText");
        if (isToolTip && !present && file.version < firstVersionWithToolTips) return None;
    }
    const bool isText = sameName(property, "Text");
    return access == ReadWrite && isText && isDropDownList(block) ? Read : access;
}

}  // namespace tovera::cli
