#include "platform/adapters.h"
#include "platform/crypto_provider.h"
#include "platform/download.h"
#include "platform/drives.h"
#include "platform/file_names.h"
#include "platform/files.h"
#include "platform/home_services.h"
#include "platform/input.h"
#include "platform/odbc32.h"
#include "platform/oem_text.h"
#include "platform/opening.h"
#include "platform/platform.h"
#include "platform/profiles.h"
#include "platform/registry.h"
#include "platform/sequential_output.h"
#include "platform/sharing.h"
#include "platform/sockets.h"
#include "platform/sound.h"
#include "platform/system_facts.h"
#include "platform/user_name.h"

namespace tovera {

Platform& home() {
    static Platform platform = Platform(homeServices())
                                   .with(homeAdapters())
                                   .with(homeCryptoProvider())
                                   .with(homeDownload())
                                   .with(homeDrives())
                                   .with(homeFileNames())
                                   .with(homeFiles())
                                   .with(homeInput())
                                   .with(homeOdbc32())
                                   .with(homeOemText())
                                   .with(homeOpening())
                                   .with(homeProfiles())
                                   .with(homeRegistry())
                                   .with(homeSequentialOutput())
                                   .with(homeSharing())
                                   .with(homeSockets())
                                   .with(homeSound())
                                   .with(homeSystemFacts())
                                   .with(homeUserName());
    return platform;
}

}  // namespace tovera
