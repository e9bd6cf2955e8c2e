#pragma once

#include "frame/values.h"

// Error codes of the provider, by the names that the platform gives them.
namespace tovera::providerCodes {

inline constexpr I4 diskFull = 112;         // ERROR_DISK_FULL
inline constexpr I4 invalidParameter = 87;  // ERROR_INVALID_PARAMETER
inline constexpr I4 moreData = 234;         // ERROR_MORE_DATA
inline constexpr auto badKey = static_cast<I4>(0x80090003U);
inline constexpr auto badSignature = static_cast<I4>(0x80090006U);
inline constexpr auto badAlgorithm = static_cast<I4>(0x80090008U);
inline constexpr auto badHashState = static_cast<I4>(0x8009000CU);
inline constexpr auto noKey = static_cast<I4>(0x8009000DU);
inline constexpr auto exists = static_cast<I4>(0x8009000FU);
inline constexpr auto permission = static_cast<I4>(0x80090010U);
inline constexpr auto noContainer = static_cast<I4>(0x80090016U);
inline constexpr auto noProvider = static_cast<I4>(0x80090019U);
inline constexpr auto keysetEntryBad = static_cast<I4>(0x8009001AU);
inline constexpr auto internalFailure = static_cast<I4>(0x80090020U);

}  // namespace tovera::providerCodes
