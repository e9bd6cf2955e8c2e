#pragma once

#include <string_view>

#include "frame/values.h"
#include "platform/linux/registry/registry_store.h"

// What is written in the registry below the current user's data sources reaches the user's `odbc.ini` too, in
// the form that the ODBC of this system needs, so that its programs open the same sources.
namespace tovera {

inline constexpr std::string_view accessDescription = "Microsoft Access Driver (*.mdb)";
/// The Access driver's name in this system.
inline constexpr std::string_view accessDriver = "MDBTools";

/// What is below the key of the user's data sources, for a path of the user's registry: a source, the list of
/// them, or a key deeper than that, whose path is then the name. Empty for all other paths.
std::string_view dataSourceIn(std::string_view path);

/// Whether `odbc.ini` can keep a source with this name and database file, in ANSI: as it is, and without
/// being taken for another.
bool canKeepSource(std::string_view name, std::string_view file);

/// Status of the registry, as its own writes give it. A name with backslashes is a source's when the list has
/// it.
I4 mirrorDataSource(std::string_view source, std::string_view valueName, I4 type, Bytes data);
I4 forgetDataSource(std::string_view source);

}  // namespace tovera
