#include "platform/user_name.h"

#include <cerrno>
#include <cstdlib>
#include <pwd.h>
#include <string>
#include <unistd.h>
#include <vector>

#include "frame/utf8.h"
#include "platform/linux/text/ansi_buffer.h"

namespace tovera {
namespace {

/// The name of the user that this process acts for; of one without an entry what the session says.
std::string userName() {
    std::vector<char> room(1024);
    passwd entry{};
    passwd* found = nullptr;
    while (getpwuid_r(geteuid(), &entry, room.data(), room.size(), &found) == ERANGE)
        room.resize(2 * room.size());
    if (found) return found->pw_name;
    const char* const user = std::getenv("USER");
    return user ? user : "";
}

class LinuxUserName : public UserName {
    I4 GetUserNameA(AnsiText& name, I4& size) override {
        const auto length = fillWhole(name, fromUtf8(userName()));
        const bool fits = static_cast<std::size_t>(length) < name.bytes.size();
        size = fits ? length + 1 : length;
        return fits ? 1 : 0;
    }
};

}  // namespace

UserName& homeUserName() {
    static LinuxUserName port;
    return port;
}

}  // namespace tovera
