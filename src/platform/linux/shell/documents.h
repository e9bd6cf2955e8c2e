#pragma once

#include <string>

#include "frame/values.h"

namespace tovera {

/// The program that opens a document, or why there is none, by the codes of the shell.
struct FoundOpener {
    I4 code = 0;
    std::string program;  ///< path of this system
};

/// For a document in a folder, both as callers name them; an empty folder is the current one.
FoundOpener findOpener(std::u16string_view document, std::u16string_view folder);

}  // namespace tovera
