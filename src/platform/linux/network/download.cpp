#include "platform/download.h"

namespace tovera {

Download& homeDownload() {
    static Download port;
    return port;
}

}  // namespace tovera
