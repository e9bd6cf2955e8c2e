#include "platform/user_name.h"

#include "frame/utf8.h"
#include "platform/linux/files/data_folder.h"
#include "platform/linux/text/ansi_buffer.h"

namespace tovera {
namespace {

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
