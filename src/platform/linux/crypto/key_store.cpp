#if __has_include(<openssl/evp.h>)

#include "platform/linux/crypto/key_store.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>

#include "platform/crypto_provider.h"
#include "platform/linux/crypto/provider_codes.h"
#include "platform/linux/files/file_descriptor.h"
#include "platform/linux/files/file_facts.h"
#include "platform/linux/files/path_text.h"
#include "platform/linux/files/whole_file.h"

namespace tovera {
namespace {

constexpr mode_t onlyOwner = 0600;
constexpr mode_t writableByOthers = S_IWGRP | S_IWOTH;
constexpr mode_t anyForOthers = S_IRWXG | S_IRWXO;
constexpr off_t longestFile = 65536;  // of any size of key in use; more is no key

bool isOwnAlone(const struct stat& facts) {
    return facts.st_uid == geteuid() && (facts.st_mode & writableByOthers) == 0;
}

I4 codeOfSystemError(int systemError) {
    return systemError == ENOSPC || systemError == EDQUOT ? providerCodes::diskFull
                                                          : providerCodes::permission;
}

/// The bytes of a key file that is a file of the user's own, which nobody else can write. From now on nobody
/// else can read it. Neither a link nor a pipe is followed.
I4 readOwn(const std::string& path, SecretBytes& bytes) {
    const FileDescriptor file(open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (!file.isOpen()) return errno == ENOENT ? providerCodes::noKey : providerCodes::keysetEntryBad;
    struct stat facts {};
    if (fstat(file.get(), &facts) != 0 || !S_ISREG(facts.st_mode) || !isOwnAlone(facts) ||
        facts.st_size > longestFile)
        return providerCodes::keysetEntryBad;
    if ((facts.st_mode & anyForOthers) != 0 && fchmod(file.get(), onlyOwner) != 0)
        return providerCodes::keysetEntryBad;
    bytes = SecretBytes(static_cast<std::size_t>(facts.st_size));
    return ::read(file.get(), bytes.span().data(), bytes.span().size()) == facts.st_size
               ? 0
               : providerCodes::keysetEntryBad;
}

}  // namespace

I4 KeyStore::open() const {
    const auto facts = factsOf(folder_);
    if (!facts) return errno == ENOENT ? providerCodes::noContainer : providerCodes::permission;
    return S_ISDIR(facts->st_mode) && isOwnAlone(*facts) ? 0 : providerCodes::permission;
}

I4 KeyStore::create() const {
    std::error_code ignored;
    std::filesystem::create_directories(folderOf(folder_), ignored);
    if (mkdir(folder_.c_str(), 0700) == 0) return 0;
    if (errno != EEXIST) return codeOfSystemError(errno);
    if (const I4 code = open()) return code;
    const bool isEmpty = std::filesystem::is_empty(folder_, ignored);
    return isEmpty && !ignored ? 0 : providerCodes::exists;
}

std::string KeyStore::fileOf(I4 pair) const {
    return folder_ + (pair == provider::signaturePair ? "/signature.pem" : "/exchange.pem");
}

I4 KeyStore::read(I4 pair, std::optional<KeyPair>& found) const {
    if (pair != provider::signaturePair && pair != provider::exchangePair) return providerCodes::noKey;
    SecretBytes text;
    if (const I4 code = readOwn(fileOf(pair), text)) return code;
    found = KeyPair::fromText(text.view());
    return found ? 0 : providerCodes::keysetEntryBad;
}

I4 KeyStore::make(I4 pair, std::optional<KeyPair>& made) const {
    if (pair != provider::signaturePair && pair != provider::exchangePair) return providerCodes::badAlgorithm;
    made = KeyPair::generate();
    int error = 0;
    const auto store = [&](std::string_view text) { error = makeFile(fileOf(pair), text, onlyOwner); };
    if (!made || !made->withText(store)) return providerCodes::internalFailure;
    if (error == EEXIST) return read(pair, made);
    return error == 0 ? 0 : codeOfSystemError(error);
}

}  // namespace tovera

#endif
