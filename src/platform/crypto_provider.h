#pragma once

#include <cstddef>
#include <span>

#include "frame/crossing.h"
#include "platform/port.h"

namespace tovera {

/// Names, kinds and codes of the cryptographic provider.
namespace provider {
inline constexpr I4 rsaFull = 1;
inline constexpr I4 newKeySet = 8;
inline constexpr I4 containerName = 6;
inline constexpr I4 exchangePair = 1;
inline constexpr I4 signaturePair = 2;
inline constexpr I4 md5 = 0x8003;
inline constexpr I4 rc4 = 0x6801;
inline constexpr auto noKey = static_cast<I4>(0x8009000DU);
inline constexpr auto badSignature = static_cast<I4>(0x80090006U);
}  // namespace provider

/// The cryptographic functions of `advapi32`. Each gives nonzero on success; on failure the last error tells
/// why. Byte strings are texts of one character a byte; their lengths count bytes.
struct CryptoProvider : Port<CryptoProvider> {
    /// Opens a key container, or makes it with the flag for that.
    virtual I4 CryptAcquireContextA(I4& context, const AnsiText& container, const AnsiText& name, I4 type,
                                    I4 flags) {
        return missingEntryPoint(context, container, name, type, flags);
    }
    virtual I4 CryptReleaseContext(I4 context, I4 flags) { return missingEntryPoint(context, flags); }
    /// Length is the room in data when it comes in, and what is in it when it goes out.
    virtual I4 CryptGetProvParam(I4 context, I4 parameter, std::span<std::byte> data, I4& length, I4 flags) {
        return missingEntryPoint(context, parameter, data, length, flags);
    }

    virtual I4 CryptGetUserKey(I4 context, I4 pair, I4& key) { return missingEntryPoint(context, pair, key); }
    /// Makes a pair and stores it in the container.
    virtual I4 CryptGenKey(I4 context, I4 pair, I4 flags, I4& key) {
        return missingEntryPoint(context, pair, flags, key);
    }
    virtual I4 CryptDeriveKey(I4 context, I4 cipher, I4 hash, I4 flags, I4& key) {
        return missingEntryPoint(context, cipher, hash, flags, key);
    }
    /// Frees the handle, not a stored pair.
    virtual I4 CryptDestroyKey(I4 key) { return missingEntryPoint(key); }

    virtual I4 CryptCreateHash(I4 context, I4 algorithm, I4 key, I4 flags, I4& hash) {
        return missingEntryPoint(context, algorithm, key, flags, hash);
    }
    virtual I4 CryptHashData(I4 hash, const AnsiText& data, I4 length, I4 flags) {
        return missingEntryPoint(hash, data, length, flags);
    }
    virtual I4 CryptDestroyHash(I4 hash) { return missingEntryPoint(hash); }

    /// Length is the room in the buffer when it comes in; when that is too small, it goes out as the size
    /// needed.
    virtual I4 CryptSignHashA(I4 hash, I4 pair, const AnsiText& description, I4 flags, AnsiText& signature,
                              I4& length) {
        return missingEntryPoint(hash, pair, description, flags, signature, length);
    }
    virtual I4 CryptVerifySignatureA(I4 hash, const AnsiText& signature, I4 length, I4 key,
                                     const AnsiText& description, I4 flags) {
        return missingEntryPoint(hash, signature, length, key, description, flags);
    }

    /// Encrypts in place the first bytes of a buffer, which may grow up to its size.
    virtual I4 CryptEncrypt(I4 key, I4 hash, I4 final, I4 flags, AnsiText& buffer, I4& dataLength,
                            I4 bufferLength) {
        return missingEntryPoint(key, hash, final, flags, buffer, dataLength, bufferLength);
    }
    virtual I4 CryptDecrypt(I4 key, I4 hash, I4 final, I4 flags, AnsiText& buffer, I4& count) {
        return missingEntryPoint(key, hash, final, flags, buffer, count);
    }
};

CryptoProvider& homeCryptoProvider();

}  // namespace tovera
