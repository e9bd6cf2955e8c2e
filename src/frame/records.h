#pragma once

#include <span>
#include <string_view>

#include "frame/parameters.h"

// The five published records: layouts that members hand to Windows. Their fields follow each other as the
// type library lays them out.
namespace tovera {

struct RecordDescription;

struct RecordField {
    std::string_view name;
    Type type = Type::None;                     ///< None for a field that is a record itself
    const RecordDescription* record = nullptr;  ///< the record of such a field
    std::string_view meaning;
};

struct RecordDescription {
    std::string_view name;
    std::span<const RecordField> fields;
};

/// In the order of publication.
std::span<const RecordDescription> publishedRecords();

/// A position on the screen, in pixels from its left upper corner.
struct PointApi {
    I4 x = 0;
    I4 y = 0;
};

}  // namespace tovera
