#include "platform/sound.h"

#include "multimedia/cls_multimedia.h"

namespace tovera {
namespace {

using namespace std::string_view_literals;

/// The places for replies, which nobody reads: their length is given as 0.
constexpr auto trayReply = u"\0"sv;
constexpr auto soundReply = u"0"sv;

bool isExactlyTrue(Optional<VariantBool>& given) {
    return given.isGiven() && given->isExactlyTrue();
}

}  // namespace

void Cls_Multimedia::envoyer(const Bstr& commande, const Bstr& reponse) {
    platform_.call(&Sound::mciSendStringA, commande, reponse, 0, 0);
}

void Cls_Multimedia::FermerCD() {
    envoyer(u"Set cdaudio door closed wait", trayReply);
}

void Cls_Multimedia::OuvrirCD() {
    envoyer(u"Set cdaudio door Open wait", trayReply);
}

void Cls_Multimedia::JouerUnWav(const Bstr& Fichier) {
    platform_.call(&Sound::mciExecute, join(u"play ", Fichier));
}

void Cls_Multimedia::ReglageVolume(Optional<VariantBool> Grand) {
    platform_.services.launch(isExactlyTrue(Grand) ? u"sndvol32" : u"sndvol32 /t",
                              WindowStyle::MinimizedFocus);
}

VariantBool Cls_Multimedia::CarteSonPresente() {
    return VariantBool(platform_.call(&Sound::waveOutGetNumDevs) > 0);
}

void Cls_Multimedia::OuvrirMP3(const Bstr& strNomFichier, Optional<VariantBool> blnJouerFichier) {
    envoyer(join(u"Open ", strNomFichier, u" Alias Sonido"), soundReply);
    if (isExactlyTrue(blnJouerFichier)) envoyer(u"Play sonido", soundReply);
}

void Cls_Multimedia::JouerMP3() {
    envoyer(u"Play sonido", soundReply);
}

void Cls_Multimedia::StopMP3() {
    envoyer(u"Stop sonido", soundReply);
    envoyer(u"Close sonido", soundReply);
}

void Cls_Multimedia::PauseMP3() {
    envoyer(u"Stop sonido", soundReply);
}

}  // namespace tovera
