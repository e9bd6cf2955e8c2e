#pragma once

#include <string_view>

#include "platform/linux/registry/registry_store.h"

// What is written in the registry below the current user's data sources reaches the user's `odbc.ini` too, in
// the form that the ODBC of this system needs, so that its programs open the same sources.
namespace tovera {

inline constexpr std::string_view accessDescription = "Microsoft Access Driver (*.mdb)";
/// The Access driver's name in this system.
inline constexpr std::string_view accessDriver = "MDBTools";

/// Whether the key is one of the user's data sources, or the list of them.
bool isDataSource(const KeyPlace& key);

/// Status of the registry, as its own writes give it.
I4 mirrorDataSource(std::string_view source, std::string_view valueName, I4 type, Bytes data);
I4 forgetDataSource(std::string_view source);

}  // namespace tovera
