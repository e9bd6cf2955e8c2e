#pragma once

#include <span>
#include <string_view>

#include "frame/class_table.h"
#include "platform/platform.h"

namespace tovera {

/// A class of the component as a host meets it.
struct CatalogueEntry {
    const ClassDescription& (*description)();
    ObjectRef (*create)(Platform& platform);
};

/// The classes in the order of their publication.
std::span<const CatalogueEntry> catalogue();

/// The class of a ProgID, or of a class name alone, without regard to case; null when there is none.
const CatalogueEntry* findClass(std::string_view name);

/// An object of the class with this ProgID or name; error 429 when there is none.
ObjectRef createComponent(std::string_view name, Platform& platform = home());

}  // namespace tovera
