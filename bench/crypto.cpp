#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "crypto/cls_cryptage.h"
#include "frame/services.h"
#include "peers/peers.h"
#include "platform/linux/crypto/crypto_provider.h"
#include "platform/linux/crypto/rc4.h"

using namespace tovera;

namespace bench {
namespace {

constexpr std::size_t size = 1U << 20U;

/// The services of this home, whose message boxes nobody waits for.
struct QuietServices : Services {
    using Services::messageBox;
    I4 messageBox(const Bstr&, I4, const Bstr&) override { return 1; }
    R8 launch(const Bstr& line, WindowStyle style) override { return real.launch(line, style); }
    ObjectRef createObject(std::u16string_view progId) override { return real.createObject(progId); }
    ComponentFacts facts() override { return real.facts(); }
    ScreenFacts screen() override { return real.screen(); }
    RegionalSettings regionalSettings() override { return real.regionalSettings(); }
    std::string toAnsi(std::u16string_view text) override { return real.toAnsi(text); }
    std::u16string fromAnsi(std::string_view bytes) override { return real.fromAnsi(bytes); }
    void pumpMessages() override {}
    Services& real = home().services;
};

/// The class on keys of its own, in a folder that goes with it.
struct User {
    User() : provider(makeCryptoProvider(folder)) { object.emplace(platform); }
    User(const User&) = delete;
    User& operator=(const User&) = delete;
    ~User() { std::filesystem::remove_all(folder); }

    std::string folder = std::filesystem::temp_directory_path() / "tovera-bench-keys";
    QuietServices services;
    std::unique_ptr<CryptoProvider> provider;
    Platform platform = home().with(services).with(*provider);
    std::optional<Cls_Cryptage> object;
};

std::u16string textOf(std::u16string_view pattern) {
    std::u16string text;
    while (text.size() < size) text += pattern;
    text.resize(size);
    return text;
}

std::vector<Row> cipherRows(const std::shared_ptr<User>& user) {
    std::vector<Row> rows;
    const auto peer = [] { return Peer{"OpenSSL, bare RC4", loopIfInstalled(openSslRc4, size)}; };
    for (const auto& [name, pattern] :
         {std::pair("ASCII", u"Bonjour le monde"), std::pair("accents", u"\u00E9t\u00E9 \u20AC")}) {
        user->object->setPassword(u"secret");
        user->object->setInBuffer(textOf(pattern));
        rows.push_back({std::string("Encrypt 1 MiB, ") + name,
                        loopOf([user, text = user->object->InBuffer()] {
                            user->object->setInBuffer(text);
                            user->object->Encrypt();
                            return user->object->Status();
                        }),
                        peer(), 0.2});
        user->object->Encrypt();
        rows.push_back({std::string("Decrypt 1 MiB, ") + name,
                        loopOf([user, text = user->object->OutBuffer()] {
                            user->object->setInBuffer(text);
                            user->object->Decrypt();
                            return user->object->Status();
                        }),
                        peer(), 0.125});
    }
    return rows;
}

const Group crypto([] {
    const auto user = std::make_shared<User>();
    auto rows = cipherRows(user);
    const std::uint8_t key[16] = {1, 2, 3, 4, 5};
    rows.push_back({"RC4 of 1 MiB",
                    loopOf([cipher = Rc4(key), bytes = std::string(size, 'x')]() mutable {
                        cipher.apply(bytes);
                        return bytes[0];
                    }),
                    {"OpenSSL, bare RC4", loopIfInstalled(openSslRc4, size)},
                    0.67});
    rows.push_back(
        {"Sign",
         loopOf([user] {
             user->object->setInBuffer(u"Bonjour le monde");
             user->object->Sign();
             return user->object->Status();
         }),
         {"OpenSSL, key file read and signed", loopIfInstalled(openSslSign, user->folder + "/signature.pem")},
         0.83});
    rows.push_back({"set-up of a user with keys",
                    loopOf([user] { return Cls_Cryptage(user->platform).Status(); }),
                    {"OpenSSL, both key files read", loopIfInstalled(openSslRead, user->folder)},
                    0.67});
    return rows;
});

}  // namespace
}  // namespace bench
