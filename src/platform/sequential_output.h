#pragma once

#include <memory>
#include <string_view>

#include "frame/bstr.h"
#include "platform/port.h"

namespace tovera {

/// A text file that is being written.
struct OutputFile {
    OutputFile() = default;
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;
    virtual ~OutputFile() = default;
    /// Writes a line in ANSI, and the carriage return and line feed behind it.
    virtual void printLine(std::string_view line) = 0;
    /// Closes the file, which tells what has failed until then; without it the end closes it silently.
    virtual void close() = 0;
};

/// The run-time's own text files, written line by line. Failures are raised as errors 53 to 76, like those of
/// the operations on whole files.
struct SequentialOutput : Port<SequentialOutput> {
    /// Makes or empties a file. Where the system tells users apart it is for its user alone, and no link is
    /// followed.
    virtual std::unique_ptr<OutputFile> openForOutput(const Bstr& path) { missingEntryPoint(path); }
};

SequentialOutput& homeSequentialOutput();

}  // namespace tovera
