#pragma once

#include <functional>
#include <vector>

#include "libreoffice/office.h"

namespace tovera::office {

/// Calls a function with values of cells. Where one of the arguments is a range, the result is a range of its
/// size with a result for each cell; single values, single rows and single columns stand for every cell
/// beside. A failure is the error of its cell: of the wrong type #VALUE!, any other Err:502.
Any forEachCell(const std::vector<Any>& arguments, const std::function<Any(const std::vector<Any>&)>& call);

}  // namespace tovera::office
