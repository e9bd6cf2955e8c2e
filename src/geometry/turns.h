#pragma once

#include "frame/values.h"

namespace tovera {

/// 3.14 in all formulas of the class, by its published results.
inline constexpr R8 Pi = 3.14;

/// An angle above Pi less so many whole turns of 2 times Pi, subtracted one after the other in `R8`, that it
/// isn't above Pi any more. Constant cost: the turns of one binade are taken in one step that gives the same
/// bits. Where a turn no longer changes the angle (above about 1E+16) the remainder of the division counts.
R8 withoutTurns(R8 angle);

/// The types of variables that round each step of the reduction in their own way.
enum class VariableType { R8, R4, Integer, Text };

/// What comes next in a variable of this type, before it rounds: the angle, which is above Pi, less a turn,
/// or less several that would all be rounded alike. A text of more than a thousand turns loses them as an
/// `R8`.
R8 lessTurns(R8 angle, VariableType type);

}  // namespace tovera
