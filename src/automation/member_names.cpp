#include "automation/member_names.h"

#include <algorithm>

#include "frame/utf8.h"

namespace tovera {
namespace {

std::u16string_view viewOf(const wchar_t* name) {
    return reinterpret_cast<const char16_t*>(name);
}

bool sameName(const wchar_t* name, std::string_view published) {
    const auto text = fromUtf8(published);
    return CompareStringW(LOCALE_INVARIANT, NORM_IGNORECASE, name, -1,
                          reinterpret_cast<const wchar_t*>(text.data()),
                          static_cast<int>(text.size())) == CSTR_EQUAL;
}

/// The parameters of a property are those of its slot for writing.
std::span<const ParameterDescription> parametersOf(const ClassDescription& description, MemberId member) {
    std::span<const ParameterDescription> parameters;
    for (const auto& slot : description.members) {
        if (slot.id == member && slot.published && parameters.empty()) parameters = slot.parameters;
    }
    return parameters;
}

}  // namespace

HRESULT findNames(const ClassDescription& description, std::span<LPOLESTR> names, std::span<DISPID> ids) {
    std::ranges::fill(ids, DISPID_UNKNOWN);
    const auto slot = description.names.find(viewOf(names[0]));
    if (!slot) return DISP_E_UNKNOWNNAME;
    ids[0] = description.members[*slot].id;
    bool allKnown = true;
    const auto parameters =
        names.size() > 1 ? parametersOf(description, ids[0]) : std::span<const ParameterDescription>();
    for (std::size_t i = 1; i < names.size(); ++i) {
        const auto found = std::ranges::find_if(
            parameters, [&](const auto& parameter) { return sameName(names[i], parameter.name); });
        if (found != parameters.end()) ids[i] = static_cast<DISPID>(found - parameters.begin());
        allKnown = allKnown && ids[i] != DISPID_UNKNOWN;
    }
    return allKnown ? S_OK : DISP_E_UNKNOWNNAME;
}

}  // namespace tovera
