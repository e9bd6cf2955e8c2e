#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/linux/profiles/profile_lines.h"

// What a profile (INI) text holds, and what has to change in it, in ANSI bytes. Of sections and keys of the
// same name the first one counts. The section without a name is what stands in front of the first header.
namespace tovera {

/// The search for an entry in a text that comes in pieces of whole lines.
class ProfileSearch {
  public:
    ProfileSearch(std::string_view section, std::string_view key);

    /// Looks through the next lines of the text. False when the rest of the text needn't be looked at.
    bool goesOnAfter(std::string_view text);
    /// The value in the lines that were looked through last, its quotation marks included. Nothing when there
    /// is no such entry, or no equals sign on its line.
    std::optional<std::string_view> value() const { return value_; }

  private:
    SoughtName section_;
    SoughtName key_;
    bool inSection_;
    std::optional<std::string_view> value_;
};

/// The names of all sections, or of a section's keys, each with a NUL behind it. Lines without a name or
/// an equals sign and comments are no keys.
std::string profileSections(std::string_view text);
std::string profileKeys(std::string_view text, std::string_view section);

/// A place where a text has to change.
struct ProfileEdit {
    std::size_t position = 0;
    std::size_t length = 0;
    std::string replacement;
};

/// In the order of their places, which don't overlap. None when all is as it should be.
using ProfileEdits = std::vector<ProfileEdit>;

/// An entry that is to have a value, or to be gone.
struct EntryWrite {
    std::string section;
    std::string key;
    std::optional<std::string> value;
};

/// The edits that make writes of different entries. An entry gets its value in its line when there is one,
/// else behind the last line of its section that isn't blank, else in a new section at the end.
ProfileEdits editsFor(std::string_view text, std::span<const EntryWrite> writes);
/// The section goes with all that stands up to the next header.
ProfileEdits editsToRemoveSection(std::string_view text, std::string_view section);

/// A text with the edits made in it; their replacements are given in the characters of the text.
template <class Text, class Replacement>
Text withEdits(const Text& text, const ProfileEdits& edits, Replacement&& replacement) {
    Text changed;
    std::size_t kept = 0;
    for (const auto& edit : edits) {
        changed.append(text.substr(kept, edit.position - kept)).append(replacement(edit.replacement));
        kept = edit.position + edit.length;
    }
    return changed.append(text.substr(kept));
}

/// Nothing when there is nothing to change.
std::optional<std::string> withEdits(std::string_view text, const ProfileEdits& edits);

}  // namespace tovera
