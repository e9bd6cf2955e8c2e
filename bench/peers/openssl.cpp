#define OPENSSL_SUPPRESS_DEPRECATED
#include <cstdio>
#include <memory>
#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/rc4.h>
#include <string>

#include "peers/peers.h"

namespace bench {
namespace {

using Key = std::unique_ptr<EVP_PKEY, decltype([](EVP_PKEY* key) { EVP_PKEY_free(key); })>;
using Context = std::unique_ptr<EVP_MD_CTX, decltype([](EVP_MD_CTX* context) { EVP_MD_CTX_free(context); })>;
using File = std::unique_ptr<std::FILE, decltype([](std::FILE* file) { std::fclose(file); })>;

Loop rc4(std::size_t size) {
    RC4_KEY key;
    const unsigned char bytes[16] = {1, 2, 3, 4, 5};
    RC4_set_key(&key, sizeof bytes, bytes);
    return loopOf([key, text = std::string(size, 'x')]() mutable {
        auto* const place = reinterpret_cast<unsigned char*>(text.data());
        RC4(&key, text.size(), place, place);
        return text[0];
    });
}

Key readKey(const std::string& path) {
    const File file(std::fopen(path.c_str(), "rb"));
    return Key(file ? PEM_read_PrivateKey(file.get(), nullptr, nullptr, nullptr) : nullptr);
}

std::size_t sign(const std::string& path) {
    const auto key = readKey(path);
    const Context context(EVP_MD_CTX_new());
    const std::string text = "Bonjour le monde";
    const auto* const bytes = reinterpret_cast<const unsigned char*>(text.data());
    unsigned char signature[512];
    std::size_t length = sizeof signature;
    if (EVP_DigestSignInit(context.get(), nullptr, EVP_md5(), nullptr, key.get()) != 1 ||
        EVP_DigestSign(context.get(), signature, &length, bytes, text.size()) != 1)
        return 0;
    return length;
}

Loop signing(std::string path) {
    requireSame(sign(path) != 0, "OpenSSL");
    return loopOf([path] { return sign(path); });
}

Loop reading(std::string folder) {
    return loopOf([folder] {
        return readKey(folder + "/signature.pem") != nullptr && readKey(folder + "/exchange.pem") != nullptr;
    });
}

const Installed installedRc4(openSslRc4, rc4);
const Installed installedSign(openSslSign, signing);
const Installed installedRead(openSslRead, reading);

}  // namespace
}  // namespace bench
