#include "platform/linux/crypto/crypto_provider.h"

#include "platform/linux/files/data_folder.h"

#if __has_include(<openssl/evp.h>)

#include <algorithm>
#include <variant>

#include "frame/last_error.h"
#include "frame/utf8.h"
#include "platform/linux/crypto/provider_codes.h"
#include "platform/linux/crypto/provider_handles.h"
#include "platform/linux/text/code_pages.h"

namespace tovera {
namespace {

constexpr std::string_view providerName = "Microsoft Base Cryptographic Provider v1.0";

using Key = std::variant<PairKey, std::unique_ptr<CipherKey>>;

/// What an entry point gives back: nonzero for success, else 0 with the code as the last error.
I4 ended(I4 code) {
    lastError() = code;
    return code == 0 ? 1 : 0;
}

/// The key of a hash: its first five bytes, and eleven zero bytes, as the platform's provider of this name
/// has it.
std::array<std::uint8_t, 16> cipherKeyOf(const Md5Digest& digest) {
    std::array<std::uint8_t, 16> key{};
    std::copy_n(digest.begin(), 5, key.begin());
    return key;
}

/// The provider over a folder. Texts of bytes have their least significant byte first, unlike OpenSSL's.
class OpenSslProvider : public CryptoProvider {
  public:
    explicit OpenSslProvider(std::string folder) : folder_(std::move(folder)) {}

    I4 CryptAcquireContextA(I4& context, const AnsiText& container, const AnsiText& name, I4 type,
                            I4 flags) override;
    I4 CryptReleaseContext(I4 context, I4 flags) override;
    I4 CryptGetProvParam(I4 context, I4 parameter, std::span<std::byte> data, I4& length, I4 flags) override;
    I4 CryptGetUserKey(I4 context, I4 pair, I4& key) override;
    I4 CryptGenKey(I4 context, I4 pair, I4 flags, I4& key) override;
    I4 CryptDeriveKey(I4 context, I4 cipher, I4 hash, I4 flags, I4& key) override;
    I4 CryptDestroyKey(I4 key) override;
    I4 CryptCreateHash(I4 context, I4 algorithm, I4 key, I4 flags, I4& hash) override;
    I4 CryptHashData(I4 hash, const AnsiText& data, I4 length, I4 flags) override;
    I4 CryptDestroyHash(I4 hash) override;
    I4 CryptSignHashA(I4 hash, I4 pair, const AnsiText& description, I4 flags, AnsiText& signature,
                      I4& length) override;
    I4 CryptVerifySignatureA(I4 hash, const AnsiText& signature, I4 length, I4 key,
                             const AnsiText& description, I4 flags) override;
    I4 CryptEncrypt(I4 key, I4 hash, I4 final, I4 flags, AnsiText& buffer, I4& dataLength,
                    I4 bufferLength) override;
    I4 CryptDecrypt(I4 key, I4 hash, I4 final, I4 flags, AnsiText& buffer, I4& count) override;

  private:
    I4 cipher(I4 key, I4 final, AnsiText& buffer, I4 count);

    std::string folder_;
    HandleTable<OpenContainer> containers_;
    HandleTable<OpenHash> hashes_;
    HandleTable<Key> keys_;
};

/// A pair of a container, read at its first use.
I4 findPair(OpenContainer& container, I4 pair) {
    if (container.pairs.contains(pair)) return 0;
    std::optional<KeyPair> found;
    if (const I4 code = container.store.read(pair, found)) return code;
    container.pairs.emplace(pair, std::move(*found));
    return 0;
}

/// The value of a hash, which takes no more bytes from then on; null when OpenSSL refuses.
const Md5Digest* valueOf(OpenHash& hash) {
    if (!hash.value) {
        const OpenSslErrors scope;
        Md5Digest value{};
        if (openSsl().digest_final(hash.bytes.get(), value.data(), nullptr) != 1) return nullptr;
        hash.value = value;
    }
    return &*hash.value;
}

bool holds(const AnsiText& text, I4 length) {
    return length >= 0 && static_cast<std::size_t>(length) <= text.bytes.size();
}

I4 OpenSslProvider::CryptAcquireContextA(I4& context, const AnsiText& /*container*/, const AnsiText& name,
                                         I4 type, I4 flags) {
    if (!openSsl().library.isPresent()) missingLibrary();
    const OpenSslErrors scope;
    if (!openSslContext() || !md5Algorithm()) return ended(providerCodes::internalFailure);
    if (name.terminated() != providerName || type != provider::rsaFull)
        return ended(providerCodes::noProvider);
    auto opened = std::make_shared<OpenContainer>(folder_);
    const I4 code = (flags & provider::newKeySet) != 0 ? opened->store.create() : opened->store.open();
    if (code == 0) context = containers_.add(std::move(opened));
    return ended(code);
}

I4 OpenSslProvider::CryptReleaseContext(I4 context, I4 /*flags*/) {
    return ended(containers_.remove(context) ? 0 : providerCodes::invalidParameter);
}

I4 OpenSslProvider::CryptGetProvParam(I4 context, I4 parameter, std::span<std::byte> data, I4& length,
                                      I4 /*flags*/) {
    if (!containers_.find(context) || parameter != provider::containerName || length < 0)
        return ended(providerCodes::invalidParameter);
    const auto name = toAnsi1252(fromUtf8(userName()));
    const auto room = std::min(data.size(), static_cast<std::size_t>(length));
    const auto needed = name.size() + 1;
    length = static_cast<I4>(needed);
    if (needed > room) return ended(providerCodes::moreData);
    std::ranges::copy(std::as_bytes(std::span(name.c_str(), needed)), data.begin());
    return ended(0);
}

I4 OpenSslProvider::CryptGetUserKey(I4 context, I4 pair, I4& key) {
    const auto container = containers_.find(context);
    if (!container) return ended(providerCodes::invalidParameter);
    const I4 code = findPair(*container, pair);
    if (code == 0) key = keys_.add(std::make_shared<Key>(PairKey{container, pair}));
    return ended(code);
}

I4 OpenSslProvider::CryptGenKey(I4 context, I4 pair, I4 /*flags*/, I4& key) {
    const auto container = containers_.find(context);
    if (!container) return ended(providerCodes::invalidParameter);
    std::optional<KeyPair> made;
    if (const I4 code = container->store.make(pair, made)) return ended(code);
    container->pairs.insert_or_assign(pair, std::move(*made));
    key = keys_.add(std::make_shared<Key>(PairKey{container, pair}));
    return ended(0);
}

I4 OpenSslProvider::CryptDeriveKey(I4 context, I4 cipher, I4 hash, I4 /*flags*/, I4& key) {
    const auto base = hashes_.find(hash);
    if (!containers_.find(context) || !base) return ended(providerCodes::invalidParameter);
    if (cipher != provider::rc4) return ended(providerCodes::badAlgorithm);
    const auto* const value = valueOf(*base);
    if (!value) return ended(providerCodes::internalFailure);
    auto bytes = cipherKeyOf(*value);
    key = keys_.add(std::make_shared<Key>(std::make_unique<CipherKey>(bytes)));
    openSsl().cleanse(bytes.data(), bytes.size());
    return ended(0);
}

I4 OpenSslProvider::CryptDestroyKey(I4 key) {
    return ended(keys_.remove(key) ? 0 : providerCodes::invalidParameter);
}

I4 OpenSslProvider::CryptCreateHash(I4 context, I4 algorithm, I4 /*key*/, I4 /*flags*/, I4& hash) {
    auto container = containers_.find(context);
    if (!container) return ended(providerCodes::invalidParameter);
    if (algorithm != provider::md5) return ended(providerCodes::badAlgorithm);
    const OpenSslErrors scope;
    DigestContext bytes(openSsl().md_ctx_new());
    if (!bytes || openSsl().digest_init(bytes.get(), md5Algorithm(), nullptr) != 1)
        return ended(providerCodes::internalFailure);
    hash = hashes_.add(std::make_shared<OpenHash>(OpenHash{std::move(container), std::move(bytes), {}}));
    return ended(0);
}

I4 OpenSslProvider::CryptHashData(I4 hash, const AnsiText& data, I4 length, I4 /*flags*/) {
    const auto target = hashes_.find(hash);
    if (!target || !holds(data, length)) return ended(providerCodes::invalidParameter);
    if (target->value) return ended(providerCodes::badHashState);
    const OpenSslErrors scope;
    const bool isDone = openSsl().digest_update(target->bytes.get(), data.bytes.data(),
                                                static_cast<std::size_t>(length)) == 1;
    return ended(isDone ? 0 : providerCodes::internalFailure);
}

I4 OpenSslProvider::CryptDestroyHash(I4 hash) {
    return ended(hashes_.remove(hash) ? 0 : providerCodes::invalidParameter);
}

I4 OpenSslProvider::CryptSignHashA(I4 hash, I4 pair, const AnsiText& /*description*/, I4 /*flags*/,
                                   AnsiText& signature, I4& length) {
    const auto source = hashes_.find(hash);
    if (!source) return ended(providerCodes::invalidParameter);
    if (const I4 code = findPair(*source->container, pair)) return ended(code);
    const auto& key = source->container->pairs.at(pair);
    const auto needed = key.signatureSize();
    const bool fits = length >= 0 && needed <= static_cast<std::size_t>(length) && holds(signature, length);
    length = static_cast<I4>(needed);
    if (signature.isNull) return ended(0);
    if (!fits) return ended(providerCodes::moreData);
    const auto* const value = valueOf(*source);
    const auto made = value ? key.sign(*value) : std::string();
    if (made.empty()) return ended(providerCodes::internalFailure);
    std::ranges::reverse_copy(made, signature.bytes.begin());
    return ended(0);
}

I4 OpenSslProvider::CryptVerifySignatureA(I4 hash, const AnsiText& signature, I4 length, I4 key,
                                          const AnsiText& /*description*/, I4 /*flags*/) {
    const auto source = hashes_.find(hash);
    const auto held = keys_.find(key);
    if (!source || !held || !holds(signature, length)) return ended(providerCodes::invalidParameter);
    const auto* const pair = std::get_if<PairKey>(held.get());
    if (!pair) return ended(providerCodes::badKey);
    std::string bytes(signature.bytes, 0, static_cast<std::size_t>(length));
    std::ranges::reverse(bytes);
    const auto& verifier = pair->container->pairs.at(pair->pair);
    const auto* const value = valueOf(*source);
    if (!value) return ended(providerCodes::internalFailure);
    return ended(verifier.verify(*value, bytes) ? 0 : providerCodes::badSignature);
}

/// The stream of a key over the first bytes of a buffer.
I4 OpenSslProvider::cipher(I4 key, I4 final, AnsiText& buffer, I4 count) {
    const auto held = keys_.find(key);
    if (!held || !holds(buffer, count)) return providerCodes::invalidParameter;
    const auto* const cipher = std::get_if<std::unique_ptr<CipherKey>>(held.get());
    if (!cipher) return providerCodes::badKey;
    (*cipher)->stream.apply(std::span(buffer.bytes).first(static_cast<std::size_t>(count)));
    if (final != 0) (*cipher)->stream = (*cipher)->fresh;
    return 0;
}

I4 OpenSslProvider::CryptEncrypt(I4 key, I4 /*hash*/, I4 final, I4 /*flags*/, AnsiText& buffer,
                                 I4& dataLength, I4 bufferLength) {
    if (buffer.isNull)
        return ended(keys_.find(key) ? 0 : providerCodes::invalidParameter);  // asks for a size
    if (dataLength > bufferLength) return ended(providerCodes::moreData);
    return ended(cipher(key, final, buffer, dataLength));
}

I4 OpenSslProvider::CryptDecrypt(I4 key, I4 /*hash*/, I4 final, I4 /*flags*/, AnsiText& buffer, I4& count) {
    return ended(cipher(key, final, buffer, count));
}

}  // namespace

std::unique_ptr<CryptoProvider> makeCryptoProvider(const std::string& folder) {
    return std::make_unique<OpenSslProvider>(folder);
}

}  // namespace tovera

#else

namespace tovera {
namespace {

struct ProviderWithoutLibrary : CryptoProvider {
    I4 CryptAcquireContextA(I4&, const AnsiText&, const AnsiText&, I4, I4) override {
        return missingLibrary();
    }
};

}  // namespace

std::unique_ptr<CryptoProvider> makeCryptoProvider(const std::string&) {
    return std::make_unique<ProviderWithoutLibrary>();
}

}  // namespace tovera

#endif

namespace tovera {

CryptoProvider& homeCryptoProvider() {
    static const auto provider = makeCryptoProvider(dataFolder() + "/keys");
    return *provider;
}

}  // namespace tovera
