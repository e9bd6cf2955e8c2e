#include "platform/sharing.h"

namespace tovera {

Sharing& homeSharing() {
    static Sharing port;
    return port;
}

}  // namespace tovera
