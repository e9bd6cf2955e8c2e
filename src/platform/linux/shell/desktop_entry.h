#pragma once

#include <string>

#include "platform/linux/shell/shell_link.h"

namespace tovera {

/// The desktop's own entry for what a link leads to, with a mark that ties it to the link file of this name.
std::string entryFor(const ShellLink& link, const std::string& linkName);

/// Whether an entry's text bears the mark of the link file of this name.
bool isEntryOf(std::string_view entry, const std::string& linkName);

}  // namespace tovera
