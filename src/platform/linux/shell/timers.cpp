#include "platform/timers.h"

namespace tovera {

Timers& homeTimers() {
    static Timers port;
    return port;
}

}  // namespace tovera
