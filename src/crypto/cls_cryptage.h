#pragma once

#include "frame/component.h"
#include "frame/failure_marks.h"
#include "platform/platform.h"

namespace tovera {

/// Signatures with the user's own key pair, and encryption of texts under a password.
///
/// Set `InBuffer` and, as the operation needs, `Password` or `Signature`; call `Sign`, `Validate`, `Encrypt`
/// or `Decrypt`; then read `OutBuffer`, `Signature` and `Status`. Nothing is told by results or errors: a
/// failure shows message boxes.
///
/// A signature or ciphertext is a byte string, one character a byte of the ANSI code page. Texts cross to
/// that code page, and come back from it into their fields: a character outside it becomes the default
/// character.
///
/// Creating an object makes sure that the user has his two key pairs, and tells the outcome in a message box.
/// They stay for good. On Linux they lie in `~/.local/share/tovera/keys` as `signature.pem` and
/// `exchange.pem` (PKCS #8, readable by their owner only): `openssl pkey -in signature.pem -check` checks
/// one, copying the folder keeps them. A signature verifies outside with its bytes in reverse order: `openssl
/// dgst -md5 -verify`. `examples/linux/keys.sh` does all of this.
///
/// What the scheme is worth: the cipher is RC4 with 40 secret bits from an MD5 hash of the password, and the
/// same password gives the same key stream each time. It keeps a text from a casual reader, not from an
/// attacker. MD5 signatures can be forged by who may choose both texts.
class Cls_Cryptage {
  public:
    explicit Cls_Cryptage(Platform& platform = home());

    /// The text to sign, to check, to encrypt or to decrypt.
    Bstr InBuffer() const { return inBuffer_; }
    void setInBuffer(const Bstr& strInBuffer) { inBuffer_ = copyOf(strInBuffer); }
    /// What `Encrypt` or `Decrypt` produced.
    Bstr OutBuffer() const { return outBuffer_; }
    /// What `Sign` produced; what `Validate` checks.
    Bstr Signature() const { return signature_; }
    void setSignature(const Bstr& strSignature) { signature_ = copyOf(strSignature); }

    /// Signs `InBuffer` with the user's private signature key; the result is in `Signature`. A failure leaves
    /// that empty, or a run of NUL characters.
    void Sign();
    /// Checks `InBuffer` against `Signature` with the user's own public key: `Status` is 2 for a good
    /// signature, else 1.
    void Validate();
    /// Encrypts `InBuffer` under `Password`; the result is in `OutBuffer`, as many characters as the text
    /// has.
    void Encrypt();
    /// Decrypts `InBuffer` under `Password`; the result is in `OutBuffer`. A wrong password isn't noticed:
    /// other characters come out. After a failure `OutBuffer` is empty.
    void Decrypt();

    /// 0: no operation has finished; 1: one has ended, well or badly; 2: `Validate` has found the signature
    /// good.
    I4 Status() const { return status_; }
    /// The text from which the key of `Encrypt` and `Decrypt` is derived.
    Bstr Password() const { return password_; }
    void setPassword(const Bstr& strPassword) { password_ = copyOf(strPassword); }

  private:
    /// What an operation holds of the provider; 0 for what it doesn't.
    struct Handles {
        I4 context = 0;
        I4 hash = 0;
        I4 key = 0;
    };

    /// A field is empty, never null: a null address means something else to the provider.
    static Bstr copyOf(const Bstr& text) { return Bstr(text.view()); }

    bool InitializeUserKeys();
    template <class Steps>
    bool openContainer(Steps& step, I4& context);
    template <class Steps>
    bool ensurePair(Steps& step, I4 context, I4 pair);

    I4 acquire(I4& context, I4 flags);
    template <class Attempt>
    bool hashText(Attempt& attempt, Handles& handles, Bstr& text);
    template <class Attempt>
    bool deriveKey(Attempt& attempt, Handles& handles);
    Bstr workBuffer(I4 length) const;
    void dropHash(Handles& handles);
    template <class Handler>
    void cleanUp(GoesOnBehindFailures<Handler>& step, Handles handles);
    void show(const Bstr& text);
    void showFailure(std::u16string_view during);
    void showBytesRequired(I4 count);

    Platform& platform_;
    Bstr inBuffer_ = u"";
    Bstr outBuffer_ = u"";
    Bstr password_ = u"";
    Bstr signature_ = u"";
    I4 status_ = 0;
};

}  // namespace tovera
