#pragma once

#include <string_view>
#include <vector>

#include "frame/bstr.h"
#include "frame/values.h"
#include "platform/port.h"

namespace tovera {

/// The run-time's own operations on files. They tell failures by Automation errors: 53 for a file that is
/// missing, 58 for one that is in the way, 61 for a full disk, 70 for what permissions refuse, 75 for a path
/// that can't be reached in this way, 76 for a missing folder.
struct Files : Port<Files> {
    /// Renames a file, moving it when the folder differs. What stands at the new path is never overwritten.
    virtual void rename(const Bstr& oldPath, const Bstr& newPath) { missingEntryPoint(oldPath, newPath); }

    /// Opens a file as binary data, where a missing one is made, empty, and reads the two bytes at a position
    /// that counts from 1. A byte that the file hasn't got leaves that of the number.
    virtual void readI2(const Bstr& path, I4 position, I2& number) {
        missingEntryPoint(path, position, number);
    }

    /// Opens a file for appending, where a missing one is made, and adds the bytes behind what it holds, all
    /// at once.
    virtual void append(const Bstr& path, std::string_view bytes) { missingEntryPoint(path, bytes); }

    /// Makes a folder the current one of the process, where bare names are looked for.
    virtual void changeFolder(const Bstr& path) { missingEntryPoint(path); }

    /// The names of the normal files that match a pattern with `*` and `?` in its last component, in the
    /// order of the folder; none where the folder is missing.
    virtual std::vector<Bstr> filesLike(const Bstr& pattern) {
        missingEntryPoint(pattern);
        return {};
    }

    /// Copies a file, replacing one that stands at the target.
    virtual void copy(const Bstr& source, const Bstr& target) { missingEntryPoint(source, target); }
    virtual void remove(const Bstr& path) { missingEntryPoint(path); }
};

Files& homeFiles();

}  // namespace tovera
