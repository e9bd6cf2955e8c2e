#pragma once

#include <memory>
#include <string>

#include "platform/registry.h"

namespace tovera {

/// The registry whose store lies in this folder, which need not exist yet.
std::unique_ptr<Registry> makeRegistry(std::string folder);

}  // namespace tovera
