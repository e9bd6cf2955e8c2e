#include "platform/crypto_provider.h"

#include "platform/windows/entry_point.h"
#include "platform/windows/system_crypto.h"
#include "platform/windows/wide_handles.h"

namespace tovera {
namespace {

const BYTE* bytesOf(const AnsiText& text) {
    return reinterpret_cast<const BYTE*>(text.addressOrNull());
}

BYTE* bytesOf(AnsiText& text) {
    return reinterpret_cast<BYTE*>(text.addressOrNull());
}

/// A count of bytes that an entry point changes.
class Count {
  public:
    explicit Count(I4& count) : count_(count), bytes_(static_cast<DWORD>(count)) {}
    Count(const Count&) = delete;
    Count& operator=(const Count&) = delete;
    ~Count() { count_ = static_cast<I4>(bytes_); }
    DWORD* address() { return &bytes_; }

  private:
    I4& count_;
    DWORD bytes_;
};

class WindowsCryptoProvider : public CryptoProvider {
    I4 CryptAcquireContextA(I4& context, const AnsiText& container, const AnsiText& name, I4 type,
                            I4 flags) override {
        HCRYPTPROV opened = 0;
        return added(
            context, opened,
            callEntryPoint<&::CryptAcquireContextA>(advapi32, &opened, container, name, type, flags));
    }
    I4 CryptReleaseContext(I4 context, I4 flags) override {
        return callEntryPoint<&::CryptReleaseContext>(advapi32, handles_.take(context), flags);
    }
    I4 CryptGetProvParam(I4 context, I4 parameter, std::span<std::byte> data, I4& length, I4 flags) override {
        Count count(length);
        return callEntryPoint<&::CryptGetProvParam>(advapi32, handles_.find(context), parameter,
                                                    reinterpret_cast<BYTE*>(data.data()), count.address(),
                                                    flags);
    }

    I4 CryptGetUserKey(I4 context, I4 pair, I4& key) override {
        HCRYPTKEY found = 0;
        return added(key, found,
                     callEntryPoint<&::CryptGetUserKey>(advapi32, handles_.find(context), pair, &found));
    }
    I4 CryptGenKey(I4 context, I4 pair, I4 flags, I4& key) override {
        HCRYPTKEY made = 0;
        return added(key, made,
                     callEntryPoint<&::CryptGenKey>(advapi32, handles_.find(context), pair, flags, &made));
    }
    I4 CryptDeriveKey(I4 context, I4 cipher, I4 hash, I4 flags, I4& key) override {
        HCRYPTKEY made = 0;
        return added(key, made,
                     callEntryPoint<&::CryptDeriveKey>(advapi32, handles_.find(context), cipher,
                                                       handles_.find(hash), flags, &made));
    }
    I4 CryptDestroyKey(I4 key) override {
        return callEntryPoint<&::CryptDestroyKey>(advapi32, handles_.take(key));
    }

    I4 CryptCreateHash(I4 context, I4 algorithm, I4 key, I4 flags, I4& hash) override {
        HCRYPTHASH made = 0;
        return added(hash, made,
                     callEntryPoint<&::CryptCreateHash>(advapi32, handles_.find(context), algorithm,
                                                        handles_.find(key), flags, &made));
    }
    I4 CryptHashData(I4 hash, const AnsiText& data, I4 length, I4 flags) override {
        return callEntryPoint<&::CryptHashData>(advapi32, handles_.find(hash), bytesOf(data), length, flags);
    }
    I4 CryptDestroyHash(I4 hash) override {
        return callEntryPoint<&::CryptDestroyHash>(advapi32, handles_.take(hash));
    }

    I4 CryptSignHashA(I4 hash, I4 pair, const AnsiText& description, I4 flags, AnsiText& signature,
                      I4& length) override {
        Count count(length);
        return callEntryPoint<&::CryptSignHashA>(advapi32, handles_.find(hash), pair, description, flags,
                                                 bytesOf(signature), count.address());
    }
    I4 CryptVerifySignatureA(I4 hash, const AnsiText& signature, I4 length, I4 key,
                             const AnsiText& description, I4 flags) override {
        return callEntryPoint<&::CryptVerifySignatureA>(advapi32, handles_.find(hash), bytesOf(signature),
                                                        length, handles_.find(key), description, flags);
    }

    I4 CryptEncrypt(I4 key, I4 hash, I4 final, I4 flags, AnsiText& buffer, I4& dataLength,
                    I4 bufferLength) override {
        Count count(dataLength);
        return callEntryPoint<&::CryptEncrypt>(advapi32, handles_.find(key), handles_.find(hash), final,
                                               flags, bytesOf(buffer), count.address(), bufferLength);
    }
    I4 CryptDecrypt(I4 key, I4 hash, I4 final, I4 flags, AnsiText& buffer, I4& count) override {
        Count bytes(count);
        return callEntryPoint<&::CryptDecrypt>(advapi32, handles_.find(key), handles_.find(hash), final,
                                               flags, bytesOf(buffer), bytes.address());
    }

    /// The result of a call that opens something. The handle is read here, behind the call.
    template <class Handle>
    I4 added(I4& number, const Handle& handle, I4 result) {
        if (result != 0) number = handles_.add(handle);
        return result;
    }

    WideHandles handles_;
};

}  // namespace

CryptoProvider& homeCryptoProvider() {
    static WindowsCryptoProvider port;
    return port;
}

}  // namespace tovera
