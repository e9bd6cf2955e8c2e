// Texts of one byte a character need none of its converters, whose header Debian leaves out.
#define SI_NO_CONVERSION
#include <SimpleIni.h>
#include <string>

#include "peers/peers.h"

namespace bench {
namespace {

std::string readEntry(const ProfileEntry& entry) {
    CSimpleIniA file;
    file.LoadFile(entry.path.c_str());
    return file.GetValue(entry.section.c_str(), entry.key.c_str(), "");
}

Loop read(ProfileEntry entry) {
    requireSame(!readEntry(entry).empty(), "SimpleIni");
    return loopOf([entry] { return readEntry(entry); });
}

const Installed installedRead(simpleIniRead, read);

}  // namespace
}  // namespace bench
