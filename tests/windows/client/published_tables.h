#pragma once

#include <string_view>
#include <vector>

// What the type library publishes, written down as hosts know it: independent of the class table.
namespace tovera::client {

/// A slot: "[get |put |putref ]Name(parameter: Type, ...): Result", with "&" behind the type of a parameter
/// by reference and brackets round one that may be left out. The value of a property has
/// no name of its own.
struct PublishedSlot {
    std::string_view signature;
    std::string_view help;
};

struct PublishedClass {
    std::string_view name;
    std::string_view help;
    unsigned
        interfaceOffset;  ///< from the library's GUID, in the first group; the class's own is the next one
    std::vector<PublishedSlot> slots;
};

struct PublishedRecord {
    std::string_view name;
    unsigned offset;  ///< from the library's GUID
    unsigned long size;
    std::string_view fields;  ///< "offset name Type, ..."
};

extern const std::vector<PublishedClass> publishedClasses;
extern const std::vector<PublishedRecord> publishedRecords;
/// They bear the help string of the class whose methods use them, once that is there.
std::string_view helpOfRecords();

}  // namespace tovera::client
