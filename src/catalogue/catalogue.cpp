#include "catalogue/catalogue.h"

#include <algorithm>
#include <array>

#include "catalogue/class_list.h"

namespace tovera {
namespace {

template <class C>
constexpr CatalogueEntry entryOf() {
    return {&describe<C>,
            [](Platform& platform) { return makeObject<ComponentObjectOf<C>>(platform.services, platform); }};
}

template <class... Classes>
constexpr std::array<CatalogueEntry, sizeof...(Classes)> entriesOf(TypeList<Classes...>) {
    return {entryOf<Classes>()...};
}

constexpr auto entries = entriesOf(ComponentClasses{});

bool sameName(std::string_view a, std::string_view b) {
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c; };
    return std::ranges::equal(a, b, {}, lower, lower);
}

}  // namespace

std::span<const CatalogueEntry> catalogue() {
    return entries;
}

const CatalogueEntry* findClass(std::string_view name) {
    const auto* const found = std::ranges::find_if(entries, [&](const CatalogueEntry& entry) {
        const auto& description = entry.description();
        return sameName(name, description.progId) || sameName(name, description.name);
    });
    return found == entries.end() ? nullptr : found;
}

ObjectRef createComponent(std::string_view name, Platform& platform) {
    const auto* const entry = findClass(name);
    if (!entry) raise(ErrorNumber::CannotCreateObject);
    return entry->create(platform);
}

}  // namespace tovera
