#pragma once

#include "shell/cls_windows.h"

namespace tovera {

template <>
struct ClassTable<Cls_Windows> {
    using C = Cls_Windows;
    static constexpr std::string_view name = "Cls_Windows";
    static constexpr std::string_view help = "Affichage des objets du panneau de controle Windows, Wait...";
    static constexpr std::tuple members{
        method<&C::Wait>("Wait", "", "lNumberOfSeconds"),
        method<&C::GstAffichage>("GstAffichage", "0 =Background; 1=Ecran veille; 2= Apparence; 3=Parametres",
                                 "NumeroOnglet"),
        method<&C::GstDivers>("GstDivers", "1=Clavier; 2=Son; 3=Affichage; 4=Souris; 5=General",
                              "NumeroOnglet"),
        method<&C::GstProg>("GstProg", "1=Install/Uninstall; 2=Windows Setup; 3= D7 de Démaragge",
                            "NumeroOnglet"),
        method<&C::GstParamRegion>("GstParamRegion", "0=Param region; 1=Nombre; 2=Monnaie; 3=Temps; 4=Date",
                                   "NumeroOnglet"),
        method<&C::GstJoystick>("GstJoystick", "0=General; 1=Avancé", "NumeroOnglet"),
        method<&C::GstPrincipal>("GstPrincipal", "0=Souris; 1=Clavier; 2=Imprimante; 3=Fontes",
                                 "NumeroOnglet"),
        method<&C::GstMailFax>("GstMailFax", ""),
        method<&C::GstMultimedia>("GstMultimedia", "0=Audio; 1=Vidéo; 2=MIDI; 3=CD Musique; 4=Avancé",
                                  "NumeroOnglet"),
        method<&C::GstSysteme>("GstSysteme", "0=General; 1=Gestion Periph; 2=Profil Materiel; 3=Performance",
                               "NumeroOnglet"),
        method<&C::GstInternetExplorer>(
            "GstInternetExplorer", "0=General; 1=Sécurité; 2=Content; 3=Connection; 4=Programmes; 5=Avancé",
            "NumeroOnglet"),
        method<&C::GstAssistantNouveauMateriel>("GstAssistantNouveauMateriel", ""),
        method<&C::GstModem>("GstModem", ""),
        method<&C::GstReseau>("GstReseau", ""),
        method<&C::GstPassword>("GstPassword", ""),
        method<&C::GstDate>("GstDate", ""),
        method<&C::GstMSMail>("GstMSMail", ""),
        method<&C::GstFichierAssociation>("GstFichierAssociation", "", "NomFichier"),
        method<&C::CopieD7>("CopieD7", ""),
        method<&C::CreationRaccourci_Fenetre>("CreationRaccourci_Fenetre", "", "Chemin"),
        method<&C::CreationRaccourci>("CreationRaccourci", "", "strNomDuRaccourci", "strPathCible",
                                      "strArgument", "strPlaceRaccourci"),
        method<&C::AssistantNouveauMateriel>("AssistantNouveauMateriel", ""),
        method<&C::AssistantNouvelleImprimante>("AssistantNouvelleImprimante", ""),
        method<&C::AssistantNouvelleConnexion>("AssistantNouvelleConnexion", ""),
        method<&C::OuvrirPortionDocument>("OuvrirPortionDocument", "", "Chemin"),
        method<&C::CreationPorteDocument>("CreationPorteDocument", ""),
        method<&C::GstImprimante>("GstImprimante", ""),
        method<&C::GstFontes>("GstFontes", ""),
        method<&C::GstHeure>("GstHeure", ""),
        method<&C::GstEnergie>("GstEnergie", ""),
        method<&C::Extinction_Ordinateur>("Extinction_Ordinateur", "1= Sortie propre; 2= Sortie forcée",
                                          "Mode"),
        method<&C::getWindowsVersion>("getWindowsVersion", ""),
        method<&C::ExecuteFichier>("ExecuteFichier", "", "FichierDestination"),
        method<&C::LancerActiverApplication>("LancerActiverApplication", "", "strTitreAppli",
                                             "strCheminAppli"),
        method<&C::GetNomFichier_DuChemin>("GetNomFichier_DuChemin", "", "strChemin", "blnExtention"),
        method<&C::ParcourirDossier>("ParcourirDossier", "", "NomForme", "strTITRE"),
        method<&C::GET_ExtentionFichier>("GET_ExtentionFichier", "", "strNomFichier"),
        method<&C::GET_NomFichier>("GET_NomFichier", "", "NomComplet", "Partie"),
        method<&C::Effacer_FichierDossier>("Effacer_FichierDossier", "", "strPath"),
        method<&C::EcritAjoutDansFichier>("EcritAjoutDansFichier", "", "strPathFichier", "strTxtAEcrire"),
        method<&C::GET_DossierSpecial>("GET_DossierSpecial", "", "CSIDL"),
        method<&C::GET_DossierWindows>("GET_DossierWindows", ""),
        method<&C::GET_DossierSysteme>("GET_DossierSysteme", ""),
        method<&C::GetActiveWindowTitle>("GetActiveWindowTitle", "", "ReturnParent"),
        method<&C::Cacher_BarreDesTaches>("Cacher_BarreDesTaches", ""),
        method<&C::Montrer_BarreDesTaches>("Montrer_BarreDesTaches", ""),
        method<&C::Get_ActiveWindow>("Get_ActiveWindow", "", "ReturnParent"),
        method<&C::Get_WindowTitle>("Get_WindowTitle", "", "hwnd"),
        method<&C::TrouveExecutable>("TrouveExecutable", "", "strNomFichier"),
        method<&C::ModeDeveloppement>(
            "ModeDeveloppement",
            "Renvoie vrai si on utilise le prog sous VB ou Faux si on l'utilise avec l'exe. (UNIQUEMENT sous "
            "VB6.)"),
    };
};

}  // namespace tovera
