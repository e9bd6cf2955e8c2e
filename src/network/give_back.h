#pragma once

namespace tovera {

/// Does a piece of work, and gives back what it was done with, on every way out. Where the work fails, its
/// failure is the one that is told.
template <class Work, class GiveBack>
auto workAndGiveBack(Work&& work, GiveBack&& giveBack) {
    auto result = [&] {
        try {
            return work();
        } catch (...) {
            try {
                giveBack();
            } catch (...) {
            }
            throw;
        }
    }();
    giveBack();
    return result;
}

}  // namespace tovera
