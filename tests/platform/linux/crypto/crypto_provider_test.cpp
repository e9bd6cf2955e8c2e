#include "platform/linux/crypto/crypto_provider.h"

#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "crypto/class_table.h"
#include "platform/linux/child_process.h"
#include "platform/linux/files/file_facts.h"
#include "platform/linux/libraries/shared_library.h"
#include "platform/linux/temporary_folder.h"
#include "support/named_calls.h"

namespace tovera::testing {
namespace {

bool hasOpenSsl() {
#if __has_include(<openssl/evp.h>)
    return SharedLibrary("libcrypto.so.3").isPresent();
#else
    return false;
#endif
}

/// The class on a container of the test's own.
struct User {
    explicit User(const std::string& folder) : provider(makeCryptoProvider(folder)) {}
    std::vector<std::string> boxes() {
        std::vector<std::string> texts;
        for (const auto& box : std::exchange(home_.services.boxes, {})) texts.push_back(toUtf8(box.text));
        return texts;
    }
    std::string bytesOf(const Bstr& text) { return home_.services.toAnsi(text.view()); }

  private:
    TestPlatform home_;

  public:
    std::unique_ptr<CryptoProvider> provider;
    Platform platform = home_.platform.with(*provider);
};

struct KeyContainer : ::testing::Test {
    void SetUp() override {
        if (!hasOpenSsl()) GTEST_SKIP() << "OpenSSL isn't installed";
    }
    std::string fileOf(const char* name) const { return keys + '/' + name; }
    mode_t modeOf(const std::string& path) const { return factsOf(path)->st_mode & 07777U; }
    /// The whole of a command's output; its texts are the test's own.
    std::string outputOf(const std::string& command) const {
        const auto file = (folder / "output");
        EXPECT_EQ(std::system((command + " >" + file + " 2>&1").c_str()), 0) << command;
        return contentOf(file);
    }
    static void write(const std::string& path, const std::string& bytes) {
        std::ofstream(path, std::ios::binary) << bytes;
    }

    TemporaryFolder folder;
    std::string keys = (folder / "data/keys");
    User user{keys};
};

const std::vector<std::string> onlyGood{"Initialisation de l'utilisateur reussit"};

TEST_F(KeyContainer, IsMadeOnceAndStays) {
    { const Cls_Cryptage first(user.platform); }
    const auto said = user.boxes();
    ASSERT_EQ(said.size(), 4U);
    EXPECT_EQ(said[0].substr(0, 21), "Create key container ");
    EXPECT_EQ(modeOf(keys), 0700U);
    EXPECT_EQ(modeOf(fileOf("signature.pem")), 0600U);
    EXPECT_EQ(modeOf(fileOf("exchange.pem")), 0600U);
    const auto pair = contentOf(fileOf("signature.pem"));

    std::filesystem::remove(fileOf("exchange.pem"));
    Cls_Cryptage second(user.platform);
    EXPECT_EQ(user.boxes(), (std::vector<std::string>{"Create key exchange key pair", onlyGood[0]}));
    EXPECT_EQ(contentOf(fileOf("signature.pem")), pair);
}

TEST_F(KeyContainer, SignaturesVerifyOutsideAndLater) {
    Cls_Cryptage object(user.platform);
    object.setInBuffer(u"d\u00E9j\u00E0 vu");
    object.Sign();
    auto bytes = user.bytesOf(object.Signature());
    EXPECT_EQ(bytes.size(), 256U);
    std::ranges::reverse(bytes);
    write((folder / "signature"), bytes);
    write((folder / "text"), "d\xE9j\xE0 vu");
    if (std::system("command -v openssl >/dev/null") == 0) {
        outputOf("openssl pkey -in " + fileOf("signature.pem") + " -pubout -out " + (folder / "public"));
        EXPECT_EQ(outputOf("openssl dgst -md5 -verify " + (folder / "public") + " -signature " +
                           (folder / "signature") + ' ' + (folder / "text")),
                  "Verified OK\n");
    }

    User later(keys);
    Cls_Cryptage other(later.platform);
    other.setInBuffer(object.InBuffer());
    other.setSignature(object.Signature());
    other.Validate();
    EXPECT_EQ(other.Status(), 2);
    for (const std::u16string& signature : {std::u16string(), std::u16string(255, u'a'),
                                            std::u16string(256, u'\u00FF'), std::u16string(300, u'b')}) {
        other.setSignature(signature);
        other.Validate();
        EXPECT_EQ(other.Status(), 1);
    }
    EXPECT_EQ(later.boxes(), onlyGood);
}

TEST_F(KeyContainer, CiphertextsAsPublished) {
    Cls_Cryptage object(user.platform);
    object.setPassword(u"secret");
    object.setInBuffer(u"Bonjour le monde");
    object.Encrypt();
    const std::string known("\x4d\xa5\x0c\x90\x68\xaf\x50\x8a\x64\x1e\x32\x1e\x0f\xb9\x5f\x7f", 16);
    EXPECT_EQ(user.bytesOf(object.OutBuffer()), known);

    std::u16string text;
    for (int i = 0; i < 70'000; ++i) text += static_cast<char16_t>(i & 0xFF);
    for (const std::size_t length : {0U, 1U, 255U, 256U, 4096U, 70'000U}) {
        object.setPassword(std::u16string(length % 300, u'\u00E9'));
        object.setInBuffer(text.substr(0, length));
        object.Encrypt();
        object.setInBuffer(object.OutBuffer());
        object.Decrypt();
        EXPECT_EQ(object.OutBuffer(), text.substr(0, length));
    }
}

TEST_F(KeyContainer, KeyFilesThatAreNone) {
    { const Cls_Cryptage first(user.platform); }
    const auto file = fileOf("signature.pem");
    const auto pair = contentOf(file);
    const auto exchange = fileOf("exchange.pem");
    const auto put = [&](const std::string& bytes) { return [&, bytes] { write(file, bytes); }; };
    const std::vector<std::pair<const char*, std::function<void()>>> table{
        {"empty", put("")},
        {"noise", put(std::string(3000, '\xA7'))},
        {"cut", put(pair.substr(0, pair.size() / 2))},
        {"public half", [&] { outputOf("openssl pkey -pubout -in " + exchange + " -out " + file); }},
        {"another kind",
         [&] { outputOf("openssl genpkey -algorithm EC -pkeyopt ec_paramgen_curve:P-256 -out " + file); }},
        {"passphrase",
         [&] { outputOf("openssl pkey -aes128 -passout pass:x -in " + exchange + " -out " + file); }},
        {"link", [&] { symlink(exchange.c_str(), file.c_str()); }},
        {"folder", [&] { mkdir(file.c_str(), 0700); }},
        {"pipe", [&] { mkfifo(file.c_str(), 0600); }},
        {"gigabyte", [&] { write(file, ""), std::filesystem::resize_file(file, 1U << 30U); }},
        {"writable by others", [&] { write(file, pair), chmod(file.c_str(), 0660); }},
    };
    for (const auto& [name, spoil] : table) {
        SCOPED_TRACE(name);
        std::filesystem::remove_all(file);
        spoil();
        const auto before = factsOf(file);
        user.boxes();
        Cls_Cryptage object(user.platform);
        EXPECT_EQ(user.boxes(), (std::vector<std::string>{"Error during CryptGetUserKey! -2146893798",
                                                          "Echec de l'initialisation de l'utilisateur"}));
        object.setInBuffer(u"texte");
        object.Encrypt();
        EXPECT_EQ(object.OutBuffer().length(), 5U);
        object.Sign();
        EXPECT_EQ(user.boxes(), std::vector<std::string>{"Error -2146893798 during CryptSignHash"});
        EXPECT_EQ(factsOf(file)->st_size, before->st_size);
    }
}

TEST_F(KeyContainer, RightsOfOthers) {
    { const Cls_Cryptage first(user.platform); }
    chmod(fileOf("signature.pem").c_str(), 0644);
    user.boxes();
    { const Cls_Cryptage reader(user.platform); }
    EXPECT_EQ(user.boxes(), onlyGood);
    EXPECT_EQ(modeOf(fileOf("signature.pem")), 0600U);

    chmod(keys.c_str(), 0770);
    { const Cls_Cryptage refused(user.platform); }
    EXPECT_EQ(user.boxes().front(), "Error creating key container! -2146893808");
}

TEST_F(KeyContainer, FullDiskLeavesNothing) {
    mkdir((folder / "data").c_str(), 0700);
    EXPECT_TRUE(succeedsOnFullDisk(100, [&](auto) {
        User other(keys);
        { const Cls_Cryptage object(other.platform); }
        const auto said = other.boxes();
        return said.size() == 4 && std::filesystem::is_empty(keys) ? 0 : 1;
    }));
}

TEST_F(KeyContainer, ManyProcessesMakeOnePair) {
    for (int round = 0; round < 2; ++round) {
        std::filesystem::remove_all(keys);
        EXPECT_TRUE(succeedsInEach(8, [&](int) {
            User one(keys);
            Cls_Cryptage object(one.platform);
            object.setInBuffer(u"texte");
            object.Sign();
            User another(keys);
            Cls_Cryptage checker(another.platform);
            checker.setInBuffer(u"texte");
            checker.setSignature(object.Signature());
            checker.Validate();
            return checker.Status() == 2 && another.boxes() == onlyGood ? 0 : 1;
        }));
        EXPECT_EQ(std::distance(std::filesystem::directory_iterator(keys), {}), 2);
    }
}

TEST_F(KeyContainer, HandlesAndOrder) {
    auto& port = *user.provider;
    const AnsiText text{"abc"};
    const AnsiText name{"Microsoft Base Cryptographic Provider v1.0"};
    I4 context = 0;
    I4 hash = 0;
    I4 length = 0;
    AnsiText signature;
    const auto code = [](I4 result) { return result != 0 ? 0 : lastError(); };
    EXPECT_EQ(code(port.CryptAcquireContextA(context, {}, {"Autre"}, 1, 0)), static_cast<I4>(0x80090019U));
    EXPECT_EQ(code(port.CryptAcquireContextA(context, {}, name, 1, 0)), static_cast<I4>(0x80090016U));
    EXPECT_EQ(code(port.CryptAcquireContextA(context, {}, name, 1, 8)), 0);
    EXPECT_EQ(code(port.CryptCreateHash(context, provider::md5, 0, 0, hash)), 0);
    EXPECT_EQ(code(port.CryptSignHashA(hash, 2, {}, 0, signature, length)), static_cast<I4>(0x8009000DU));
    I4 key = 0;
    EXPECT_EQ(code(port.CryptGenKey(context, 2, 0, key)), 0);
    I4 again = 0;
    EXPECT_EQ(code(port.CryptAcquireContextA(again, {}, name, 1, 8)), static_cast<I4>(0x8009000FU));
    EXPECT_EQ(code(port.CryptSignHashA(hash, 2, {}, 0, signature, length)), 234);
    EXPECT_EQ(length, 256);
    EXPECT_EQ(code(port.CryptHashData(hash, text, 3, 0)), 0) << "asking for the size doesn't end the hash";
    signature.bytes.resize(256);
    EXPECT_EQ(code(port.CryptSignHashA(hash, 2, {}, 0, signature, length)), 0);
    EXPECT_EQ(code(port.CryptHashData(hash, text, 3, 0)), static_cast<I4>(0x8009000CU));
    AnsiText none{{}, true};
    I4 count = 0;
    EXPECT_EQ(code(port.CryptDecrypt(0, 0, 1, 0, none, count)), 87);
    EXPECT_EQ(code(port.CryptDestroyKey(key)), 0);
    EXPECT_EQ(code(port.CryptDestroyKey(key)), 87);
    EXPECT_EQ(code(port.CryptDestroyHash(hash)), 0);
    EXPECT_EQ(code(port.CryptReleaseContext(context, 0)), 0);
    EXPECT_EQ(code(port.CryptReleaseContext(0, 0)), 87);
}

}  // namespace
}  // namespace tovera::testing
