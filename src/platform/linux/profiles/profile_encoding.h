#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/linux/profiles/profile_text.h"

namespace tovera {

/// A profile's bytes as ANSI text. Files are ANSI, but for those that begin with the mark of a Unicode form:
/// they are read as what they are, and stay what they are.
class ProfileContent {
  public:
    /// The bytes must outlive this object.
    explicit ProfileContent(std::string_view bytes);

    /// Whether a file that begins with these bytes has the mark of a Unicode form.
    static bool isUnicode(std::string_view bytes) {
        return ProfileContent(bytes.substr(0, 3)).form_ != Form::Ansi;
    }

    std::string_view ansi() const { return form_ == Form::Ansi ? bytes_ : std::string_view(ansi_); }

    /// The bytes with changes of the ANSI text made in them. Nothing when the rest couldn't stay as it is.
    std::optional<std::string> with(const ProfileEdits& edits) const;

  private:
    enum class Form { Ansi, Utf8, Utf16, Utf16Swapped };

    std::string encoded(std::u16string_view text) const;

    std::string_view bytes_;  ///< without the mark
    std::string_view mark_;
    Form form_ = Form::Ansi;
    std::u16string text_;  ///< of a Unicode form, its code units in step with the ANSI bytes
    std::string ansi_;
};

}  // namespace tovera
