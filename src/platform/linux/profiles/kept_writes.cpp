#include "platform/linux/profiles/kept_writes.h"

#include <exception>
#include <utility>

#include "platform/linux/profiles/profile_file.h"

namespace tovera {

void KeptWrites::keep(const std::string& path, EntryWrite write) {
    SoughtName key(write.key);
    const bool canBeFound = key.canBeKey();
    const auto name = SoughtName(write.section).capitals() + '\n' + std::move(key).capitals();
    if (const auto file = files_.find(path); canBeFound && file != files_.end()) {
        auto& [writes, places] = file->second;
        if (const auto place = places.find(name); place != places.end()) {
            auto& earlier = writes[place->second];
            if (earlier.value.has_value() == write.value.has_value()) {
                earlier.value = std::move(write.value);
                return;
            }
            make();  // one after the other, since the removal may bring a second entry of the name to light
        }
    }
    auto& [writes, places] = files_[path];
    writes.push_back(std::move(write));
    if (canBeFound) places.emplace(name, writes.size() - 1);
}

void KeptWrites::make() noexcept try {
    for (const auto& [path, file] : std::exchange(files_, {})) writeProfileEntries(path, file.writes);
} catch (const std::exception&) {
    // for want of memory
}

}  // namespace tovera
