#pragma once

#include "frame/bstr.h"
#include "frame/number_text.h"

namespace tovera {

/// A number as a numeric print begins it: with a blank in the place of the sign that it hasn't got.
inline Bstr printedNumber(I4 number) {
    return join(number < 0 ? u"" : u" ", numberToText(number));
}

}  // namespace tovera
