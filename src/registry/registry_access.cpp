#include <algorithm>
#include <array>
#include <span>

#include "frame/checked.h"
#include "frame/number_text.h"
#include "platform/registry.h"
#include "registry/cls_initreg.h"

namespace tovera {
namespace {

constexpr I4 success = 0;
constexpr std::size_t textBufferSize = 255;

struct RootName {
    std::u16string_view name;
    I4 handle;
};

constexpr std::array rootNames{
    RootName{u"HKEY_CLASSES_ROOT", rootKeys::classesRoot},
    RootName{u"HKEY_CURRENT_USER", rootKeys::currentUser},
    RootName{u"HKEY_LOCAL_MACHINE", rootKeys::localMachine},
    RootName{u"HKEY_USERS", rootKeys::users},
    RootName{u"HKEY_PERFORMANCE_DATA", rootKeys::performanceData},
    RootName{u"HKEY_CURRENT_CONFIG", rootKeys::currentConfig},
    RootName{u"HKEY_DYN_DATA", rootKeys::dynData},
};

struct StatusMessage {
    I4 status;
    const char16_t* message;
};

constexpr std::array statusMessages{
    StatusMessage{2, u"Mauvais nom de cle"},
    StatusMessage{1010, u"Mauvais nom de cle"},
    StatusMessage{4, u"Ne peut lire la cle"},
    StatusMessage{1012, u"Ne peut lire la cle"},
    StatusMessage{5, u"L'access a cette cle ne peut se faire"},
    StatusMessage{8, u"Pas assez de memoire"},
    StatusMessage{14, u"Pas assez de memoire"},
    StatusMessage{87, u"Parametre Invalide"},
    StatusMessage{234, u"Il y a plus de donnees que le buffer ne peut en supporter."},
    StatusMessage{1009, u"La base de Registre est corrompu!"},
    StatusMessage{1015, u"La base de Registre est corrompu!"},
    StatusMessage{1011, u"Ne peut ouvrir la cle"},
    StatusMessage{1013, u"Ne peut ecrire la cle"},
};

Variant readFailed() {
    return u"Error";
}

Bstr blanks(std::size_t count) {
    return std::u16string(count, u' ');
}

/// The ANSI code of a character, of two bytes in some code pages.
UI1 ansiCode(Services& services, char16_t character) {
    I4 code = 0;
    for (const auto byte : services.toAnsi({&character, 1})) code = code * 256 + static_cast<UI1>(byte);
    return narrow<UI1>(code);
}

}  // namespace

I4 Cls_InitREG::LireREG_ClePrincipale(const Bstr& nom_cle_principale) {
    const auto* const root = std::ranges::find(rootNames, nom_cle_principale.view(), &RootName::name);
    return root == std::end(rootNames) ? 0 : root->handle;
}

Bstr Cls_InitREG::ErrorMsg(const I4& lErrorCode) {
    const auto* const known = std::ranges::find(statusMessages, lErrorCode, &StatusMessage::status);
    if (known != std::end(statusMessages)) return known->message;
    return join(u"Code d'Erreur indefini:  ", lErrorCode < 0 ? u"" : u" ", numberToText(lErrorCode));
}

void Cls_InitREG::AnalyserCle(Bstr& chemin, I4& racine) {
    const auto path = chemin.view();
    const auto backslash = path.find(u'\\');
    const bool cut = backslash != std::u16string_view::npos;
    lngStatut = cut ? narrow<I4>(backslash + 1) : 0;
    if (!path.starts_with(u"HKEY_") || path.ends_with(u'\\')) {
        platform_.services.messageBox(join(u"Incorrect Format:\n\n", path));
        return;
    }
    racine = LireREG_ClePrincipale(Bstr(path.substr(0, backslash)));
    chemin = Bstr(cut ? path.substr(backslash + 1) : u"");
}

/// The root of the caller's path, which is cut; false when there is none to go on with.
bool Cls_InitREG::trouverRacine(Bstr& chemin) {
    lngRacine = 0;  // a rejected path must not go on under the root of an earlier one
    AnalyserCle(chemin, lngRacine);
    return lngRacine != 0;
}

/// The common opening: runs the work on the key that the path names and closes the key whatever happens.
/// The result is the work's, Empty for an unknown root, and `refus` when the key can't be opened.
template <class Work>
Variant Cls_InitREG::surCleOuverte(Bstr& chemin, I4 acces, const Variant& refus, Work&& travail) {
    if (!trouverRacine(chemin)) return {};
    lngStatut = platform_.call(&Registry::RegOpenKeyExA, lngRacine, chemin, 0, acces, lngCleOuverte);
    if (lngStatut != success) return refus;
    Variant resultat;
    try {
        resultat = travail();
    } catch (...) {
        fermerCle();
        throw;
    }
    fermerCle();
    return resultat;
}

void Cls_InitREG::fermerCle() {
    lngStatut = platform_.call(&Registry::RegCloseKey, lngCleOuverte);
}

I4 Cls_InitREG::ecrireOctets(Bstr& entree, I4 type, std::span<const std::byte> octets) {
    return platform_.call(&Registry::RegSetValueExA, lngCleOuverte, entree, 0, type, octets);
}

/// Reads into `strTampon`, which crosses whole and comes back whole.
I4 Cls_InitREG::lireTampon(Bstr& entree, I4 type) {
    AnsiCopy buffer(platform_.services, strTampon);
    const auto status =
        platform_.call(&Registry::RegQueryValueExA, lngCleOuverte, entree, type,
                       std::as_writable_bytes(std::span(buffer.text().bytes)), lngTailleTampon);
    buffer.takeBack(strTampon);
    return status;
}

Variant Cls_InitREG::EcrireREG_DWORD(Bstr& cle_principale, Bstr& entree, const I4& valeur) {
    return surCleOuverte(cle_principale, keyAccess::write, {}, [&] {
        lngStatut = ecrireOctets(entree, valueTypes::dword, std::as_bytes(std::span(&valeur, 1)));
        return Variant();
    });
}

Variant Cls_InitREG::LireREG_DWORD(Bstr& cle_principale, Bstr& entree) {
    return surCleOuverte(cle_principale, keyAccess::read, readFailed(), [&] {
        I4 type = valueTypes::dword;
        I4 size = sizeof lngValeurDword;
        lngStatut = platform_.call(&Registry::RegQueryValueExA, lngCleOuverte, entree, type,
                                   std::as_writable_bytes(std::span(&lngValeurDword, 1)), size);
        return lngStatut == success ? Variant(lngValeurDword) : readFailed();
    });
}

Variant Cls_InitREG::EcrireREG_STRING(Bstr& cle_principale, Bstr& entree, Bstr& valeur) {
    return surCleOuverte(cle_principale, keyAccess::write, {}, [&] {
        const auto characters = valeur.length();
        AnsiCopy text(platform_.services, valeur);
        const auto data = std::as_bytes(std::span(text.text().bytes));
        lngStatut = ecrireOctets(entree, valueTypes::text, data.first(std::min(characters, data.size())));
        text.takeBack(valeur);
        return Variant();
    });
}

Variant Cls_InitREG::LireREG_STRING(Bstr& cle_principale, Bstr& entree) {
    bool read = false;
    auto result = surCleOuverte(cle_principale, keyAccess::read, readFailed(), [&] {
        strTampon = blanks(textBufferSize);
        lngTailleTampon = textBufferSize;
        lngStatut = lireTampon(entree, valueTypes::text);
        read = lngStatut == success;
        return readFailed();
    });
    if (!read) return result;
    strTampon = Bstr(trimBlanks(strTampon));
    if (strTampon.empty()) raise(ErrorNumber::InvalidCall);
    return Bstr(left(strTampon, strTampon.length() - 1));
}

Variant Cls_InitREG::EcrireREG_BINARY(Bstr& cle_principale, Bstr& entree, const Bstr& valeur) {
    return surCleOuverte(cle_principale, keyAccess::write, {}, [&] {
        lngTailleBinaire = narrow<I4>(valeur.length());
        tabOctets.assign(valeur.length() + 1, 0);
        for (std::size_t i = 1; i <= valeur.length(); ++i) {
            tabOctets[i] = ansiCode(platform_.services, valeur[i - 1]);
        }
        if (tabOctets.size() == 1) raise(ErrorNumber::SubscriptOutOfRange);
        lngStatut = ecrireOctets(entree, valueTypes::binary, std::as_bytes(std::span(tabOctets).subspan(1)));
        return Variant();
    });
}

Variant Cls_InitREG::LireREG_BINARY(Bstr& cle_principale, Bstr& entree) {
    return surCleOuverte(cle_principale, keyAccess::read, readFailed(), [&] {
        lngTailleTampon = 1;
        strTampon = blanks(1);
        lireTampon(entree, valueTypes::binary);  // for the size alone
        strTampon = blanks(narrow<std::size_t>(lngTailleTampon));
        lngStatut = lireTampon(entree, valueTypes::binary);
        return lngStatut == success ? Variant(strTampon) : readFailed();
    });
}

Variant Cls_InitREG::CreerREG_Cle(Bstr& cle_principale) {
    if (!trouverRacine(cle_principale)) return {};
    lngStatut = platform_.call(&Registry::RegCreateKeyA, lngRacine, cle_principale, lngCleOuverte);
    if (lngStatut == success) fermerCle();
    return {};
}

Variant Cls_InitREG::EffaceREG_CLE(Bstr& nom_cle) {
    return surCleOuverte(nom_cle, keyAccess::write, {}, [&] {
        if (beforeNul(nom_cle).empty()) return Variant();  // the root key itself
        lngStatut = platform_.call(&Registry::RegDeleteKeyA, lngRacine, nom_cle);
        return Variant();
    });
}

Bstr Cls_InitREG::EcritureREG_Software_RepInstall(const Bstr& NomDuSoft, Bstr& AppPath) {
    Cls_InitREG registry(platform_);
    const auto path = [&] { return join(u"HKEY_CURRENT_USER\\Software\\", NomDuSoft); };
    auto cle = path();
    registry.CreerREG_Cle(cle);
    cle = path();
    Bstr entree = u"RepInstall";
    registry.EcrireREG_STRING(cle, entree, AppPath);
    return join(u"Ecriture dans ", path());
}

}  // namespace tovera
