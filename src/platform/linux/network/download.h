#pragma once

#include <memory>

#include "platform/download.h"
#include "platform/linux/network/transfer.h"

namespace tovera {

std::unique_ptr<Download> makeDownload(const DownloadLimits& limits);

}  // namespace tovera
