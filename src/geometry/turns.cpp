#include "geometry/turns.h"

#include <cmath>

namespace tovera {
namespace {

constexpr R8 turn = 2 * Pi;

/// What one subtraction of a turn takes from an angle whose neighbours lie at this distance, as long as the
/// difference has that spacing as well. A tie, whose rounding would change from angle to angle, comes only
/// from 8 to 16, where there is no second step.
R8 stepOfBinade(R8 spacing) {
    const R8 whole = std::floor(turn / spacing) * spacing;
    return (turn - whole) * 2 > spacing ? whole + spacing : whole;
}

}  // namespace

R8 withoutTurns(R8 angle) {
    while (angle > Pi) {
        int exponent = 0;
        std::frexp(angle, &exponent);
        const R8 lowest = std::ldexp(1.0, exponent - 1);
        const R8 spacing = std::ldexp(1.0, exponent - 53);
        if (spacing > 2 * turn) {
            angle = std::fmod(angle, turn);
            continue;
        }
        // Many steps at once are exact while they stay in the binade; the last ones are taken singly, since
        // a difference below the binade is rounded to a finer spacing.
        const R8 step = stepOfBinade(spacing);
        angle -= std::fmax(0, std::floor((angle - lowest) / step) - 1) * step;
        angle -= turn;
    }
    return angle;
}

}  // namespace tovera
