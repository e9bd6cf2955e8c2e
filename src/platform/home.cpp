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
#include "platform/screen_windows.h"
#include "platform/sequential_output.h"
#include "platform/setup_kit.h"
#include "platform/sharing.h"
#include "platform/shell32.h"
#include "platform/sockets.h"
#include "platform/sound.h"
#include "platform/system_facts.h"
#include "platform/timers.h"
#include "platform/user_name.h"

namespace tovera {

Platform& home() {
    // A port is looked for from the first one on: those of the shortest operations stand there.
    static Platform platform = Platform(homeServices())
                                   .with(homeRegistry())
                                   .with(homeProfiles())
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
                                   .with(homeScreenWindows())
                                   .with(homeSequentialOutput())
                                   .with(homeSetupKit())
                                   .with(homeSharing())
                                   .with(homeShell32())
                                   .with(homeSockets())
                                   .with(homeSound())
                                   .with(homeSystemFacts())
                                   .with(homeTimers())
                                   .with(homeUserName());
    return platform;
}

}  // namespace tovera
