#include "platform/crypto_provider.h"
#include "platform/drives.h"
#include "platform/file_names.h"
#include "platform/files.h"
#include "platform/home_services.h"
#include "platform/input.h"
#include "platform/odbc32.h"
#include "platform/oem_text.h"
#include "platform/platform.h"
#include "platform/profiles.h"
#include "platform/registry.h"
#include "platform/screen_windows.h"
#include "platform/setup_kit.h"
#include "platform/shell32.h"
#include "platform/sound.h"
#include "platform/system_facts.h"
#include "platform/timers.h"

namespace tovera {

Platform& home() {
    static Platform platform = Platform(homeServices())
                                   .with(homeCryptoProvider())
                                   .with(homeDrives())
                                   .with(homeFileNames())
                                   .with(homeFiles())
                                   .with(homeInput())
                                   .with(homeOdbc32())
                                   .with(homeOemText())
                                   .with(homeProfiles())
                                   .with(homeRegistry())
                                   .with(homeScreenWindows())
                                   .with(homeSetupKit())
                                   .with(homeShell32())
                                   .with(homeSound())
                                   .with(homeSystemFacts())
                                   .with(homeTimers());
    return platform;
}

}  // namespace tovera
