#include <algorithm>
#include <array>

#include "crypto/cls_cryptage.h"
#include "crypto/messages.h"
#include "platform/crypto_provider.h"

// The set-up that runs when an object is created.
namespace tovera {
namespace {

using namespace std::string_view_literals;
using namespace provider;

constexpr auto defaultContainer = u"\0"sv;
constexpr auto providerName = u"Microsoft Base Cryptographic Provider v1.0\0"sv;
constexpr std::size_t nameRoom = 1001;

/// The container's name as the provider has given it: bytes up to a zero byte, or all.
Bstr nameIn(Services& services, const std::array<std::byte, nameRoom>& bytes) {
    const auto* const end = std::ranges::find(bytes, std::byte{});
    const std::string_view name(reinterpret_cast<const char*>(bytes.data()),
                                static_cast<std::size_t>(end - bytes.begin()));
    return services.fromAnsi(name);
}

}  // namespace

Cls_Cryptage::Cls_Cryptage(Platform& platform) : platform_(platform) {
    show(InitializeUserKeys() ? u"Initialisation de l'utilisateur reussit"
                              : u"Echec de l'initialisation de l'utilisateur");
}

void Cls_Cryptage::show(const Bstr& text) {
    platform_.services.messageBox(text);
}

I4 Cls_Cryptage::acquire(I4& context, I4 flags) {
    return platform_.call(&CryptoProvider::CryptAcquireContextA, context, Bstr(defaultContainer),
                          Bstr(providerName), rsaFull, flags);
}

bool Cls_Cryptage::InitializeUserKeys() {
    GoesOnBehindFailures step([this](const CurrentError& error) {
        show(join(u"Erreur lors de l'initialisation de l'utilisateur :\r\n", error.description));
    });
    Handles handles;
    const bool done = openContainer(step, handles.context) &&
                      ensurePair(step, handles.context, signaturePair) &&
                      ensurePair(step, handles.context, exchangePair);
    if (handles.context != 0)
        step.run([&] { platform_.call(&CryptoProvider::CryptReleaseContext, handles.context, 0); });
    return done;
}

/// Opens the user's container, or makes it and tells its name.
template <class Steps>
bool Cls_Cryptage::openContainer(Steps& step, I4& context) {
    if (step.test([&] { return acquire(context, 0); })) return true;
    if (!step.test([&] { return acquire(context, newKeySet); })) {
        step.run([&] { show(join(u"Error creating key container! ", lastErrorText())); });
        return false;
    }
    std::array<std::byte, nameRoom> name{};
    I4 length = nameRoom;
    if (!step.test([&] {
            return platform_.call(&CryptoProvider::CryptGetProvParam, context, containerName,
                                  std::span<std::byte>(name), length, 0);
        })) {
        step.run([&] { show(join(u"Error getting user name! ", lastErrorText())); });
        name[0] = std::byte{};
    }
    step.run([&] { show(join(u"Create key container ", nameIn(platform_.services, name))); });
    return true;
}

/// Looks for a pair in the container, and makes it when it is missing.
template <class Steps>
bool Cls_Cryptage::ensurePair(Steps& step, I4 context, I4 pair) {
    I4 key = 0;
    if (!step.test([&] { return platform_.call(&CryptoProvider::CryptGetUserKey, context, pair, key); })) {
        if (lastError() != noKey) {
            step.run([&] { show(join(u"Error during CryptGetUserKey! ", lastErrorText())); });
            return false;
        }
        step.run([&] { show(u"Create key exchange key pair"); });
        if (!step.test([&] { return platform_.call(&CryptoProvider::CryptGenKey, context, pair, 0, key); })) {
            step.run([&] { show(join(u"Error during CryptGenKey! ", lastErrorText())); });
            return false;
        }
    }
    step.run([&] { platform_.call(&CryptoProvider::CryptDestroyKey, key); });
    return true;
}

}  // namespace tovera
