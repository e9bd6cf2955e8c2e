#pragma once

#include "frame/values.h"

namespace tovera::registryStatus {

inline constexpr I4 success = 0;
inline constexpr I4 notFound = 2;
inline constexpr I4 accessDenied = 5;
inline constexpr I4 invalidHandle = 6;
inline constexpr I4 notEnoughMemory = 8;
inline constexpr I4 invalidParameter = 87;
inline constexpr I4 diskFull = 112;
inline constexpr I4 badPathName = 161;
inline constexpr I4 moreData = 234;
inline constexpr I4 cannotOpen = 1011;
inline constexpr I4 cannotRead = 1012;
inline constexpr I4 cannotWrite = 1013;
inline constexpr I4 registryCorrupt = 1015;
inline constexpr I4 keyDeleted = 1018;

/// The status for an errno of a write; 1013 for those that the registry has no status of its own for.
I4 ofSystemError(int error);

}  // namespace tovera::registryStatus
