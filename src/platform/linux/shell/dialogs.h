#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "frame/values.h"

// Questions to the user: by the desktop's own dialog program where there is a display, else on the terminal
// where there is one.
namespace tovera {

/// Whether a display is there that answers.
bool displayAnswers();

/// Shows a text until the user has read it, as a message box of these flags would; false where there is no
/// dialog program or no display.
bool showInDialog(std::u16string_view text, std::u16string_view title, I4 flags);

/// Asks for yes or no; no where there is nobody to ask.
bool askUser(std::u16string_view text, std::u16string_view title);

/// What a program that asks the user has said.
struct DialogAnswer {
    bool accepted = false;
    std::string output;  ///< without the line end behind it
};

/// Runs a dialog program that is on the path to its end, with this input, while the host's loop goes on being
/// served.
DialogAnswer runDialog(const std::vector<std::string>& words, const std::string& input = {});

}  // namespace tovera
