#include "platform/shell32.h"

namespace tovera {

Shell32& homeShell32() {
    static Shell32 port;
    return port;
}

}  // namespace tovera
