#pragma once

#include <memory>
#include <string>

#include "platform/crypto_provider.h"

namespace tovera {

/// A provider whose container is this folder.
std::unique_ptr<CryptoProvider> makeCryptoProvider(const std::string& folder);

}  // namespace tovera
