#pragma once

#include "frame/crossing.h"
#include "platform/port.h"

namespace tovera {

/// Long and short forms of file names, of `kernel32`. Each entry point writes into a buffer, whose length is
/// the size that goes with it, and returns the length without the NUL; the size needed, with the buffer left
/// as it was, when that is too small; 0 on failure.
struct FileNames : Port<FileNames> {
    virtual I4 GetLongPathNameA(const AnsiText& shortName, AnsiText& buffer) {
        return missingEntryPoint(shortName, buffer);
    }
    virtual I4 GetShortPathNameA(const AnsiText& longName, AnsiText& buffer) {
        return missingEntryPoint(longName, buffer);
    }
};

FileNames& homeFileNames();

}  // namespace tovera
