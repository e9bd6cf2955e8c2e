#pragma once

#include <algorithm>

#include "frame/object.h"
#include "platform/windows/system.h"

namespace tovera {

inline IID systemId(const InterfaceId& id) {
    IID system{id.data1, id.data2, id.data3, {}};
    std::ranges::copy(id.data4, system.Data4);
    return system;
}

}  // namespace tovera
