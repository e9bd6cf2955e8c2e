#include "platform/sharing.h"

#include <string>

#include "platform/windows/entry_point.h"
#include "platform/windows/system_network.h"
#include "platform/windows/wide_text.h"

namespace tovera {
namespace {

constexpr const wchar_t* netapi32 = L"netapi32";

/// A text for the system, which looks for a NUL behind it and takes it as one that it could write to.
class WideText {
  public:
    explicit WideText(const Bstr& text) : isNull_(text.isNull()), text_(wide(text)) {}
    wchar_t* address() { return isNull_ ? nullptr : text_.data(); }

  private:
    bool isNull_;
    std::wstring text_;
};

class WindowsSharing : public Sharing {
    I4 NetShareAdd(const Bstr& server, I4 level, const ShareInfo2& share, I4& invalidParameter) override {
        WideText machine(server);
        WideText name(share.shi2_netname);
        WideText remark(share.shi2_remark);
        WideText path(share.shi2_path);
        WideText password(share.shi2_passwd);
        SHARE_INFO_2 record{name.address(),
                            static_cast<DWORD>(share.shi2_type),
                            remark.address(),
                            static_cast<DWORD>(share.shi2_permissions),
                            static_cast<DWORD>(share.shi2_max_uses),
                            static_cast<DWORD>(share.shi2_current_uses),
                            path.address(),
                            password.address()};
        auto index = static_cast<DWORD>(invalidParameter);
        const I4 status = callEntryPoint<&::NetShareAdd>(netapi32, machine.address(), level,
                                                         reinterpret_cast<BYTE*>(&record), &index);
        invalidParameter = static_cast<I4>(index);
        return status;
    }
};

}  // namespace

Sharing& homeSharing() {
    static WindowsSharing port;
    return port;
}

}  // namespace tovera
