#include "crypto/cls_cryptage.h"
#include "crypto/messages.h"
#include "frame/checked.h"
#include "platform/crypto_provider.h"

// Signing, checking, encrypting and decrypting.
namespace tovera {
namespace {

using namespace std::string_view_literals;
using namespace provider;

constexpr auto noDescription = u"\0"sv;
constexpr I4 finalBlock = 1;

I4 lengthOf(const Bstr& text) {
    return narrow<I4>(text.length());
}

}  // namespace

void Cls_Cryptage::showFailure(std::u16string_view during) {
    show(join(u"Error ", lastErrorText(), u" during ", during));
}

void Cls_Cryptage::showBytesRequired(I4 count) {
    show(join(u"bytes required:", numberToText(count)));
}

/// The steps that all operations begin with. Attempt runs a call and, when that fails, shows the failure.
template <class Attempt>
bool Cls_Cryptage::hashText(Attempt& attempt, Handles& handles, Bstr& text) {
    return attempt(u"CryptAcquireContext!", [&] { return acquire(handles.context, 0); }) &&
           attempt(u"CryptCreateHash!",
                   [&] {
                       return platform_.call(&CryptoProvider::CryptCreateHash, handles.context, md5, 0, 0,
                                             handles.hash);
                   }) &&
           attempt(u"CryptHashData!", [&] {
               return platform_.call(&CryptoProvider::CryptHashData, handles.hash, text, lengthOf(text), 0);
           });
}

/// The key of a password. The hash has done its work then.
template <class Attempt>
bool Cls_Cryptage::deriveKey(Attempt& attempt, Handles& handles) {
    return hashText(attempt, handles, password_) && attempt(u"CryptDeriveKey!", [&] {
               return platform_.call(&CryptoProvider::CryptDeriveKey, handles.context, rc4, handles.hash, 0,
                                     handles.key);
           });
}

void Cls_Cryptage::dropHash(Handles& handles) {
    platform_.call(&CryptoProvider::CryptDestroyHash, handles.hash);
    handles.hash = 0;
}

/// Gives up what is held: the key, the hash, the provider. A failure is shown, and the next is given up all
/// the same.
template <class Handler>
void Cls_Cryptage::cleanUp(GoesOnBehindFailures<Handler>& step, Handles handles) {
    if (handles.key != 0) step.run([&] { platform_.call(&CryptoProvider::CryptDestroyKey, handles.key); });
    if (handles.hash != 0) step.run([&] { platform_.call(&CryptoProvider::CryptDestroyHash, handles.hash); });
    if (handles.context != 0)
        step.run([&] { platform_.call(&CryptoProvider::CryptReleaseContext, handles.context, 0); });
}

void Cls_Cryptage::Sign() {
    status_ = 0;
    Handles handles;
    const auto attempt = [this](std::u16string_view during, auto&& call) {
        if (call() != 0) return true;
        showFailure(during);
        return false;
    };
    const auto handler = [this](const CurrentError& error) { show(join(u"ErrSign ", error.description)); };
    onFailure(handler, [&] {
        signature_ = u"";
        if (!hashText(attempt, handles, inBuffer_)) return;
        I4 length = 0;
        const auto sign = [&] {
            return platform_.call(&CryptoProvider::CryptSignHashA, handles.hash, signaturePair,
                                  Bstr(noDescription), 0, signature_, length);
        };
        sign();  // for the length alone
        signature_ = Bstr(std::u16string(narrow<std::size_t>(length), u'\0'));
        attempt(u"CryptSignHash", sign);
    });
    GoesOnBehindFailures step(handler);
    cleanUp(step, handles);
    status_ = 1;
}

void Cls_Cryptage::Validate() {
    status_ = 0;
    bool valid = true;
    Handles handles;
    GoesOnBehindFailures step(
        [this](const CurrentError& error) { show(join(u"ErrValidate ", error.description)); });
    const auto attempt = [&](std::u16string_view during, auto&& call) {
        if (step.test(call)) return true;
        valid = false;
        showFailure(during);
        return false;
    };
    if (hashText(attempt, handles, inBuffer_) && attempt(u"CryptGetUserKey!", [&] {
            return platform_.call(&CryptoProvider::CryptGetUserKey, handles.context, signaturePair,
                                  handles.key);
        })) {
        if (!step.test([&] {
                return platform_.call(&CryptoProvider::CryptVerifySignatureA, handles.hash, signature_,
                                      lengthOf(signature_), handles.key, nullptr, 0);
            })) {
            valid = false;
            if (lastError() != badSignature) showFailure(u"CryptVerifySignature!");
        }
    }
    cleanUp(step, handles);
    status_ = valid ? 2 : 1;
}

/// A text of this length that begins with `InBuffer`; the rest is blanks.
Bstr Cls_Cryptage::workBuffer(I4 length) const {
    const auto room = narrow<std::size_t>(length);
    return Bstr::written(room, [&](char16_t* place) {
        const auto laid = inBuffer_.view().copy(place, room);
        return std::fill_n(place + laid, room - laid, u' ');
    });
}

void Cls_Cryptage::Encrypt() {
    status_ = 0;
    Handles handles;
    GoesOnBehindFailures step(
        [this](const CurrentError& error) { show(join(u"ErrEncrypt ", error.description)); });
    const auto attempt = [&](std::u16string_view during, auto&& call) {
        if (step.test(call)) return true;
        showFailure(during);
        return false;
    };
    if (deriveKey(attempt, handles)) {
        I4 dataLength = 0;
        I4 bufferLength = 0;
        Bstr work;  // a buffer that couldn't be made is a null address, for which the provider has no bytes
                    // to change
        step.run([&] { platform_.call(&CryptoProvider::CryptDestroyHash, handles.hash); });
        handles.hash = 0;
        step.run([&] { dataLength = lengthOf(inBuffer_); });
        step.run([&] { bufferLength = checkedMultiply(dataLength, I4{2}); });
        step.run([&] { work = workBuffer(bufferLength); });
        if (!step.test([&] {
                return platform_.call(&CryptoProvider::CryptEncrypt, handles.key, 0, finalBlock, 0, work,
                                      dataLength, bufferLength);
            })) {
            const I4 error = lastError();
            showBytesRequired(dataLength);
            lastError() = error;
            showFailure(u"CryptEncrypt!");
        }
        step.run([&] { outBuffer_ = Bstr(left(work, narrow<std::size_t>(dataLength))); });
    }
    cleanUp(step, handles);
    status_ = 1;
}

void Cls_Cryptage::Decrypt() {
    status_ = 0;
    Handles handles;
    const auto attempt = [this](std::u16string_view during, auto&& call) {
        if (call() != 0) return true;
        showFailure(during);
        return false;
    };
    const auto handler = [this](const CurrentError& error) { show(join(u"ErrDecrypt ", error.description)); };
    onFailure(handler, [&] {
        outBuffer_ = u"";
        if (!deriveKey(attempt, handles)) return;
        dropHash(handles);
        I4 count = checkedMultiply(lengthOf(inBuffer_), I4{2});
        auto work = workBuffer(count);
        if (platform_.call(&CryptoProvider::CryptDecrypt, handles.key, 0, finalBlock, 0, work, count) == 0) {
            const I4 error = lastError();
            showBytesRequired(count);
            lastError() = error;
            return showFailure(u"CryptDecrypt!");
        }
        outBuffer_ = Bstr(left(work, inBuffer_.length()));
    });
    GoesOnBehindFailures step(handler);
    cleanUp(step, handles);
    status_ = 1;
}

}  // namespace tovera
