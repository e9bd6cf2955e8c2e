#include "platform/user_name.h"

#include "platform/windows/entry_point.h"

namespace tovera {
namespace {

class WindowsUserName : public UserName {
    I4 GetUserNameA(AnsiText& name, I4& size) override {
        auto count = static_cast<DWORD>(size);
        const I4 done = callEntryPoint<&::GetUserNameA>(advapi32, name, &count);
        size = static_cast<I4>(count);
        return done;
    }
};

}  // namespace

UserName& homeUserName() {
    static WindowsUserName port;
    return port;
}

}  // namespace tovera
