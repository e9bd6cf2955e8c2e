#include "automation/member_names.h"

#include <algorithm>

#include "automation/failures.h"
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

/// Each name that isn't known keeps its number; whether all are.
bool findParameters(std::span<const ParameterDescription> parameters, std::span<LPOLESTR> names,
                    std::span<DISPID> ids) {
    bool allKnown = true;
    for (std::size_t i = 0; i < names.size(); ++i) {
        const auto found = std::ranges::find_if(
            parameters, [&](const auto& parameter) { return sameName(names[i], parameter.name); });
        if (found == parameters.end()) {
            allKnown = false;
        } else {
            ids[i] = static_cast<DISPID>(found - parameters.begin());
        }
    }
    return allKnown;
}

}  // namespace

HRESULT findNames(const ClassDescription& description, std::span<LPOLESTR> names,
                  std::span<DISPID> ids) noexcept {
    std::ranges::fill(ids, DISPID_UNKNOWN);
    const auto slot = description.names.find(viewOf(names[0]));
    if (!slot) return DISP_E_UNKNOWNNAME;
    ids[0] = description.members[*slot].id;
    if (names.size() == 1) return S_OK;
    try {
        const auto parameters = parametersOf(description, ids[0]);
        return findParameters(parameters, names.subspan(1), ids.subspan(1)) ? S_OK : DISP_E_UNKNOWNNAME;
    } catch (...) {
        return statusOfCurrentException();
    }
}

}  // namespace tovera
