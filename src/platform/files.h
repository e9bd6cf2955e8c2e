#pragma once

#include "frame/bstr.h"
#include "platform/port.h"

namespace tovera {

/// The run-time's own operations on files. They tell failures by Automation errors: 53 for a file that is
/// missing, 58 for one that is in the way, 61 for a full disk, 70 for what permissions refuse, 75 for a path
/// that can't be reached in this way, 76 for a missing folder.
struct Files : Port<Files> {
    /// Renames a file, moving it when the folder differs. What stands at the new path is never overwritten.
    virtual void rename(const Bstr& oldPath, const Bstr& newPath) { missingEntryPoint(oldPath, newPath); }
};

Files& homeFiles();

}  // namespace tovera
