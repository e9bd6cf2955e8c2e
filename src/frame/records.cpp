#include "frame/records.h"

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

}  // namespace

std::span<const RecordDescription> publishedRecords() {
    return records;
}

}  // namespace tovera
