#include "platform/linux/screen/key_table.h"

#include <algorithm>

namespace tovera {

void KeyTable::get(const States& real, KeyStates states) {
    lastSeen_ = real;
    std::erase_if(set_, [&](const auto& entry) { return real[entry.first] != entry.second.realThen; });
    for (const auto& [key, value] : set_) lastSeen_[key] = value.state;
    std::ranges::copy(lastSeen_, states.begin());
}

}  // namespace tovera
