#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "platform/linux/files/new_file.h"

namespace tovera {

/// How long a download may stand still, in seconds.
struct DownloadLimits {
    long connecting = 60;
    long stalled = 60;
};

/// Told again and again during a transfer: the bytes that have come, and those that there are, 0 where nobody
/// knows.
using TransferProgress = std::function<void(std::uint64_t received, std::uint64_t total)>;

/// Fetches a URL of http, https, ftp or ftps into a file, which is whole when the result is true. A URL of
/// any other kind isn't fetched. Redirections lead to the web alone, and from a secured page to secured ones.
/// Raises error 53 where the library is missing.
bool transfer(const std::string& url, NewFile& file, const DownloadLimits& limits,
              const TransferProgress& progress);

}  // namespace tovera
