#include "client/published_tables.h"

#include <algorithm>

namespace tovera::client {
namespace {

const PublishedClass initReg{
    "Cls_InitREG",
    "Ecrire/Lire dans le Registre, dans les fichiers INI, obtenir les répertoires Windows\\System",
    1,
    {
        {"IniEcrire(strSection: BSTR&, strRubrique: BSTR&, strChaîneAEcrire: BSTR&, strFich: BSTR&): I4",
         "Permet d ecrire dans un fichier INI"},
        {"IniLire(strSection: BSTR&, strRubrique: BSTR&, strChaîneDéf: BSTR&, strFich: BSTR&): BSTR",
         "Permet de lire un fichier INI"},
        {"RetourneCheminSystem(): BSTR",
         "Permet d obtenir le chemin system de Windows (c:\\WINDOWS\\SYSTEM...)"},
        {"RetourneCheminWindows(): BSTR", "Permet d obtenir le chemin Windows (c:\\WINDOWS, d:\\WIN95...)"},
        {"WinIniEcrire(strSection: BSTR&, strRubrique: BSTR&, strChaîne: BSTR&): I4",
         "Permet d ecrire dans un fichier INI"},
        {"WinIniLire(strSection: BSTR&, strRubrique: BSTR&, strChaîneDéf: BSTR&): BSTR",
         "Permet de lire un fichier INI"},
        {"EcrireREG_DWORD(cle_principale: BSTR&, entree: BSTR&, valeur: I4&): VARIANT",
         "Ecrire une valeur DWORD dans le registre"},
        {"LireREG_DWORD(cle_principale: BSTR&, entree: BSTR&): VARIANT",
         "Lire une valeur DWORD dans le registre"},
        {"EcrireREG_BINARY(cle_principale: BSTR&, entree: BSTR&, valeur: BSTR&): VARIANT",
         "Ecrire une valeur BINARY dans le registre. Ex: Le binaire s'écrit comme Chr$(&H1) + Chr$(&H2)..."},
        {"LireREG_BINARY(cle_principale: BSTR&, entree: BSTR&): VARIANT",
         "Lire une valeur BINARY dans le registre. Les valeurs lues seront de ce type: Chr$(&H1) + "
         "Chr$(&H2)..."},
        {"EffaceREG_CLE(nom_cle: BSTR&): VARIANT", "Effacer une cle dans le registre"},
        {"LireREG_ClePrincipale(nom_cle_principale: BSTR&): I4",
         "Lire les cles principales du registre (HKEY_CLASSES_ROOT, HKEY_CURRENT_USER...)"},
        {"ErrorMsg(lErrorCode: I4&): BSTR", "Permet d obtenir des messages d erreurs"},
        {"LireREG_STRING(cle_principale: BSTR&, entree: BSTR&): VARIANT",
         "Lire une valeur STRING  dans le registre"},
        {"CreerREG_Cle(cle_principale: BSTR&): VARIANT", "Creer une cle dans le registre"},
        {"EcrireREG_STRING(cle_principale: BSTR&, entree: BSTR&, valeur: BSTR&): VARIANT",
         "Ecrire une valeur STRING dans le registre"},
        {"EcritureREG_Software_RepInstall(NomDuSoft: BSTR&, AppPath: BSTR&): BSTR",
         "Ecrit dans le registre, une clé avec le repertoire d'installation (Param 1= NomduSoft, et Param2= "
         "App.path)"},
        {"FichierExiste(strCheminFichier: BSTR&): VARIANT_BOOL",
         "Renvoie vrai si le fichier existe, faux sinon."},
        {"DossierExiste(strCheminDossier: BSTR&): VARIANT_BOOL",
         "Renvoie vrai si le dossier existe, faux sinon."},
        {"GET_NomLong(sShortFileName: BSTR): BSTR",
         "Renvoie le nom long d'un fichier 8.3 passé en paramètre."},
        {"GET_NomCourt(sLongFileName: BSTR): BSTR",
         "Renvoie le nom court (8.3) d'un fichier long passé en paramètre."},
        {"RenommerFichier(strPathFichierSRC: BSTR&, strPathFichierDEST: BSTR&): VARIANT_BOOL",
         "Renvoie Vrai si le Renommage a fonctionné, Faux sinon."},
    }};

const PublishedClass traduction{
    "Cls_Traduction",
    "Sauvegarde et chargement des paramètres de la langue dans un fichier",
    10,
    {
        {"Sauver_LangueFeuille(NomForme: IDispatch&, Fichier: BSTR&): VARIANT",
         "Sauvegarde tous les paramètres de la feuille dans un fichier (Possibilité de spécifier "
         "Rep\\Fichier)"},
        {"Charger_LangueFeuille(NomForme: IDispatch&, Fichier: BSTR&): VARIANT",
         "Charge tous les paramètres d'un fichier dans une feuille (Possibilité de spécifier Rep\\Fichier)"},
        {"Sauver_TousLesMessages(tabMessage: SAFEARRAY(BSTR)&, Fichier: BSTR&)",
         "Sauve tous les messages depuis un tableau vers un fichier spécifié. (Rep\\Fichier)"},
        {"Charger_LeMessage(Fichier: BSTR, NumeroMsg: I2&): BSTR",
         "Renvoie un message si l'on spécifie le fichier, et le numéro du message."},
        {"Charger_TousLesMessages(Fichier: BSTR, tabMessage: SAFEARRAY(BSTR)&)",
         "Renvoie un tableau contenant tous les message si l'on spécifie le fichier."},
    }};

const PublishedClass date{
    "Cls_Date",
    "",
    14,
    {
        {"Paques(Annee: VARIANT&): DATE",
         "Calcul la date de Paques en fonction de l'année spécifié en paramètre."},
        {"DateFRtoUS(strDateFR: BSTR&): VARIANT",
         "Convertit une date FR (jj/mm/aaaa) en date US (mm/jj/aaaa)"},
        {"DateUStoFR(strDateUS: BSTR&): VARIANT",
         "Convertit une date US (mm/jj/aaaa) en date FR (jj/mm/aaaa) "},
        {"SecondeEnHeure(Seconde: I4): BSTR",
         "Permet de  Convertir une valeur en seconde au format HH:MM:SS"},
        {"HeureEnSeconde(Heure: DATE): I4", "Conversion d 'une date format HH:MM:SS en seconde"},
        {"Chrono(DepartSec: I4, ArriveeSec: I4): I4", "Calcul le délai entre 2 intervalles."},
        {"NBJoursOuvrablesParMois(intAnnee: I2, intMois: I2): I2",
         "Calcul le nombre de jours ouvrables dans 1 mois"},
        {"NBJoursOuvrables(DateDebut: DATE, DateFin: DATE): I2",
         "Calcul le nombre de jours ouvrables entre 2 dates."},
    }};

const PublishedClass sql{
    "Cls_SQL",
    "",
    16,
    {
        {"RepAPOS(Chaine: BSTR&): BSTR", ""},
        {"Creer_ODBC_Access(DBFichier: BSTR&, LienODBC: BSTR&): VARIANT",
         "Créer une chaine ODBC Access en vérifiant la présence de doublon, et du MDAC."},
    }};

const PublishedClass conversion{"Cls_Conversion",
                                "",
                                20,
                                {
                                    {"get IntituleMonnaie(): BSTR", ""},
                                    {"put IntituleMonnaie(value: BSTR&)", ""},
                                    {"get IntitulePetiteMonnaie(): BSTR", ""},
                                    {"put IntitulePetiteMonnaie(value: BSTR&)", ""},
                                    {"Ctrl_SaiseNombre(strSaisie: BSTR&): BSTR",
                                     "Supprime les espaces, et renvoie uniquement le nombre."},
                                    {"ConvertirNombreEnLettre(strNbSaisi: R8&, Montant: VARIANT_BOOL&): BSTR",
                                     "Renvoie un nombre en lettres. (Si vous spécifiez un montant à Vrai, "
                                     "alors il faut remplir les propriétés "
                                     "IntituleMonnaie et IntitulePetiteMonnaie)."},
                                    {"ConvertirOemAnsi(string1: BSTR&, string2: BSTR&): I2", ""},
                                }};

const PublishedClass math{
    "Cls_Math",
    "",
    24,
    {
        {"MesurePrincipale(Angle: VARIANT&): R4", "Renvoie la mesure principale d'un angle."},
        {"Hypothenuse(X1: VARIANT&, Y1: VARIANT&, X2: VARIANT&, Y2: VARIANT&): VARIANT",
         "Calcul l'hypothenuse d'un triangle rectangle."},
        {"InverseCosinus(x: VARIANT&): R4", "Calcul l'inverse d'un cosinus."},
        {"InverseSinus(x: VARIANT&): R4", "Calcul l'inverse d'un sinus."},
        {"AngleTrigo(x: VARIANT&, y: VARIANT&, cx: VARIANT&, cy: VARIANT&): VARIANT",
         "Calcul un angle en radian entre une droite définie par 'deux points (X, Y),(Cx, Cy) et une "
         "horizontale "
         "passant par (Cx, Cy).\r\nLa mesure de cette angle est calculée par rapport au sens "
         "trigonométrique\r\n"
         "direct (sens inverse des aiguilles d'une montre). Il "},
    }};

}  // namespace

const std::vector<PublishedClass> publishedClasses{initReg, traduction, date, sql, conversion, math};

std::string_view helpOfRecords() {
    const auto found = std::ranges::find(publishedClasses, "Cls_Windows", &PublishedClass::name);
    return found == publishedClasses.end() ? "" : found->help;
}

const std::vector<PublishedRecord> publishedRecords{
    {"BROWSEINFO", 5, 32,
     "0 hOwner I4, 4 pidlRoot I4, 8 pszDisplayName BSTR, 12 lpszTitle BSTR, 16 ulFlags I4, 20 lpfn I4, "
     "24 lParam I4, 28 iImage I4"},
    {"POINTAPI", 6, 8, "0 x I4, 4 y I4"},
    {"SHITEMID", 7, 8, "0 cb I4, 4 abID UI1"},
    {"ITEMIDLIST", 8, 8, "0 mkid SHITEMID"},
    {"SHFILEOPSTRUCT", 9, 28,
     "0 hwnd I4, 4 wFunc I4, 8 pFrom BSTR, 12 pTo BSTR, 16 fFlags I2, 18 fAnyOperationsAborted VARIANT_BOOL, "
     "20 hNameMappings I4, 24 lpszProgressTitle BSTR"},
};

}  // namespace tovera::client
