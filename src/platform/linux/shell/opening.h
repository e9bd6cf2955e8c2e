#pragma once

#include <optional>
#include <string>

namespace tovera {

/// The program that opens a document.
struct Opener {
    std::string executable;  ///< path of this system; empty where the entry names none that is found
};

// Documents and their programs, by the desktop's own rules; without its libraries there are none.

/// The program that the desktop has for an existing file.
std::optional<Opener> openerOf(const std::string& path);

/// Whether the desktop's libraries are there.
bool hasDesktopLibraries();

/// Opens a file or an address (`http://…`, `mailto:…`) by the desktop's own program for it. False when there
/// is none, or when it can't be started.
bool openByDesktop(const std::string& target);

/// Starts the desktop's own program for a type, with no file.
bool startProgramFor(const std::string& type);

/// Lets the user choose a program for a file: the desktop's own dialog, which closes when this process ends.
bool openWithDialog(const std::string& path);

}  // namespace tovera
