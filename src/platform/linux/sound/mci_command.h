#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "frame/values.h"

// Commands in words, as the Media Control Interface (MCI) of Windows reads them.
namespace tovera {

/// Codes of MCI.
namespace mci {
inline constexpr I4 success = 0;
inline constexpr I4 unknownKeyword = 259;
inline constexpr I4 unknownCommand = 261;
inline constexpr I4 noSuchDevice = 263;
inline constexpr I4 noDriver = 266;
inline constexpr I4 missingCommand = 267;
inline constexpr I4 missingArgument = 269;
inline constexpr I4 fileMissing = 275;
inline constexpr I4 notReady = 276;
inline constexpr I4 cannotBeOpened = 277;
inline constexpr I4 unknownExtension = 281;
inline constexpr I4 aliasInUse = 289;
inline constexpr I4 missingDevice = 292;
inline constexpr I4 unclosedQuote = 301;
}  // namespace mci

enum class MciVerb { Open, Play, Stop, Close, Set };

/// A command: `open FILE [type T] [alias A]`, `play D`, `stop D`, `close D`, `set D door open|closed [wait]`.
/// Words of the language match without regard to case. Texts are ANSI.
struct MciCommand {
    MciVerb verb = MciVerb::Open;
    std::string device;  ///< as it is written: a file, an alias, or `cdaudio`
    std::optional<std::string> type = std::nullopt;
    std::optional<std::string> alias = std::nullopt;
    bool opensDoor = false;

    friend bool operator==(const MciCommand&, const MciCommand&) = default;
};

/// Reads a command. The result is a code; the command is complete when that tells success.
I4 readMciCommand(std::string_view text, MciCommand& command);

/// The same name for all that differ in ASCII case alone.
std::string mciName(std::string_view name);

}  // namespace tovera
