// Prints the user's public signature key as OpenSSL's asn1parse makes it: its modulus and its exponent.
#include <cstdint>
#include <cstdio>
#include <vector>
#include <windows.h>

int main() {
    HCRYPTPROV provider = 0;
    HCRYPTKEY key = 0;
    DWORD size = 0;
    if (!CryptAcquireContextA(&provider, nullptr, "Microsoft Base Cryptographic Provider v1.0", PROV_RSA_FULL,
                              0) ||
        !CryptGetUserKey(provider, AT_SIGNATURE, &key) ||
        !CryptExportKey(key, 0, PUBLICKEYBLOB, 0, nullptr, &size))
        return 1;
    std::vector<BYTE> blob(size);
    if (!CryptExportKey(key, 0, PUBLICKEYBLOB, 0, blob.data(), &size)) return 1;
    const auto* const facts = reinterpret_cast<const RSAPUBKEY*>(blob.data() + sizeof(BLOBHEADER));
    const auto* const modulus = blob.data() + sizeof(BLOBHEADER) + sizeof(RSAPUBKEY);
    std::printf("n=INTEGER:0x");
    for (auto place = facts->bitlen / 8; place > 0; --place) std::printf("%02X", modulus[place - 1]);
    std::printf("\ne=INTEGER:0x%lX\n", static_cast<unsigned long>(facts->pubexp));
    CryptDestroyKey(key);
    CryptReleaseContext(provider, 0);
}
