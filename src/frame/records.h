#pragma once

#include <span>
#include <string_view>

#include "frame/parameters.h"

// The five published records: layouts that members hand to Windows, so that their offsets count.
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

    /// Bytes, padded to the widest field.
    std::size_t size() const;
    /// Bytes in front of a field.
    std::size_t offsetOf(std::size_t field) const;
};

/// In the order of publication.
std::span<const RecordDescription> publishedRecords();

/// A position on the screen, in pixels from its left upper corner.
struct PointApi {
    I4 x = 0;
    I4 y = 0;
};

}  // namespace tovera
