#include <gtest/gtest.h>
#include <map>

#include "crypto/class_table.h"
#include "platform/crypto_provider.h"
#include "support/named_calls.h"

namespace tovera::testing {
namespace {

constexpr I4 raised = -1;  ///< in place of an error code: the entry point is missing

/// A provider whose calls fail as told. Its cipher turns each byte into its neighbour's; its signature is the
/// text.
struct ScriptedProvider : CryptoProvider {
    I4 CryptAcquireContextA(I4& context, const AnsiText& container, const AnsiText& name, I4 type,
                            I4 flags) override {
        EXPECT_EQ(container.bytes, std::string(1, '\0'));
        EXPECT_EQ(name.bytes, std::string("Microsoft Base Cryptographic Provider v1.0\0", 43));
        EXPECT_EQ(type, 1);
        return opens(context, "acquire" + std::to_string(flags));
    }
    I4 CryptReleaseContext(I4 context, I4) override { return closes(context); }
    I4 CryptGetProvParam(I4 context, I4 parameter, std::span<std::byte> data, I4& length, I4) override {
        EXPECT_EQ((std::vector<I4>{parameter, length}), (std::vector<I4>{6, 1001}));
        std::ranges::copy(std::as_bytes(std::span(name)), data.begin());
        return uses(context, "name");
    }
    I4 CryptGetUserKey(I4 context, I4 pair, I4& key) override {
        uses(context, "");
        return opens(key, "get" + std::to_string(pair));
    }
    I4 CryptGenKey(I4 context, I4 pair, I4 flags, I4& key) override {
        EXPECT_EQ(flags, 0);
        uses(context, "");
        return opens(key, "make" + std::to_string(pair));
    }
    I4 CryptDestroyKey(I4 key) override { return closes(key); }
    I4 CryptCreateHash(I4 context, I4 algorithm, I4, I4, I4& hash) override {
        EXPECT_EQ(algorithm, 32771);
        uses(context, "");
        return opens(hash, "hash");
    }
    I4 CryptHashData(I4 hash, const AnsiText& data, I4 length, I4) override {
        hashed = data.bytes.substr(0, static_cast<std::size_t>(length));
        return uses(hash, "data");
    }
    I4 CryptDestroyHash(I4 hash) override { return closes(hash); }
    I4 CryptDeriveKey(I4 context, I4 cipher, I4 hash, I4 flags, I4& key) override {
        EXPECT_EQ((std::vector<I4>{cipher, flags}), (std::vector<I4>{26625, 0}));
        uses(context, "");
        uses(hash, "");
        return opens(key, "derive");
    }
    I4 CryptSignHashA(I4 hash, I4 pair, const AnsiText& description, I4, AnsiText& signature,
                      I4& length) override {
        EXPECT_EQ(pair, 2);
        EXPECT_EQ(description.bytes, std::string(1, '\0'));
        const bool isForSize = std::exchange(length, static_cast<I4>(hashed.size())) < length;
        if (!isForSize && failures["sign"] == 0) signature.bytes.replace(0, hashed.size(), hashed);
        return uses(hash, isForSize && !hashed.empty() ? "size" : "sign");
    }
    I4 CryptVerifySignatureA(I4 hash, const AnsiText& signature, I4 length, I4 key,
                             const AnsiText& description, I4) override {
        EXPECT_TRUE(description.isNull);
        EXPECT_FALSE(signature.isNull);
        uses(key, "");
        if (failures["verify"] == 0 &&
            signature.bytes.substr(0, static_cast<std::size_t>(length)) != hashed) {
            lastError() = provider::badSignature;
            return 0;
        }
        return uses(hash, "verify");
    }
    I4 CryptEncrypt(I4 key, I4 hash, I4 final, I4, AnsiText& buffer, I4& dataLength,
                    I4 bufferLength) override {
        EXPECT_EQ((std::vector<I4>{hash, final, bufferLength}), (std::vector<I4>{0, 1, 2 * dataLength}));
        EXPECT_EQ(buffer.bytes.size(), static_cast<std::size_t>(bufferLength));
        for (std::size_t i = 0; i < static_cast<std::size_t>(dataLength); ++i) ++buffer.bytes[i];
        return uses(key, "encrypt");
    }
    I4 CryptDecrypt(I4 key, I4 hash, I4 final, I4, AnsiText& buffer, I4& count) override {
        EXPECT_EQ((std::vector<I4>{hash, final, count}),
                  (std::vector<I4>{0, 1, static_cast<I4>(buffer.bytes.size())}));
        for (auto& byte : buffer.bytes) --byte;
        return uses(key, "decrypt");
    }

    std::map<std::string, I4> failures;  ///< the error of a step
    std::set<I4> held;
    std::string name = std::string("Zo\xE9\0?", 5);
    std::string hashed;

  private:
    I4 ends(const std::string& step) {
        const I4 error = failures[step];
        if (error == raised) raise(ErrorNumber::EntryPointNotFound);
        lastError() = error;
        return error == 0 ? 1 : 0;
    }
    I4 uses(I4 handle, const std::string& step) {
        EXPECT_TRUE(held.contains(handle)) << step;
        return ends(step);
    }
    I4 opens(I4& handle, const std::string& step) {
        EXPECT_EQ(handle, 0);
        if (ends(step) == 0) return 0;
        held.insert(handle = ++last_);
        return 1;
    }
    I4 closes(I4 handle) {
        EXPECT_EQ(held.erase(handle), 1U);
        lastError() = 0;
        return 1;
    }
    I4 last_ = 0;
};

struct Cryptage : ::testing::Test {
    std::vector<std::string> boxes() {
        std::vector<std::string> texts;
        for (const auto& box : std::exchange(home.services.boxes, {})) {
            EXPECT_EQ(std::pair(box.flags, box.title), std::pair(I4{0}, Bstr(u"HoldDLL")));
            texts.push_back(toUtf8(box.text));
        }
        EXPECT_TRUE(provider.held.empty());
        return texts;
    }
    Cls_Cryptage made() {
        Cls_Cryptage object(platform);
        boxes();
        return object;
    }

    TestPlatform home;
    ScriptedProvider provider;
    Platform platform = home.platform.with(provider);
};

using Failures = std::map<std::string, I4>;
using Boxes = std::vector<std::string>;
constexpr I4 noKey = provider::noKey;

const std::string good = "Initialisation de l'utilisateur reussit";
const std::string bad = "Echec de l'initialisation de l'utilisateur";
const std::string make = "Create key exchange key pair";
const std::string container = "Create key container Zo\u00E9";
const std::string thrown =
    "Erreur lors de l'initialisation de l'utilisateur :\r\n" + toUtf8(descriptionOf(453));

TEST_F(Cryptage, SetUp) {
    const std::vector<std::pair<Failures, Boxes>> table{
        {{}, {good}},
        {{{"acquire0", 5}}, {container, good}},
        {{{"acquire0", 5}, {"get2", noKey}, {"get1", noKey}}, {container, make, make, good}},
        {{{"get1", noKey}}, {make, good}},
        {{{"acquire0", 5}, {"acquire8", -2146893809}}, {"Error creating key container! -2146893809", bad}},
        {{{"acquire0", 5}, {"name", 87}}, {"Error getting user name! 87", "Create key container ", good}},
        {{{"get2", 87}, {"get1", noKey}}, {"Error during CryptGetUserKey! 87", bad}},
        {{{"get1", -2146893798}}, {"Error during CryptGetUserKey! -2146893798", bad}},
        {{{"get2", noKey}, {"make2", 112}}, {make, "Error during CryptGenKey! 112", bad}},
        {{{"get1", noKey}, {"make1", 5}}, {make, "Error during CryptGenKey! 5", bad}},
        {{{"acquire0", raised}}, {thrown, container, good}},
        {{{"acquire0", 5}, {"acquire8", raised}}, {thrown, "Error creating key container! 5", bad}},
        {{{"acquire0", 5}, {"name", raised}},
         {thrown, "Error getting user name! 0", "Create key container ", good}},
    };
    for (const auto& [failures, expected] : table) {
        SCOPED_TRACE(::testing::PrintToString(failures));
        provider.failures = failures;
        const Cls_Cryptage object(platform);
        EXPECT_EQ(boxes(), expected);
        EXPECT_EQ(object.Status(), 0);
        EXPECT_TRUE(object.InBuffer().empty() && object.OutBuffer().empty() && object.Password().empty() &&
                    object.Signature().empty());
    }
}

TEST_F(Cryptage, ContainerNameThatFillsItsBuffer) {
    provider.name.assign(1001, 'n');
    provider.failures = {{"acquire0", 5}};
    const Cls_Cryptage object(platform);
    EXPECT_EQ(boxes().front(), "Create key container " + provider.name);
}

struct Operation {
    void (Cls_Cryptage::*run)();
    std::string failing;
    I4 error;
    Boxes boxes;
    const char16_t* outBuffer = u"avant";
    const char16_t* signature = u"zzz";
    I4 status = 1;
};

TEST_F(Cryptage, OperationsThatFail) {
    using C = Cls_Cryptage;
    const auto missing = toUtf8(descriptionOf(453));
    const std::u16string nulls(3, u'\0');
    const std::vector<Operation> table{
        {&C::Sign, "acquire0", 5, {"Error 5 during CryptAcquireContext!"}, u"avant", u""},
        {&C::Sign, "hash", 6, {"Error 6 during CryptCreateHash!"}, u"avant", u""},
        {&C::Sign, "data", -2146893817, {"Error -2146893817 during CryptHashData!"}, u"avant", u""},
        {&C::Sign, "size", 234, {}, u"avant", u"abc"},
        {&C::Sign, "sign", noKey, {"Error -2146893811 during CryptSignHash"}, u"avant", nullptr},
        {&C::Sign, "hash", raised, {"ErrSign " + missing}, u"avant", u""},
        {&C::Validate, "acquire0", 5, {"Error 5 during CryptAcquireContext!"}},
        {&C::Validate, "hash", 6, {"Error 6 during CryptCreateHash!"}},
        {&C::Validate, "data", 7, {"Error 7 during CryptHashData!"}},
        {&C::Validate, "get2", noKey, {"Error -2146893811 during CryptGetUserKey!"}},
        {&C::Validate, "verify", 87, {"Error 87 during CryptVerifySignature!"}},
        {&C::Validate, "verify", provider::badSignature, {}},
        {&C::Validate, "data", raised, {"ErrValidate " + missing, "Error 0 during CryptHashData!"}},
        {&C::Encrypt, "acquire0", 5, {"Error 5 during CryptAcquireContext!"}},
        {&C::Encrypt, "derive", 8, {"Error 8 during CryptDeriveKey!"}},
        {&C::Encrypt, "encrypt", 234, {"bytes required:3", "Error 234 during CryptEncrypt!"}, u"bcd"},
        {&C::Encrypt, "hash", raised, {"ErrEncrypt " + missing, "Error 0 during CryptCreateHash!"}},
        {&C::Encrypt,
         "encrypt",
         raised,
         {"ErrEncrypt " + missing, "bytes required:3", "Error 0 during CryptEncrypt!"},
         u"abc"},
        {&C::Decrypt, "acquire0", 5, {"Error 5 during CryptAcquireContext!"}, u""},
        {&C::Decrypt, "data", 9, {"Error 9 during CryptHashData!"}, u""},
        {&C::Decrypt, "decrypt", 234, {"bytes required:6", "Error 234 during CryptDecrypt!"}, u""},
        {&C::Decrypt, "derive", raised, {"ErrDecrypt " + missing}, u""},
    };
    for (const auto& row : table) {
        SCOPED_TRACE(row.failing + ' ' + ::testing::PrintToString(row.boxes));
        auto object = made();
        object.setInBuffer(u"`at");
        object.Decrypt();  // leaves a text in OutBuffer
        object.setInBuffer(u"abc");
        object.setSignature(u"zzz");
        const Bstr before = object.OutBuffer();
        EXPECT_EQ(before, Bstr(u"_`s"));
        provider.failures = {{row.failing, row.error}};
        (object.*row.run)();
        EXPECT_EQ(boxes(), row.boxes);
        EXPECT_EQ(object.OutBuffer(),
                  row.outBuffer == std::u16string_view(u"avant") ? before : row.outBuffer);
        EXPECT_EQ(object.Signature(), row.signature ? Bstr(row.signature) : Bstr(nulls));
        EXPECT_EQ(object.Status(), row.status);
        provider.failures.clear();
    }
}

TEST_F(Cryptage, OperationsThatSucceed) {
    auto object = made();
    object.setInBuffer(u"Zo\u0416\u00E9");
    object.Sign();
    EXPECT_EQ(object.Status(), 1);
    EXPECT_EQ(object.InBuffer(), Bstr(u"ZoJ\u00E9")) << "the text comes back from the code page";
    EXPECT_EQ(object.Signature(), object.InBuffer());
    object.Validate();
    EXPECT_EQ(object.Status(), 2);
    object.setInBuffer(u"autre");
    object.Validate();
    EXPECT_EQ(object.Status(), 1);
    object.setSignature({});
    object.Validate();
    EXPECT_EQ(object.Status(), 1);
    EXPECT_EQ(boxes(), Boxes{});

    object.setPassword(u"cl\u00E9 \u0416");
    object.Encrypt();
    EXPECT_EQ(provider.hashed, "cl\xE9 J");
    EXPECT_EQ(object.Password(), Bstr(u"cl\u00E9 J"));
    EXPECT_EQ(object.OutBuffer(), Bstr(u"bvusf"));
    EXPECT_EQ(object.InBuffer(), Bstr(u"autre"));
    object.setInBuffer(object.OutBuffer());
    object.Decrypt();
    EXPECT_EQ(object.OutBuffer(), Bstr(u"autre"));
    object.setInBuffer(u"");
    object.Encrypt();
    EXPECT_EQ(object.OutBuffer(), Bstr(u""));
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(Cryptage, WithoutAProvider) {
    Cls_Cryptage object(home.platform);
    const auto setUp = boxes();
    EXPECT_EQ(setUp.front().substr(0, 20), "Erreur lors de l'ini");
    EXPECT_EQ(setUp.back(), bad);
    object.Encrypt();
    EXPECT_EQ(boxes().size(), 2U);
    EXPECT_EQ(object.Status(), 1);
}

}  // namespace
}  // namespace tovera::testing
