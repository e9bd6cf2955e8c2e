#include "platform/opening.h"

namespace tovera {

Opening& homeOpening() {
    static Opening port;
    return port;
}

}  // namespace tovera
