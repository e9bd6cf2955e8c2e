#pragma once

#include <string>
#include <string_view>

namespace tovera::tools {

/// Who reads the IDL: the type library has the records and no unpublished slots; the header of C++ clients
/// has no records, which the system's headers declare, and every slot.
enum class IdlFor { Library, Header };

/// The published interface as IDL, in UTF-8.
std::string idlText(IdlFor reader);

/// Stands for a line feed in help strings, which the compiler would drop.
inline constexpr char lineFeedMark = '\x1F';

/// A name with its accented letters replaced, of the same length in the ANSI code page: IDL names are ASCII.
std::string plainName(std::string_view name);

}  // namespace tovera::tools
