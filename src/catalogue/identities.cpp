#include "catalogue/identities.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace tovera {
namespace {

constexpr InterfaceId first{0x7E1D9A40, 0x5C3B, 0x4F86, {0x9B, 0x21, 0xD4, 0xA0, 0x6E, 0x8C, 0x71, 0xF3}};

/// In the order in which the values are given out, behind the library's.
constexpr std::array<std::string_view, 27> names{
    "_Cls_InitREG", "Cls_InitREG",     "_Cls_Windows",   "Cls_Windows",     "BROWSEINFO",     "POINTAPI",
    "SHITEMID",     "ITEMIDLIST",      "SHFILEOPSTRUCT", "_Cls_Traduction", "Cls_Traduction", "_Cls_Internet",
    "Cls_Internet", "_Cls_Date",       "Cls_Date",       "_Cls_SQL",        "Cls_SQL",        "_Cls_Cryptage",
    "Cls_Cryptage", "_Cls_Conversion", "Cls_Conversion", "_Cls_Multimedia", "Cls_Multimedia", "_Cls_Math",
    "Cls_Math",     "_Cls_SourisClv",  "Cls_SourisClv",
};

}  // namespace

InterfaceId libraryId() {
    return first;
}

InterfaceId identityOf(std::string_view name) {
    const auto* const found = std::ranges::find(names, name);
    if (found == names.end()) raise(ErrorNumber::InvalidCall);
    InterfaceId id = first;
    id.data1 += static_cast<std::uint32_t>(found - names.begin()) + 1;
    return id;
}

std::string idText(const InterfaceId& id) {
    std::array<char, 40> text{};
    const auto& d = id.data4;
    const int length =
        std::snprintf(text.data(), text.size(), "%08X-%04X-%04X-%02X%02X-%02X%02X%02X%02X%02X%02X", id.data1,
                      id.data2, id.data3, d[0], d[1], d[2], d[3], d[4], d[5], d[6], d[7]);
    return {text.data(), static_cast<std::size_t>(length)};
}

}  // namespace tovera
