#include "platform/setup_kit.h"

namespace tovera {

SetupKit& homeSetupKit() {
    static SetupKit port;
    return port;
}

}  // namespace tovera
