#pragma once

#include "frame/values.h"

namespace tovera {

/// 3.14 in all formulas of the class, by its published results.
inline constexpr R8 Pi = 3.14;

/// An angle above Pi less so many whole turns of 2 times Pi, subtracted one after the other in `R8`, that it
/// isn't above Pi any more. Constant cost: the turns of one binade are taken in one step that gives the same
/// bits. Where a turn no longer changes the angle (above about 1E+16) the remainder of the division counts.
R8 withoutTurns(R8 angle);

}  // namespace tovera
