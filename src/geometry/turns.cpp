#include "geometry/turns.h"

#include <cmath>
#include <limits>

namespace tovera {
namespace {

constexpr R8 turn = 2 * Pi;

/// What one subtraction of a turn takes from an angle whose neighbours lie at this distance, as long as the
/// difference has that spacing as well. A tie, whose rounding would change from angle to angle, comes only
/// in `R8` and from 8 to 16, where there is no second step.
R8 stepOfBinade(R8 spacing) {
    const R8 whole = std::floor(turn / spacing) * spacing;
    return (turn - whole) * 2 > spacing ? whole + spacing : whole;
}

R8 lessTurnsOfBinade(R8 angle, int digits) {
    int exponent = 0;
    std::frexp(angle, &exponent);
    const R8 lowest = std::ldexp(1.0, exponent - 1);
    const R8 spacing = std::ldexp(1.0, exponent - digits);
    if (spacing > 2 * turn) return std::fmod(angle, turn);
    // Many steps at once are exact while they stay in the binade; the last ones are taken singly, since a
    // difference below the binade is rounded to a finer spacing.
    const R8 step = stepOfBinade(spacing);
    angle -= std::fmax(0, std::floor((angle - lowest) / step) - 1) * step;
    return angle - turn;
}

/// An integer variable loses 6 with each turn. The last turn is taken singly: not every type has room for
/// what it leaves.
R8 lessTurnsOfInteger(R8 angle) {
    const R8 turns = std::floor((angle - 4) / 6);
    return turns > 0 ? angle - 6 * turns : angle - turn;
}

}  // namespace

R8 lessTurns(R8 angle, VariableType type) {
    switch (type) {
        case VariableType::R4:
            return lessTurnsOfBinade(angle, std::numeric_limits<R4>::digits);
        case VariableType::Integer:
            return lessTurnsOfInteger(angle);
        case VariableType::Text:
            return angle > 1000 * turn ? withoutTurns(angle) : angle - turn;
        default:
            return lessTurnsOfBinade(angle, std::numeric_limits<R8>::digits);
    }
}

R8 withoutTurns(R8 angle) {
    while (angle > Pi) angle = lessTurns(angle, VariableType::R8);
    return angle;
}

}  // namespace tovera
