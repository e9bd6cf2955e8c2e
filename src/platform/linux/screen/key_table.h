#pragma once

#include <array>
#include <map>

#include "platform/input.h"

namespace tovera {

/// The table of key states as a thread sees it: the real states, and what the thread has set over them. What
/// is set lasts until that key really changes.
class KeyTable {
  public:
    using States = std::array<UI1, keyCount>;

    void get(const States& real, KeyStates states);
    /// Takes a table that the thread had from `get` and has changed. The keys whose states differ from that,
    /// which are all that it can mean, are handed to `lock` first; those that it can't lock are kept here.
    template <class Lock>
    void set(const States& real, ConstKeyStates states, Lock&& lock) {
        for (std::size_t key = 0; key < keyCount; ++key) {
            if (states[key] == lastSeen_[key]) continue;
            if (lock(key, states[key])) {
                set_.erase(key);
            } else {
                set_[key] = {states[key], real[key]};
            }
            lastSeen_[key] = states[key];
        }
    }

  private:
    struct SetState {
        UI1 state;
        UI1 realThen;
    };
    std::map<std::size_t, SetState> set_;
    States lastSeen_{};
};

}  // namespace tovera
