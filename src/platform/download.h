#pragma once

#include "frame/crossing.h"
#include "platform/port.h"

namespace tovera {

/// Files by their URL, of `urlmon`.
struct Download : Port<Download> {
    /// Fetches a URL into a file, and comes back when that is done: 0 on success, else a code of the failure.
    virtual I4 URLDownloadToFileA(I4 caller, const AnsiText& url, const AnsiText& file, I4 reserved,
                                  I4 status) {
        return missingEntryPoint(caller, url, file, reserved, status);
    }

    /// From now on downloads of some length show themselves on the terminal of this process, if it has one. A
    /// home may show nothing.
    virtual void showProgress() {}
};

Download& homeDownload();

}  // namespace tovera
