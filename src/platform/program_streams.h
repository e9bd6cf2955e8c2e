#pragma once

#include <chrono>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// What a program of the component needs of its system, besides the services and ports. Text is UTF-8.
namespace tovera {

/// The streams that a program is started with.
enum class StandardStream { Input, Output, Error };

/// To be called first: sees to it that no file which the program opens takes the place of a stream that it
/// was started without, and that the system's objects can be used.
void startProgram();

/// What follows the program's own name, for the arguments of `main`.
std::vector<std::string> programArguments(int count, char** values);

/// Reads what is there, and waits when nothing is: the number of bytes, 0 at the end. Nothing when it fails.
std::optional<std::size_t> readInput(std::span<char> bytes);

/// Writes all bytes; false when it fails.
bool writeStream(StandardStream stream, std::string_view bytes);

/// What the last of these functions failed of, in the system's words.
std::string streamFailure();

bool isTerminal(StandardStream stream);

void pause(std::chrono::milliseconds time);

/// Whether a dialog that this program has opened, and that closes with it, waits for the user.
bool hasOpenDialog();

}  // namespace tovera
