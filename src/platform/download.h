#pragma once

#include <cstdint>
#include <functional>

#include "frame/crossing.h"
#include "platform/port.h"

namespace tovera {

/// Told now and then during a download: the bytes that have come, and the bytes that there are, 0 where
/// nobody knows. At the end of the download it is told once more, with no bytes at all.
using DownloadProgress = std::function<void(std::uint64_t received, std::uint64_t total)>;

/// Files by their URL, of `urlmon`.
struct Download : Port<Download> {
    /// Fetches a URL into a file, and comes back when that is done: 0 on success, else a code of the failure.
    virtual I4 URLDownloadToFileA(I4 caller, const AnsiText& url, const AnsiText& file, I4 reserved,
                                  I4 status) {
        return missingEntryPoint(caller, url, file, reserved, status);
    }

    /// Who wants to be told of the downloads of this process. A home may tell nothing.
    virtual void showProgress(DownloadProgress /*progress*/) {}
};

Download& homeDownload();

}  // namespace tovera
