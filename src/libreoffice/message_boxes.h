#pragma once

#include "libreoffice/office.h"

namespace tovera::office {

/// Shows a box of the office's own over its current window, and waits for the answer; gives the number of the
/// pressed button. An office without windows writes the text to standard error and doesn't wait.
sal_Int32 showMessageBox(const Context& context, const OUString& text, sal_Int32 flags,
                         const OUString& title);

/// Serves the events that wait in the office, and not those that they post: these are for the next call.
/// Only a toolkit that can't do so serves events until none is left.
void processEvents(const Context& context);

}  // namespace tovera::office
