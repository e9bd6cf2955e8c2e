#pragma once

#include "libreoffice/office.h"

namespace tovera::office {

inline constexpr auto cellFunctionsName = "KADRELDLL.Fonctions";

/// The object behind the functions that cells call.
Reference<XInterface> makeCellFunctions();

}  // namespace tovera::office
