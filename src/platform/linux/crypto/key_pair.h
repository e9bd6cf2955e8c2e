#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/linux/crypto/openssl_library.h"

namespace tovera {

using Md5Digest = std::array<std::uint8_t, 16>;

/// Bytes that nobody else shall see: wiped before their memory is given back.
class SecretBytes {
  public:
    SecretBytes() = default;
    explicit SecretBytes(std::size_t size) : bytes_(size, '\0') {}
    SecretBytes(SecretBytes&& other) noexcept = default;
    SecretBytes& operator=(SecretBytes&& other) noexcept = default;
    ~SecretBytes() {
        if (!bytes_.empty()) openSsl().cleanse(bytes_.data(), bytes_.size());
    }

    std::span<char> span() { return bytes_; }
    std::string_view view() const { return bytes_; }

  private:
    std::string bytes_;
};

/// An RSA pair of keys.
class KeyPair {
  public:
    /// A new pair of 2048 bits; nothing when OpenSSL can't make one.
    static std::optional<KeyPair> generate();
    /// The pair in a PKCS #8 text; nothing for a text of another kind, or one under a passphrase.
    static std::optional<KeyPair> fromText(std::string_view pem);
    /// As a PKCS #8 text, handed to `use` and wiped afterwards. False when OpenSSL can't write it.
    template <class Use>
    bool withText(Use&& use) const {
        const Bio text = write();
        if (!text) return false;
        char* bytes = nullptr;
        const auto size = openSsl().bio_ctrl(text.get(), BIO_CTRL_INFO, 0, &bytes);
        std::forward<Use>(use)(std::string_view(bytes, static_cast<std::size_t>(size)));
        return true;
    }

    /// Bytes of a signature.
    std::size_t signatureSize() const { return static_cast<std::size_t>(openSsl().pkey_size(key_.get())); }
    /// PKCS #1 v1.5 over an MD5 hash, most significant byte first; empty when OpenSSL refuses.
    std::string sign(const Md5Digest& digest) const;
    bool verify(const Md5Digest& digest, std::string_view signature) const;

  private:
    explicit KeyPair(PKey key) : key_(std::move(key)) {}
    /// A memory of OpenSSL's, which wipes it itself.
    Bio write() const;
    template <class Begin>
    PKeyContext begin(const Begin& function) const;

    PKey key_;
};

/// The MD5 of OpenSSL's library context of this system.
const EVP_MD* md5Algorithm();

}  // namespace tovera
