#pragma once

#include <string_view>

// The type library's own facts, beside its name.
namespace tovera {

inline constexpr std::string_view libraryHelp = "KADREL..INI REG WINDOWS WAIT";
inline constexpr std::string_view libraryVersion = "1.0";
/// The class whose help string the published records bear.
inline constexpr std::string_view classOfRecords = "Cls_Windows";

}  // namespace tovera
