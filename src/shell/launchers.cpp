#include "frame/number_text.h"
#include "shell/cls_windows.h"

// Each command goes out with exactly the letters and blanks that stand here.
namespace tovera {

void Cls_Windows::lancer(const Bstr& commande) {
    platform_.services.launch(commande, WindowStyle::MinimizedFocus);
}

void Cls_Windows::lancer(std::u16string_view commande, I2 numero) {
    lancer(join(commande, numberToText(I4{numero})));
}

// clang-format off
void Cls_Windows::GstAffichage(const I2& n) { lancer(u"RUNDLL32 SHELL32.DLL,Control_RunDLL DESK.CPL,,", n); }
void Cls_Windows::GstDivers(const I2& n) { lancer(u"RUNDLL32 SHELL32.DLL,Control_RunDLL ACCESS.CPL,,", n); }
void Cls_Windows::GstProg(const I2& n) { lancer(u"RUNDLL32 SHELL32.DLL,Control_RunDLL APPWIZ.CPL,,", n); }
void Cls_Windows::GstParamRegion(const I2& n) { lancer(u"RUNDLL32 SHELL32.DLL,Control_RunDLL INTL.CPL,,", n); }
void Cls_Windows::GstJoystick(const I2& n) { lancer(u"rundll32.exe shell32.dll,Control_RunDLL joy.cpl,,", n); }
void Cls_Windows::GstPrincipal(const I2& n) { lancer(u"rundll32.exe shell32.dll,Control_RunDLL main.cpl @", n); }
void Cls_Windows::GstMultimedia(const I2& n) { lancer(u"RUNDLL32 SHELL32.DLL,Control_RunDLL MMSYS.CPL,,", n); }
void Cls_Windows::GstSysteme(const I2& n) { lancer(u"RUNDLL32 SHELL32.DLL,Control_RunDLL SYSDM.CPL,,", n); }
void Cls_Windows::GstInternetExplorer(const I2& n) { lancer(u"rundll32.exe shell32.dll,Control_RunDLL inetcpl.cpl,,", n); }

void Cls_Windows::GstFichierAssociation(const Bstr& NomFichier) { lancer(join(u"rundll32.exe shell32.dll,OpenAs_RunDLL ", NomFichier)); }
void Cls_Windows::OuvrirPortionDocument(const Bstr& Chemin) { lancer(join(u"rundll32.exe shscrap.dll,OpenScrap_RunDLL /r /x ", Chemin)); }
void Cls_Windows::CreationRaccourci_Fenetre(const Bstr& Chemin) { lancer(join(u"rundll32.exe AppWiz.Cpl,NewLinkHere ", Chemin)); }

void Cls_Windows::GstMailFax() { lancer(u"rundll32.exe shell32.dll,Control_RunDLL mlcfg32.cpl"); }
void Cls_Windows::GstAssistantNouveauMateriel() { lancer(u"rundll32.exe shell32.dll,Control_RunDLL sysdm.cpl @1"); }
void Cls_Windows::GstModem() { lancer(u"rundll32.exe shell32.dll,Control_RunDLL modem.cpl"); }
void Cls_Windows::GstReseau() { lancer(u"rundll32.exe shell32.dll,Control_RunDLL netcpl.cpl"); }
void Cls_Windows::GstPassword() { lancer(u"rundll32.exe shell32.dll,Control_RunDLL password.cpl"); }
void Cls_Windows::GstDate() { lancer(u"rundll32.exe shell32.dll,Control_RunDLL timedate.cpl"); }
void Cls_Windows::GstMSMail() { lancer(u"rundll32.exe shell32.dll,Control_RunDLL wgpocpl.cpl"); }
void Cls_Windows::CopieD7() { lancer(u"rundll32 diskcopy.dll,DiskCopyRunDll"); }
void Cls_Windows::AssistantNouveauMateriel() { lancer(u"rundll32.exe sysdm.cpl, InstallDevice_RunDLL"); }
void Cls_Windows::AssistantNouvelleImprimante() { lancer(u"rundll32.exe shell32.dll,SHHelpShortcuts_RunDLL AddPrinter"); }
void Cls_Windows::AssistantNouvelleConnexion() { lancer(u"rundll32.exe rnaui.dll, RnaWizard"); }
void Cls_Windows::CreationPorteDocument() { lancer(u"rundll32.exe syncui.dll, Briefcase_Create"); }
void Cls_Windows::GstImprimante() { lancer(u"rundll32.exe shell32.dll,SHHelpShortcuts_RunDLL PrintersFolder"); }
void Cls_Windows::GstFontes() { lancer(u"rundll32.exe shell32.dll,SHHelpShortcuts_RunDLL FontsFolder"); }
void Cls_Windows::GstHeure() { lancer(u"rundll32.exe shell32.dll,Control_RunDLL timedate.cpl,,/f"); }
void Cls_Windows::GstEnergie() { lancer(u"rundll32.exe shell32.dll,Control_RunDLL powercfg.cpl"); }
// clang-format on

void Cls_Windows::Extinction_Ordinateur(const I2& Mode) {
    lancer(Mode == 1 ? u"rundll32.exe user.exe,restartwindows" : u"rundll32.exe user.exe,exitwindows");
}

}  // namespace tovera
