#pragma once

#include "frame/component.h"
#include "platform/platform.h"

// A table of messages numbered from 1, in the section "MSG" of a language file.
namespace tovera {

/// Writes the elements from 1 to the upper bound. A null element removes its entry.
void saveMessages(Platform& platform, StringArray& messages, Bstr& file);

/// The message with this number, empty when there is none.
Bstr loadMessage(Platform& platform, const Bstr& file, I2 number);

/// Reads messages up to the first empty one, for which the array has an element too. Error 6 above 32767
/// messages, 10 on an array of fixed size.
void loadMessages(Platform& platform, const Bstr& file, StringArray& messages);

}  // namespace tovera
