#pragma once

#include "frame/component.h"
#include "platform/platform.h"

namespace tovera {

/// Angles in radians and distances on a plane, with 3.14 for pi. Arguments are numbers, or texts that stand
/// for numbers; error 13 for other texts.
class Cls_Math {
  public:
    explicit Cls_Math(Platform& platform = home()) : platform_(platform) {}

    /// The angle brought into -3.14 to 3.14 by whole turns of 6.28; the caller's variable takes it as well.
    R4 MesurePrincipale(Variant& Angle);

    /// The distance between two points, `R8`.
    Variant Hypothenuse(const Variant& X1, const Variant& Y1, const Variant& X2, const Variant& Y2);

    /// The first angle of the grid of 201 whose band of cosines holds x; 0 when there is none.
    R4 InverseCosinus(const Variant& x);
    /// The same with sines.
    R4 InverseSinus(const Variant& x);

    /// The angle of the line from (cx, cy) to (x, y) against the horizontal, counter-clockwise, `R4`.
    Variant AngleTrigo(const Variant& x, const Variant& y, const Variant& cx, const Variant& cy);

  private:
    Platform& platform_;
};

}  // namespace tovera
