#include "frame/number_text.h"
#include "shell/class_table.h"
#include "support/named_calls.h"

namespace tovera::testing {
namespace {

/// A launcher, the arguments that it may be given, and the command that each of them makes: `#` is the
/// argument.
struct Launcher {
    std::u16string_view member;
    std::vector<Variant> arguments;
    std::u16string_view command;
};

const std::vector<Variant> none{Variant()};

Variant n(I2 number) {
    return number;
}

const std::vector<Launcher>& launchers() {
    static const std::vector<Launcher> all{
        // clang-format off
        {u"GstAffichage", {n(0), n(1), n(2), n(3)}, u"RUNDLL32 SHELL32.DLL,Control_RunDLL DESK.CPL,,#"},
        {u"GstDivers", {n(1), n(2), n(3), n(4), n(5), n(0), n(-1)}, u"RUNDLL32 SHELL32.DLL,Control_RunDLL ACCESS.CPL,,#"},
        {u"GstProg", {n(1), n(2), n(3)}, u"RUNDLL32 SHELL32.DLL,Control_RunDLL APPWIZ.CPL,,#"},
        {u"GstParamRegion", {n(0), n(1), n(2), n(3), n(4)}, u"RUNDLL32 SHELL32.DLL,Control_RunDLL INTL.CPL,,#"},
        {u"GstJoystick", {n(0), n(1)}, u"rundll32.exe shell32.dll,Control_RunDLL joy.cpl,,#"},
        {u"GstPrincipal", {n(0), n(1), n(2), n(3)}, u"rundll32.exe shell32.dll,Control_RunDLL main.cpl @#"},
        {u"GstMultimedia", {n(0), n(1), n(2), n(3), n(4)}, u"RUNDLL32 SHELL32.DLL,Control_RunDLL MMSYS.CPL,,#"},
        {u"GstSysteme", {n(0), n(1), n(2), n(3)}, u"RUNDLL32 SHELL32.DLL,Control_RunDLL SYSDM.CPL,,#"},
        {u"GstInternetExplorer", {n(0), n(1), n(2), n(3), n(4), n(5)}, u"rundll32.exe shell32.dll,Control_RunDLL inetcpl.cpl,,#"},
        {u"GstFichierAssociation", {Variant(u""), Variant(u"C:\\a b.txt")}, u"rundll32.exe shell32.dll,OpenAs_RunDLL #"},
        {u"OuvrirPortionDocument", {Variant(u"C:\\a b.shs")}, u"rundll32.exe shscrap.dll,OpenScrap_RunDLL /r /x #"},
        {u"CreationRaccourci_Fenetre", {Variant(u"C:\\a b")}, u"rundll32.exe AppWiz.Cpl,NewLinkHere #"},
        {u"GstMailFax", none, u"rundll32.exe shell32.dll,Control_RunDLL mlcfg32.cpl"},
        {u"GstAssistantNouveauMateriel", none, u"rundll32.exe shell32.dll,Control_RunDLL sysdm.cpl @1"},
        {u"GstModem", none, u"rundll32.exe shell32.dll,Control_RunDLL modem.cpl"},
        {u"GstReseau", none, u"rundll32.exe shell32.dll,Control_RunDLL netcpl.cpl"},
        {u"GstPassword", none, u"rundll32.exe shell32.dll,Control_RunDLL password.cpl"},
        {u"GstDate", none, u"rundll32.exe shell32.dll,Control_RunDLL timedate.cpl"},
        {u"GstMSMail", none, u"rundll32.exe shell32.dll,Control_RunDLL wgpocpl.cpl"},
        {u"CopieD7", none, u"rundll32 diskcopy.dll,DiskCopyRunDll"},
        {u"AssistantNouveauMateriel", none, u"rundll32.exe sysdm.cpl, InstallDevice_RunDLL"},
        {u"AssistantNouvelleImprimante", none, u"rundll32.exe shell32.dll,SHHelpShortcuts_RunDLL AddPrinter"},
        {u"AssistantNouvelleConnexion", none, u"rundll32.exe rnaui.dll, RnaWizard"},
        {u"CreationPorteDocument", none, u"rundll32.exe syncui.dll, Briefcase_Create"},
        {u"GstImprimante", none, u"rundll32.exe shell32.dll,SHHelpShortcuts_RunDLL PrintersFolder"},
        {u"GstFontes", none, u"rundll32.exe shell32.dll,SHHelpShortcuts_RunDLL FontsFolder"},
        {u"GstHeure", none, u"rundll32.exe shell32.dll,Control_RunDLL timedate.cpl,,/f"},
        {u"GstEnergie", none, u"rundll32.exe shell32.dll,Control_RunDLL powercfg.cpl"},
        {u"Extinction_Ordinateur", {n(1)}, u"rundll32.exe user.exe,restartwindows"},
        {u"Extinction_Ordinateur", {n(2), n(0), n(-1)}, u"rundll32.exe user.exe,exitwindows"},
        // clang-format on
    };
    return all;
}

Bstr commandWith(const Launcher& launcher, const Variant& argument) {
    const auto place = launcher.command.find(u'#');
    if (place == std::u16string_view::npos) return launcher.command;
    const auto* const number = argument.as<I2>();
    const auto text = number ? numberToText(I4{*number}) : std::u16string(*argument.as<Bstr>());
    return join(launcher.command.substr(0, place), text);
}

TEST(Launchers, SendTheirCommandsToTheLetter) {
    TestPlatform test;
    const auto object = objectOn<Cls_Windows>(test.platform);
    for (const auto& launcher : launchers()) {
        for (const auto& argument : launcher.arguments) {
            const auto command = commandWith(launcher, argument);
            EXPECT_CALL(test.services, launch(command, WindowStyle::MinimizedFocus));
            NamedCall call{launcher.member, {}, Empty()};
            if (!argument.is<Empty>()) call.arguments = {argument};
            expectCall(object, call);
        }
    }
}

TEST(Launchers, AProgramThatCannotBeStartedIsTold) {
    TestPlatform test;
    for (const auto error : {ErrorNumber::FileNotFound, ErrorNumber::InvalidCall}) {
        EXPECT_CALL(test.services, launch).WillOnce([&](auto&&...) -> R8 { raise(error); });
        EXPECT_EQ(errorOf([&] { Cls_Windows(test.platform).GstModem(); }), static_cast<I4>(error));
    }
}

}  // namespace
}  // namespace tovera::testing
