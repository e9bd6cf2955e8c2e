#pragma once

#include <memory>
#include <openssl/crypto.h>
#include <openssl/err.h>
#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/provider.h>
#include <openssl/rsa.h>

#include "platform/linux/libraries/shared_library.h"

namespace tovera {

/// The functions of OpenSSL's libcrypto that the provider calls.
struct OpenSslLibrary {
    template <class Function>
    using Bound = EntryPoint<Function>;

    SharedLibrary library{"libcrypto.so.3"};
    Bound<decltype(OSSL_LIB_CTX_new)> lib_ctx_new{library, "OSSL_LIB_CTX_new"};
    Bound<decltype(OSSL_PROVIDER_load)> provider_load{library, "OSSL_PROVIDER_load"};
    Bound<decltype(ERR_set_mark)> set_mark{library, "ERR_set_mark"};
    Bound<decltype(ERR_pop_to_mark)> pop_to_mark{library, "ERR_pop_to_mark"};
    Bound<decltype(OPENSSL_cleanse)> cleanse{library, "OPENSSL_cleanse"};

    Bound<decltype(EVP_MD_fetch)> md_fetch{library, "EVP_MD_fetch"};
    Bound<decltype(EVP_MD_CTX_new)> md_ctx_new{library, "EVP_MD_CTX_new"};
    Bound<decltype(EVP_MD_CTX_free)> md_ctx_free{library, "EVP_MD_CTX_free"};
    Bound<decltype(EVP_DigestInit_ex)> digest_init{library, "EVP_DigestInit_ex"};
    Bound<decltype(EVP_DigestUpdate)> digest_update{library, "EVP_DigestUpdate"};
    Bound<decltype(EVP_DigestFinal_ex)> digest_final{library, "EVP_DigestFinal_ex"};

    Bound<decltype(EVP_PKEY_free)> pkey_free{library, "EVP_PKEY_free"};
    Bound<decltype(EVP_PKEY_get_size)> pkey_size{library, "EVP_PKEY_get_size"};
    Bound<decltype(EVP_PKEY_is_a)> pkey_is_a{library, "EVP_PKEY_is_a"};
    Bound<decltype(EVP_PKEY_CTX_new_from_name)> ctx_new_from_name{library, "EVP_PKEY_CTX_new_from_name"};
    Bound<decltype(EVP_PKEY_CTX_new_from_pkey)> ctx_new_from_pkey{library, "EVP_PKEY_CTX_new_from_pkey"};
    Bound<decltype(EVP_PKEY_CTX_free)> ctx_free{library, "EVP_PKEY_CTX_free"};
    Bound<decltype(EVP_PKEY_keygen_init)> keygen_init{library, "EVP_PKEY_keygen_init"};
    Bound<decltype(EVP_PKEY_CTX_set_rsa_keygen_bits)> set_bits{library, "EVP_PKEY_CTX_set_rsa_keygen_bits"};
    Bound<decltype(EVP_PKEY_generate)> generate{library, "EVP_PKEY_generate"};
    Bound<decltype(EVP_PKEY_CTX_set_rsa_padding)> set_padding{library, "EVP_PKEY_CTX_set_rsa_padding"};
    Bound<decltype(EVP_PKEY_CTX_set_signature_md)> set_signature_md{library, "EVP_PKEY_CTX_set_signature_md"};
    Bound<decltype(EVP_PKEY_sign_init)> sign_init{library, "EVP_PKEY_sign_init"};
    Bound<decltype(EVP_PKEY_sign)> sign{library, "EVP_PKEY_sign"};
    Bound<decltype(EVP_PKEY_verify_init)> verify_init{library, "EVP_PKEY_verify_init"};
    Bound<decltype(EVP_PKEY_verify)> verify{library, "EVP_PKEY_verify"};

    Bound<decltype(BIO_new)> bio_new{library, "BIO_new"};
    Bound<decltype(BIO_s_mem)> bio_s_mem{library, "BIO_s_mem"};
    Bound<decltype(BIO_new_mem_buf)> bio_new_mem_buf{library, "BIO_new_mem_buf"};
    Bound<decltype(BIO_ctrl)> bio_ctrl{library, "BIO_ctrl"};
    Bound<decltype(BIO_free)> bio_free{library, "BIO_free"};
    Bound<decltype(PEM_write_bio_PKCS8PrivateKey)> pem_write{library, "PEM_write_bio_PKCS8PrivateKey"};
    Bound<decltype(PEM_read_bio_PrivateKey_ex)> pem_read{library, "PEM_read_bio_PrivateKey_ex"};
};

inline OpenSslLibrary& openSsl() {
    static OpenSslLibrary functions;
    return functions;
}

/// The library context of this system, so that a host's configuration doesn't reach it. It is kept until the
/// process ends, since OpenSSL takes itself down before the last objects are gone. Null when OpenSSL refuses.
inline OSSL_LIB_CTX* openSslContext() {
    static OSSL_LIB_CTX* const context = [] {
        auto* const made = openSsl().lib_ctx_new();
        return made && openSsl().provider_load(made, "default") ? made : nullptr;
    }();
    return context;
}

/// The thread's queue of OpenSSL errors is the host's too: what arises in a scope is taken out of it again.
class OpenSslErrors {
  public:
    OpenSslErrors() { openSsl().set_mark(); }
    OpenSslErrors(const OpenSslErrors&) = delete;
    OpenSslErrors& operator=(const OpenSslErrors&) = delete;
    ~OpenSslErrors() { openSsl().pop_to_mark(); }
};

/// Frees an object of OpenSSL by the function bound to this member of the library.
template <auto Free>
struct OpenSslDeleter {
    template <class Object>
    void operator()(Object* object) const {
        (openSsl().*Free)(object);
    }
};

using PKey = std::unique_ptr<EVP_PKEY, OpenSslDeleter<&OpenSslLibrary::pkey_free>>;
using PKeyContext = std::unique_ptr<EVP_PKEY_CTX, OpenSslDeleter<&OpenSslLibrary::ctx_free>>;
using DigestContext = std::unique_ptr<EVP_MD_CTX, OpenSslDeleter<&OpenSslLibrary::md_ctx_free>>;
using Bio = std::unique_ptr<BIO, OpenSslDeleter<&OpenSslLibrary::bio_free>>;

}  // namespace tovera
