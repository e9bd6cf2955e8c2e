#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "frame/component.h"
#include "platform/platform.h"

namespace tovera {

/// The registry on text paths, profile (INI) files, the system's folders, and small questions about files.
///
/// A key path is a root name, a backslash and the path below that root; a root name alone is a path too. The
/// registry operations cut it: afterwards the caller's variable holds the relative path alone. A malformed
/// path brings a message box and ends the operation. Writes tell nothing of failures; reads give the value,
/// the text "Error", or Empty for an unknown root.
class Cls_InitREG {
  public:
    explicit Cls_InitREG(Platform& platform = home()) : platform_(platform) {}

    // Profile files, WIN.INI and the system's folders.

    /// Nonzero on success. A null value removes the entry, a null entry the whole section.
    I4 IniEcrire(Bstr& strSection, Bstr& strRubrique, Bstr& strChaîneAEcrire, Bstr& strFich);
    /// The entry's value or the default, cut at 254 characters; for a null entry the list of the section's
    /// entries, separated by NUL characters.
    Bstr IniLire(Bstr& strSection, Bstr& strRubrique, Bstr& strChaîneDéf, Bstr& strFich);
    Bstr RetourneCheminSystem();
    Bstr RetourneCheminWindows();
    I4 WinIniEcrire(Bstr& strSection, Bstr& strRubrique, Bstr& strChaîne);
    Bstr WinIniLire(Bstr& strSection, Bstr& strRubrique, Bstr& strChaîneDéf);

    // The registry.

    Variant EcrireREG_DWORD(Bstr& cle_principale, Bstr& entree, const I4& valeur);
    /// An `I4`. A value of another type with less than four bytes covers only the low bytes of the last read.
    Variant LireREG_DWORD(Bstr& cle_principale, Bstr& entree);
    /// Stores one byte a character. Error 9 for an empty value, 6 for a character of more than one byte.
    Variant EcrireREG_BINARY(Bstr& cle_principale, Bstr& entree, const Bstr& valeur);
    /// A text of one character a byte, of a value of any type.
    Variant LireREG_BINARY(Bstr& cle_principale, Bstr& entree);
    /// Deletes the key that the path names when it has no subkey; never the root itself.
    Variant EffaceREG_CLE(Bstr& nom_cle);
    /// The handle of the root key with exactly this name, or 0.
    I4 LireREG_ClePrincipale(const Bstr& nom_cle_principale);
    /// The message for a status code of the registry.
    Bstr ErrorMsg(const I4& lErrorCode);
    /// A text without its leading blanks, of at most 254 bytes. Error 5 for a value of no bytes.
    Variant LireREG_STRING(Bstr& cle_principale, Bstr& entree);
    Variant CreerREG_Cle(Bstr& cle_principale);
    /// Stores the text without a terminating NUL.
    Variant EcrireREG_STRING(Bstr& cle_principale, Bstr& entree, Bstr& valeur);
    /// Notes where a product is installed, under the current user. The report tells what was tried.
    Bstr EcritureREG_Software_RepInstall(const Bstr& NomDuSoft, Bstr& AppPath);

    // File names.

    VariantBool FichierExiste(Bstr& strCheminFichier);
    VariantBool DossierExiste(Bstr& strCheminDossier);
    /// The empty text for a name that doesn't exist.
    Bstr GET_NomLong(Bstr sShortFileName);
    Bstr GET_NomCourt(Bstr sLongFileName);
    /// False when the rename failed, for whatever reason; an existing file is never replaced.
    VariantBool RenommerFichier(const Bstr& strPathFichierSRC, const Bstr& strPathFichierDEST);

  private:
    void AnalyserCle(Bstr& chemin, I4& racine);
    bool trouverRacine(Bstr& chemin);
    template <class Work>
    Variant surCleOuverte(Bstr& chemin, I4 acces, const Variant& refus, Work&& travail);
    void fermerCle();
    I4 ecrireOctets(Bstr& entree, I4 type, std::span<const std::byte> octets);
    I4 lireTampon(Bstr& entree, I4 type);

    // Working storage of the registry operations; each leaves it as it stood at its end.
    I4 lngCleOuverte = 0;
    I4 lngRacine = 0;
    I4 lngStatut = 0;
    I4 lngValeurDword = 0;
    Bstr strTampon;
    I4 lngTailleTampon = 0;
    I4 lngTailleBinaire = 0;
    std::vector<UI1> tabOctets;

    Platform& platform_;
};

}  // namespace tovera
