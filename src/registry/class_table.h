#pragma once

#include "registry/cls_initreg.h"

namespace tovera {

template <>
struct ClassTable<Cls_InitREG> {
    using C = Cls_InitREG;
    static constexpr std::string_view name = "Cls_InitREG";
    static constexpr std::string_view help =
        "Ecrire/Lire dans le Registre, dans les fichiers INI, obtenir les répertoires Windows\\System";
    static constexpr std::tuple members{
        method<&C::IniEcrire>("IniEcrire", "Permet d ecrire dans un fichier INI", "strSection", "strRubrique",
                              "strChaîneAEcrire", "strFich"),
        method<&C::IniLire>("IniLire", "Permet de lire un fichier INI", "strSection", "strRubrique",
                            "strChaîneDéf", "strFich"),
        method<&C::RetourneCheminSystem>(
            "RetourneCheminSystem", "Permet d obtenir le chemin system de Windows (c:\\WINDOWS\\SYSTEM...)"),
        method<&C::RetourneCheminWindows>("RetourneCheminWindows",
                                          "Permet d obtenir le chemin Windows (c:\\WINDOWS, d:\\WIN95...)"),
        method<&C::WinIniEcrire>("WinIniEcrire", "Permet d ecrire dans un fichier INI", "strSection",
                                 "strRubrique", "strChaîne"),
        method<&C::WinIniLire>("WinIniLire", "Permet de lire un fichier INI", "strSection", "strRubrique",
                               "strChaîneDéf"),
        method<&C::EcrireREG_DWORD>("EcrireREG_DWORD", "Ecrire une valeur DWORD dans le registre",
                                    "cle_principale", "entree", "valeur"),
        method<&C::LireREG_DWORD>("LireREG_DWORD", "Lire une valeur DWORD dans le registre", "cle_principale",
                                  "entree"),
        method<&C::EcrireREG_BINARY>("EcrireREG_BINARY",
                                     "Ecrire une valeur BINARY dans le registre. Ex: Le binaire s'écrit "
                                     "comme Chr$(&H1) + Chr$(&H2)...",
                                     "cle_principale", "entree", "valeur"),
        method<&C::LireREG_BINARY>("LireREG_BINARY",
                                   "Lire une valeur BINARY dans le registre. Les valeurs lues seront de ce "
                                   "type: Chr$(&H1) + Chr$(&H2)...",
                                   "cle_principale", "entree"),
        method<&C::EffaceREG_CLE>("EffaceREG_CLE", "Effacer une cle dans le registre", "nom_cle"),
        method<&C::LireREG_ClePrincipale>(
            "LireREG_ClePrincipale",
            "Lire les cles principales du registre (HKEY_CLASSES_ROOT, HKEY_CURRENT_USER...)",
            "nom_cle_principale"),
        method<&C::ErrorMsg>("ErrorMsg", "Permet d obtenir des messages d erreurs", "lErrorCode"),
        method<&C::LireREG_STRING>("LireREG_STRING", "Lire une valeur STRING  dans le registre",
                                   "cle_principale", "entree"),
        method<&C::CreerREG_Cle>("CreerREG_Cle", "Creer une cle dans le registre", "cle_principale"),
        method<&C::EcrireREG_STRING>("EcrireREG_STRING", "Ecrire une valeur STRING dans le registre",
                                     "cle_principale", "entree", "valeur"),
        method<&C::EcritureREG_Software_RepInstall>(
            "EcritureREG_Software_RepInstall",
            "Ecrit dans le registre, une clé avec le repertoire d'installation (Param 1= NomduSoft, et "
            "Param2= App.path)",
            "NomDuSoft", "AppPath"),
        method<&C::FichierExiste>("FichierExiste", "Renvoie vrai si le fichier existe, faux sinon.",
                                  "strCheminFichier"),
        method<&C::DossierExiste>("DossierExiste", "Renvoie vrai si le dossier existe, faux sinon.",
                                  "strCheminDossier"),
        method<&C::GET_NomLong>("GET_NomLong", "Renvoie le nom long d'un fichier 8.3 passé en paramètre.",
                                "sShortFileName"),
        method<&C::GET_NomCourt>("GET_NomCourt",
                                 "Renvoie le nom court (8.3) d'un fichier long passé en paramètre.",
                                 "sLongFileName"),
        method<&C::RenommerFichier>("RenommerFichier",
                                    "Renvoie Vrai si le Renommage a fonctionné, Faux sinon.",
                                    "strPathFichierSRC", "strPathFichierDEST"),
    };
};

}  // namespace tovera
