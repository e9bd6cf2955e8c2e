#if __has_include(<openssl/evp.h>)

#include "platform/linux/crypto/key_pair.h"

namespace tovera {
namespace {

constexpr int bitsOfNewPairs = 2048;

/// A text under a passphrase is refused; without this OpenSSL would ask on the terminal.
int refusePassphrase(char*, int, int, void*) {
    return -1;
}

const std::uint8_t* bytesOf(std::string_view text) {
    return reinterpret_cast<const std::uint8_t*>(text.data());
}

}  // namespace

const EVP_MD* md5Algorithm() {
    static const EVP_MD* const algorithm = openSsl().md_fetch(openSslContext(), "MD5", nullptr);
    return algorithm;
}

std::optional<KeyPair> KeyPair::generate() {
    const OpenSslErrors scope;
    const PKeyContext context(openSsl().ctx_new_from_name(openSslContext(), "RSA", nullptr));
    EVP_PKEY* made = nullptr;
    if (!context || openSsl().keygen_init(context.get()) <= 0 ||
        openSsl().set_bits(context.get(), bitsOfNewPairs) <= 0 ||
        openSsl().generate(context.get(), &made) <= 0)
        return std::nullopt;
    return KeyPair(PKey(made));
}

std::optional<KeyPair> KeyPair::fromText(std::string_view pem) {
    const OpenSslErrors scope;
    const Bio text(openSsl().bio_new_mem_buf(pem.data(), static_cast<int>(pem.size())));
    if (!text) return std::nullopt;
    PKey key(openSsl().pem_read(text.get(), nullptr, refusePassphrase, nullptr, openSslContext(), nullptr));
    if (!key || openSsl().pkey_is_a(key.get(), "RSA") == 0) return std::nullopt;
    return KeyPair(std::move(key));
}

Bio KeyPair::write() const {
    const OpenSslErrors scope;
    Bio text(openSsl().bio_new(openSsl().bio_s_mem()));
    if (!text || openSsl().pem_write(text.get(), key_.get(), nullptr, nullptr, 0, nullptr, nullptr) <= 0)
        return nullptr;
    return text;
}

template <class Begin>
PKeyContext KeyPair::begin(const Begin& function) const {
    PKeyContext context(openSsl().ctx_new_from_pkey(openSslContext(), key_.get(), nullptr));
    if (!context || function(context.get()) <= 0 ||
        openSsl().set_padding(context.get(), RSA_PKCS1_PADDING) <= 0 ||
        openSsl().set_signature_md(context.get(), md5Algorithm()) <= 0)
        return nullptr;
    return context;
}

std::string KeyPair::sign(const Md5Digest& digest) const {
    const OpenSslErrors scope;
    std::string signature(signatureSize(), '\0');
    std::size_t length = signature.size();
    const auto context = begin(openSsl().sign_init);
    if (!context || openSsl().sign(context.get(), reinterpret_cast<std::uint8_t*>(signature.data()), &length,
                                   digest.data(), digest.size()) <= 0)
        return {};
    return signature;
}

bool KeyPair::verify(const Md5Digest& digest, std::string_view signature) const {
    const OpenSslErrors scope;
    const auto context = begin(openSsl().verify_init);
    return context && openSsl().verify(context.get(), bytesOf(signature), signature.size(), digest.data(),
                                       digest.size()) == 1;
}

}  // namespace tovera

#endif
