#pragma once

#include <optional>
#include <string>
#include <string_view>

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

/// The one place where a text has to change.
struct ProfileEdit {
    std::size_t position = 0;
    std::size_t length = 0;
    std::string replacement;
};

/// The edit that gives an entry a value: in its line when there is one, else behind the last line of its
/// section that isn't blank, else in a new section at the end. All of them: nothing when all is as it
/// should be.
std::optional<ProfileEdit> editToSet(std::string_view text, std::string_view section, std::string_view key,
                                     std::string_view value);
std::optional<ProfileEdit> editToRemove(std::string_view text, std::string_view section,
                                        std::string_view key);
/// The section goes with all that stands up to the next header.
std::optional<ProfileEdit> editToRemoveSection(std::string_view text, std::string_view section);

}  // namespace tovera
