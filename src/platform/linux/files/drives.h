#pragma once

#include <string_view>

#include "frame/values.h"

namespace tovera {

/// The serial number of a volume by its UUID: eight hexadecimal digits as they are, as FAT has them; of
/// sixteen, as NTFS has them, the lower half; longer ones folded into eight.
I4 serialOf(std::string_view uuid);

}  // namespace tovera
