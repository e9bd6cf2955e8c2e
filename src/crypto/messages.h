#pragma once

#include "frame/last_error.h"
#include "frame/number_text.h"

namespace tovera {

/// The last error as a signed decimal number, as it stands in messages.
inline Bstr lastErrorText() {
    return numberToText(lastError());
}

}  // namespace tovera
