#include "network/cls_internet.h"
#include "platform/download.h"
#include "platform/sharing.h"
#include "platform/user_name.h"

namespace tovera {

I4 Cls_Internet::PartageRep(const Bstr& sServer, const Bstr& sSharePath, const Bstr& sShareName,
                            const Bstr& sShareRemark, const Bstr& sSharePw) {
    constexpr I4 level = 2;
    ShareInfo2 share;
    share.shi2_netname = sShareName;
    if (!sShareRemark.empty()) share.shi2_remark = sShareRemark;
    share.shi2_path = sSharePath;
    if (!sSharePw.empty()) share.shi2_passwd = sSharePw;
    I4 invalidParameter = 0;
    return platform_.call(&Sharing::NetShareAdd, sServer, level, share, invalidParameter);
}

VariantBool Cls_Internet::TelechargeFichier(Bstr sURL, Bstr sLocalFile) {
    return VariantBool(platform_.call(&Download::URLDownloadToFileA, 0, sURL, sLocalFile, 0, 0) == 0);
}

Bstr Cls_Internet::GetUserName() {
    FixedText<255> name(u'\0');
    I4 size = name.size();
    platform_.call(&UserName::GetUserNameA, name, size);
    return beforeNul(name.view());
}

}  // namespace tovera
