#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tovera {

/// One word of a command line.
struct CommandWord {
    std::string text;
    std::size_t end = 0;  ///< the place behind it in the line
    bool wasQuoted = false;
};

/// The words of a command line as Windows programs cut them: blanks and tabs separate outside of double
/// quotes; of backslashes in front of a quote half stay, and an odd one makes the quote a character; two
/// quotes within quotes stand for one. In the first word, which names the program, backslashes are
/// characters.
std::vector<CommandWord> wordsOf(std::string_view line);

/// A program to start, with its arguments.
struct Command {
    std::string program;  ///< its path
    std::vector<std::string> arguments;
    std::string folder = {};  ///< to start in; empty for the current one
};

/// Finds the program that a line begins with. One whose name has blanks needs no quotes. The rest goes to it
/// word by word, paths that begin with a drive as paths of this system; as one argument where the whole of it
/// names a file. Error 5 for a line without words and for a program that may not be run, 53 for one that
/// isn't found.
Command commandOf(std::string_view line);

}  // namespace tovera
