#include "frame/records.h"

#include <algorithm>
#include <array>

namespace tovera {
namespace {

constexpr std::array browseInfo{
    RecordField{"hOwner", Type::I4, nullptr, "owner window handle"},
    RecordField{"pidlRoot", Type::I4, nullptr, "root item list"},
    RecordField{"pszDisplayName", Type::Bstr, nullptr, "receives the chosen name"},
    RecordField{"lpszTitle", Type::Bstr, nullptr, "text shown above the tree"},
    RecordField{"ulFlags", Type::I4, nullptr, "browse flags"},
    RecordField{"lpfn", Type::I4, nullptr, "call-back address"},
    RecordField{"lParam", Type::I4, nullptr, "call-back argument"},
    RecordField{"iImage", Type::I4, nullptr, "receives the image index"},
};

constexpr std::array pointApi{
    RecordField{"x", Type::I4, nullptr, "horizontal screen position"},
    RecordField{"y", Type::I4, nullptr, "vertical screen position"},
};

constexpr std::array shItemId{
    RecordField{"cb", Type::I4, nullptr, "item size"},
    RecordField{"abID", Type::UI1, nullptr, "first byte of the item data"},
};
constexpr RecordDescription shItemIdRecord{"SHITEMID", shItemId};

constexpr std::array itemIdList{
    RecordField{"mkid", Type::None, &shItemIdRecord, "first item"},
};

constexpr std::array shFileOpStruct{
    RecordField{"hwnd", Type::I4, nullptr, "owner window handle"},
    RecordField{"wFunc", Type::I4, nullptr, "operation"},
    RecordField{"pFrom", Type::Bstr, nullptr, "source names"},
    RecordField{"pTo", Type::Bstr, nullptr, "target names"},
    RecordField{"fFlags", Type::I2, nullptr, "operation flags"},
    RecordField{"fAnyOperationsAborted", Type::VariantBool, nullptr, "set when the user cancelled"},
    RecordField{"hNameMappings", Type::I4, nullptr, "name mapping handle"},
    RecordField{"lpszProgressTitle", Type::Bstr, nullptr, "progress title"},
};

constexpr std::array records{
    RecordDescription{"BROWSEINFO", browseInfo},
    RecordDescription{"POINTAPI", pointApi},
    shItemIdRecord,
    RecordDescription{"ITEMIDLIST", itemIdList},
    RecordDescription{"SHFILEOPSTRUCT", shFileOpStruct},
};

struct Layout {
    std::size_t size;
    std::size_t alignment;
};

Layout layoutOf(const RecordField& field);

std::size_t alignmentOf(const RecordDescription& record) {
    std::size_t widest = 1;
    for (const auto& field : record.fields) widest = std::max(widest, layoutOf(field).alignment);
    return widest;
}

/// On the published target, where a reference takes 4 bytes.
Layout layoutOf(const RecordField& field) {
    switch (field.type) {
        case Type::None:
            return {field.record->size(), alignmentOf(*field.record)};
        case Type::UI1:
            return {1, 1};
        case Type::I2:
        case Type::VariantBool:
            return {2, 2};
        default:
            return {4, 4};
    }
}

constexpr std::size_t padded(std::size_t offset, std::size_t alignment) {
    return (offset + alignment - 1) / alignment * alignment;
}

}  // namespace

std::size_t RecordDescription::offsetOf(std::size_t field) const {
    std::size_t offset = 0;
    for (std::size_t i = 0; i < field; ++i) {
        const auto layout = layoutOf(fields[i]);
        offset = padded(offset, layout.alignment) + layout.size;
    }
    return padded(offset, layoutOf(fields[field]).alignment);
}

std::size_t RecordDescription::size() const {
    const auto last = fields.size() - 1;
    return padded(offsetOf(last) + layoutOf(fields[last]).size, alignmentOf(*this));
}

std::span<const RecordDescription> publishedRecords() {
    return records;
}

}  // namespace tovera
