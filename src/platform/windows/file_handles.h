#pragma once

#include <memory>
#include <string>

#include "frame/bstr.h"
#include "frame/error.h"
#include "platform/windows/system.h"

namespace tovera {

/// A path of a caller for the system, up to its NUL; an empty one raises error 75.
std::wstring pathOf(const Bstr& path);

/// The Automation error that tells a failed file operation's status.
ErrorNumber fileErrorOf(DWORD status);

/// An open file, closed at the end; null for one that can't be opened.
struct CloseFile {
    using pointer = HANDLE;
    void operator()(HANDLE file) const { CloseHandle(file); }
};
class OpenedFile : public std::unique_ptr<HANDLE, CloseFile> {
  public:
    explicit OpenedFile(HANDLE file) : unique_ptr(file == INVALID_HANDLE_VALUE ? nullptr : file) {}
};

}  // namespace tovera
