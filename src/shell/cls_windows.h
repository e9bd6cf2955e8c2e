#pragma once

#include "frame/component.h"
#include "platform/platform.h"

namespace tovera {

/// A timed wait, the pages of the control panel and the wizards, shortcuts, starting and raising programs,
/// paths and special folders, the windows of the desktop and the taskbar.
///
/// A launcher starts one command and comes back at once. A number joined on isn't looked at. Error 53 where
/// the program is missing, 5 where it can't be started.
class Cls_Windows {
  public:
    explicit Cls_Windows(Platform& platform = home()) : platform_(platform) {}

    /// Waits so many seconds, while the forms of the calling thread go on being served. Callers of one module
    /// file share the timer: the last call decides for all of them. A negative count comes back at once.
    void Wait(const I4& lNumberOfSeconds);

    // Pages of the control panel that take the number of a tab or an applet.

    void GstAffichage(const I2& NumeroOnglet);
    void GstDivers(const I2& NumeroOnglet);
    void GstProg(const I2& NumeroOnglet);
    void GstParamRegion(const I2& NumeroOnglet);
    void GstJoystick(const I2& NumeroOnglet);
    void GstPrincipal(const I2& NumeroOnglet);
    void GstMultimedia(const I2& NumeroOnglet);
    void GstSysteme(const I2& NumeroOnglet);
    void GstInternetExplorer(const I2& NumeroOnglet);

    // Launchers that take a file, without quotes round it.

    /// Opens the system's choice of a program for a file.
    void GstFichierAssociation(const Bstr& NomFichier);
    /// Opens a document scrap.
    void OuvrirPortionDocument(const Bstr& Chemin);
    /// Opens the system's own wizard for a new shortcut in a folder.
    void CreationRaccourci_Fenetre(const Bstr& Chemin);

    // Launchers that take nothing.

    void GstMailFax();
    void GstAssistantNouveauMateriel();
    void GstModem();
    void GstReseau();
    void GstPassword();
    void GstDate();
    void GstMSMail();
    void CopieD7();
    void AssistantNouveauMateriel();
    void AssistantNouvelleImprimante();
    void AssistantNouvelleConnexion();
    void CreationPorteDocument();
    void GstImprimante();
    void GstFontes();
    void GstHeure();
    void GstEnergie();

    /// Restarts the system for 1, and ends it for any other number.
    void Extinction_Ordinateur(const I2& Mode);

    // Shortcuts.

    /// Puts a shortcut to a program into a folder, by default the user's Startup folder, in place of one of
    /// that name. The folder's variable takes the folder that was used, with its backslash. The current
    /// folder becomes the component's. A failure is shown in a message box. Name and target come back as the
    /// code page has them.
    void CreationRaccourci(Bstr& strNomDuRaccourci, Bstr& strPathCible, Optional<Bstr> strArgument,
                           Optional<Bstr> strPlaceRaccourci);

    // Version and programs.

    /// A short name of the Windows version; empty for one that has none here, and on other systems.
    Bstr getWindowsVersion();
    /// Opens a document by its program. The result is the command line, Empty, or a text that tells why
    /// nothing was started.
    Variant ExecuteFichier(const Bstr& FichierDestination);
    /// Brings the window with exactly this title forward; without one starts the program, if any is given. 1
    /// when either was done, else 0. The title comes back as the code page has it.
    I2 LancerActiverApplication(Bstr& strTitreAppli, Optional<Bstr> strCheminAppli);
    /// The path of the program that opens a document; empty without one. Error 6 for a code beyond 16 bits.
    Bstr TrouveExecutable(const Bstr& strNomFichier);
    /// Whether the module of this component is the development environment.
    VariantBool ModeDeveloppement();

    // Paths, folders and files.

    /// What stands behind the last backslash; empty without a backslash. The second argument changes nothing.
    /// Error 6 for more than 32767 characters.
    Bstr GetNomFichier_DuChemin(const Bstr& strChemin, Optional<VariantBool> blnExtention);
    /// Lets the user choose a folder, in front of a form. Empty when he cancels.
    Bstr ParcourirDossier(const ObjectRef& NomForme, const Bstr& strTITRE);
    /// The extension as `GET_NomFichier` gives it.
    Bstr GET_ExtentionFichier(const Bstr& strNomFichier);
    /// The parts of a path that the bits ask for, in this order: 1 drive, 2 folder, 4 name, 8 extension in
    /// capitals, which begins at the first dot. Error 9 for more than 20 backslashes, 6 for one behind
    /// position 32767.
    Bstr GET_NomFichier(const Bstr& NomComplet, const I2& Partie);
    /// Puts a file or a folder into the recycle bin. What doesn't exist or can't be deleted is left alone.
    Variant Effacer_FichierDossier(const Bstr& strPath);
    /// Adds a line to a text file, which is made when it is missing. Failures are passed over.
    void EcritAjoutDansFichier(const Bstr& strPathFichier, const Bstr& strTxtAEcrire);
    /// The special folder of a number, with a backslash behind it; empty without one.
    Bstr GET_DossierSpecial(const I4& CSIDL);
    /// The folder of Windows, without a backslash at its end.
    Bstr GET_DossierWindows();
    /// The system's folder, without a backslash at its end.
    Bstr GET_DossierSysteme();

    // Windows and taskbar.

    /// The foreground window, or its outermost parent; 0 without one.
    I4 Get_ActiveWindow(VariantBool ReturnParent);
    /// The title of that window.
    Bstr GetActiveWindowTitle(VariantBool ReturnParent);
    /// The title of a window; empty without one.
    Bstr Get_WindowTitle(I4 hwnd);
    void Cacher_BarreDesTaches();
    void Montrer_BarreDesTaches();

  private:
    void lancer(const Bstr& commande);
    void lancer(std::u16string_view commande, I2 numero);
    Bstr GetWindowTitleText(I4 window);
    void placerBarreDesTaches(I4 flags);

    Platform& platform_;
};

}  // namespace tovera
