#include "platform/sound.h"

#include <algorithm>
#include <array>

#include "platform/home_services.h"
#include "platform/linux/sound/mci.h"
#include "platform/linux/sound/sound_devices.h"

namespace tovera {
namespace {

struct CodeText {
    I4 code;
    const char16_t* text;
};

constexpr std::array codeTexts{
    CodeText{mci::unknownKeyword, u"La commande contient un mot inconnu."},
    CodeText{mci::noSuchDevice, u"Ce périphérique n'est pas ouvert ou n'existe pas."},
    CodeText{mci::noDriver, u"Aucun périphérique ne peut restituer ce son."},
    CodeText{mci::missingDevice, u"La commande ne nomme aucun fichier."},
    CodeText{mci::fileMissing, u"Le fichier est introuvable."},
    CodeText{mci::cannotBeOpened, u"Le fichier ne peut pas être lu."},
    CodeText{mci::unknownExtension,
             u"Ce périphérique n'est pas ouvert, et son nom n'est pas celui d'un fichier."},
    CodeText{mci::unclosedQuote, u"Un guillemet n'est pas fermé."},
};

class LinuxSound : public Sound {
    I4 mciSendStringA(const AnsiText& command, AnsiText& /*reply*/, I4 /*replyLength*/,
                      I4 /*callback*/) override {
        return command.isNull ? mci::missingCommand : mci_.send(command.terminated());
    }
    I4 mciExecute(const AnsiText& command) override {
        const I4 code = command.isNull ? mci::missingCommand : mci_.send(command.terminated());
        if (code == mci::success) return 1;
        homeServices().messageBox(failureText(code), messageFlags::plain, u"MCI");
        return 0;
    }
    I4 waveOutGetNumDevs() override { return soundDevices(); }
    bool isPlaying() override { return mci_.isPlaying(); }
    Bstr failureText(I4 code) override {
        const auto* const row = std::ranges::find(codeTexts, code, &CodeText::code);
        return row == codeTexts.end() ? u"La commande n'est pas comprise." : row->text;
    }

    Mci mci_;
};

}  // namespace

Sound& homeSound() {
    static LinuxSound port;
    return port;
}

}  // namespace tovera
