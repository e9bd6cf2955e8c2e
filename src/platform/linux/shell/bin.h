#pragma once

#include <string>

#include "frame/bstr.h"

namespace tovera {

/// Puts a file or a folder into the desktop's bin; of a link the link itself. What the user's data or the
/// system hangs on is left alone: a root, a mount point, the home folder, this layer's own folder, and
/// whatever holds one of them. Where there is no bin the user is asked whether to delete it for good. 0, or
/// the platform's error number.
int putIntoBin(std::u16string_view path);

}  // namespace tovera
