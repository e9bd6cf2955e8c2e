#pragma once

#include "frame/bstr.h"
#include "frame/values.h"
#include "platform/port.h"

namespace tovera {

/// What is told of a share, in the order of the published record. A null text is a null address.
struct ShareInfo2 {
    Bstr shi2_netname;
    I4 shi2_type = 0;  ///< a folder
    Bstr shi2_remark;
    I4 shi2_permissions = 0x7F;  ///< read, write, create, execute, delete, attributes and permissions
    I4 shi2_max_uses = -1;       ///< no limit
    I4 shi2_current_uses = 0;
    Bstr shi2_path;
    Bstr shi2_passwd;
};

/// Statuses of the network's own.
namespace networkStatus {
inline constexpr I4 success = 0;
inline constexpr I4 accessDenied = 5;
inline constexpr I4 notSupported = 50;
inline constexpr I4 invalidParameter = 87;
inline constexpr I4 invalidName = 123;
inline constexpr I4 serverNotStarted = 2114;
inline constexpr I4 unknownFolder = 2116;
inline constexpr I4 duplicateShare = 2118;
}  // namespace networkStatus

/// Folders that are shared on the network, of `netapi32`. Texts are UTF-16.
struct Sharing : Port<Sharing> {
    /// Shares a folder of a machine; the result is a status. Of an invalid parameter the index is told.
    virtual I4 NetShareAdd(const Bstr& server, I4 level, const ShareInfo2& share, I4& invalidParameter) {
        return missingEntryPoint(server, level, share, invalidParameter);
    }
};

Sharing& homeSharing();

}  // namespace tovera
