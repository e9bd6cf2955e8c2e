#include <map>
#include <optional>
#include <set>

#include "client/form.h"
#include "client/invocation.h"
#include "client/library.h"
#include "client/notes.h"
#include "client/recorder.h"

// Every member of every class once by slot and once by name, with the same result. The steps build on each
// other: what one writes, the next one reads.
namespace tovera::client {
namespace {

struct Step {
    std::string member;  ///< "get Name", "put Name" and "set Name" for a property
    std::vector<Value> arguments;
    std::optional<Value> result;  ///< none where the machine decides: then the same both times
    long error = 0;               ///< the number of the Automation error that it raises
};

struct StepsOfClass {
    std::string interfaceName;
    std::vector<Step> steps;
};

const std::vector<StepsOfClass>& allSteps() {
    const wchar_t* const key = L"HKEY_CURRENT_USER\\Software\\TOVERA client";
    const wchar_t* const file = L"C:\\client\\profil long.ini";
    const wchar_t* const other = L"C:\\client\\autre.ini";
    static Notes notes;
    const std::wstring bytes(L"a\0é", 3);
    static Form owner(Form::Members{{L"hwnd", L"0"}});
    const auto form = Value::object(owner.dispatch());
    static const std::vector<StepsOfClass> all{
        // clang-format off
        {"_Cls_Conversion", {
            {"put IntituleMonnaie", {L"euro"}, {}}, {"put IntitulePetiteMonnaie", {L"centime"}, {}},
            {"get IntituleMonnaie", {}, L"euro"}, {"get IntitulePetiteMonnaie", {}, L"centime"},
            {"Ctrl_SaiseNombre", {L"1 234,50"}, L"1234,50"}, {"ConvertirOemAnsi", {L"t", L"######"}, short{1}},
            {"ConvertirNombreEnLettre", {80.01, Value::truth(true)}, L"quatre-vingts euros et un centime"}}},
        {"_Cls_Windows", {
            {"Wait", {0}, {}}, {"GstAffichage", {short{0}}, {}}, {"GstDivers", {short{1}}, {}},
            {"GstProg", {short{1}}, {}}, {"GstParamRegion", {short{0}}, {}}, {"GstJoystick", {short{0}}, {}},
            {"GstPrincipal", {short{0}}, {}}, {"GstMailFax", {}, {}}, {"GstMultimedia", {short{0}}, {}},
            {"GstSysteme", {short{0}}, {}}, {"GstInternetExplorer", {short{0}}, {}},
            {"GstAssistantNouveauMateriel", {}, {}}, {"GstModem", {}, {}}, {"GstReseau", {}, {}},
            {"GstPassword", {}, {}}, {"GstDate", {}, {}}, {"GstMSMail", {}, {}},
            {"GstFichierAssociation", {L"C:\\x"}, {}}, {"CopieD7", {}, {}},
            {"CreationRaccourci_Fenetre", {L"C:\\client"}, {}}, {"AssistantNouveauMateriel", {}, {}},
            {"AssistantNouvelleImprimante", {}, {}}, {"AssistantNouvelleConnexion", {}, {}},
            {"OuvrirPortionDocument", {L"C:\\x.shs"}, {}}, {"CreationPorteDocument", {}, {}},
            {"GstImprimante", {}, {}}, {"GstFontes", {}, {}}, {"GstHeure", {}, {}}, {"GstEnergie", {}, {}},
            {"Extinction_Ordinateur", {short{2}}, {}}, {"getWindowsVersion", {}, L""},
            {"EcritAjoutDansFichier", {L"C:\\client\\journal.txt", L"été"}, {}},
            {"ExecuteFichier", {L"C:\\client\\aucun.txt"}, L"Fichier non trouvé"},
            {"TrouveExecutable", {L"C:\\client\\aucun.txt"}, L""},
            {"LancerActiverApplication", {L"aucune fenêtre", L""}, short{0}},
            {"GetNomFichier_DuChemin", {L"C:\\été.txt", Value::truth(true)}, L"été.txt"},
            {"GET_ExtentionFichier", {L"C:\\x.été"}, L".ÉTÉ"},
            {"GET_NomFichier", {L"C:\\a\\x.txt", short{15}}, L"C:\\a\\x.TXT"},
            {"Effacer_FichierDossier", {L"C:\\client\\aucun.txt"}, {}},
            {"GET_DossierSpecial", {36}, L"C:\\windows\\"}, {"GET_DossierWindows", {}, L"C:\\windows"},
            {"GET_DossierSysteme", {}, L"C:\\windows\\system32"},
            {"GetActiveWindowTitle", {Value::truth(true)}, L""}, {"Get_ActiveWindow", {Value::truth(true)}, std::nullopt},
            {"Get_WindowTitle", {0}, L""}, {"Cacher_BarreDesTaches", {}, {}}, {"Montrer_BarreDesTaches", {}, {}},
            {"ModeDeveloppement", {}, Value::truth(false)}, {"ParcourirDossier", {form, L"Où ?"}, L""},
            {"CreationRaccourci", {L"Lien", L"C:\\x.exe", L"", L"C:\\client"}, {}}}},
        {"_Cls_Date", {
            {"Paques", {L"2002"}, Value::date(37346)}, {"DateFRtoUS", {L"25/12/2002"}, L"12/25/2002"},
            {"DateUStoFR", {L"12/25/2002"}, L"25/12/2002"}, {"SecondeEnHeure", {90000}, L"25:00:00"},
            {"HeureEnSeconde", {Value::date(37346.5)}, 43200}, {"Chrono", {82800, 3600}, 7200},
            {"NBJoursOuvrablesParMois", {short{2002}, short{2}}, short{20}},
            {"NBJoursOuvrables", {Value::date(37382), Value::date(37386)}, short{5}}}},
        {"_Cls_Math", {
            {"MesurePrincipale", {10.0}, -2.56F}, {"Hypothenuse", {0, short{0}, 3.0F, L"4"}, 5.0},
            {"InverseCosinus", {1}, 0.0F}, {"InverseSinus", {0.5}, 0.5338F}, {"AngleTrigo", {1, 0, 0, 0}, 0.0F}}},
        {"_Cls_InitREG", {
            {"CreerREG_Cle", {key}, {}},
            {"EcrireREG_DWORD", {key, L"nombre", -5}, {}}, {"LireREG_DWORD", {key, L"nombre"}, -5},
            {"EcrireREG_STRING", {key, L"texte", L"été"}, {}}, {"LireREG_STRING", {key, L"texte"}, L"été"},
            {"EcrireREG_BINARY", {key, L"octets", bytes}, {}}, {"LireREG_BINARY", {key, L"octets"}, bytes},
            {"EcritureREG_Software_RepInstall", {L"TOVERA client", L"C:\\Appli"},
             L"Ecriture dans HKEY_CURRENT_USER\\Software\\TOVERA client"},
            {"EffaceREG_CLE", {key}, {}}, {"LireREG_STRING", {key, L"texte"}, L"Error"},
            {"LireREG_ClePrincipale", {L"HKEY_USERS"}, -2147483645},
            {"ErrorMsg", {1014}, L"Code d'Erreur indefini:   1014"}}},
        {"_Cls_Traduction", {{"Sauver_LangueFeuille", {Value::of(VT_DISPATCH), file}, L""}}},
        {"_Cls_InitREG", {
            {"IniEcrire", {L"Été", L"Clé", L"été", file}, 1}, {"IniLire", {L"Été", L"Clé", L"", file}, L"été"},
            {"IniLire", {L"Été", L"x", std::wstring(300, L'x'), file}, std::wstring(254, L'x')},
            {"WinIniEcrire", {L"TOVERA client", L"Clé", L"été"}, 1},
            {"WinIniLire", {L"TOVERA client", L"Clé", L""}, L"été"},
            {"RetourneCheminWindows", {}, L"C:\\windows"}, {"RetourneCheminSystem", {}, L"C:\\windows\\system32"},
            {"FichierExiste", {file}, Value::truth(true)}, {"DossierExiste", {file}, Value::truth(false)},
            {"GET_NomCourt", {L"C:\\windows"}, L"C:\\windows"}, {"GET_NomLong", {file}, file}}},
        {"_Cls_Traduction", {
            {"Sauver_TousLesMessages", {Value::texts({L"un", L"été"}), file}, {}},
            {"Charger_LeMessage", {file, short{2}}, L"été"},
            {"Charger_TousLesMessages", {file, Value::texts({})}, {}},
            {"Charger_LangueFeuille", {Value::of(VT_DISPATCH), file}, L""}}},
        {"_Cls_InitREG", {
            {"RenommerFichier", {file, other}, Value::truth(true)},
            {"RenommerFichier", {file, other}, Value::truth(false)},
            {"RenommerFichier", {other, other}, Value::truth(false)},
            {"RenommerFichier", {other, L"C:\\windows\\win.ini"}, Value::truth(false)},
            {"RenommerFichier", {other, file}, Value::truth(true)}}},
        {"_Cls_SQL", {
            {"RepAPOS", {L"l'été"}, L"l''été"},
            {"Creer_ODBC_Access", {L"C:\\aucune.mdb", L"Base"}, L"Fichier inexistant."},
            {"Creer_ODBC_Access", {L"C:\\windows\\win.ini", L"Base"}, L"MDAC non installé."}}},
        {"_Cls_Cryptage", {
            {"put InBuffer", {L"Bonjour le monde"}, {}}, {"get InBuffer", {}, L"Bonjour le monde"},
            {"put Password", {L"secret"}, {}}, {"get Password", {}, L"secret"},
            {"Encrypt", {}, {}}, {"get Status", {}, 1},
            {"get OutBuffer", {}, L"M\u00A5\f\u0090h\u00AFP\u0160d\x1E" L"2\x1E\x0F\u00B9_\x7F"},
            {"put InBuffer", {L"M\u00A5\f\u0090h\u00AFP\u0160d\x1E" L"2\x1E\x0F\u00B9_\x7F"}, {}},
            {"Decrypt", {}, {}}, {"get OutBuffer", {}, L"Bonjour le monde"},
            {"put Signature", {L"non"}, {}}, {"get Signature", {}, L"non"},
            {"Validate", {}, {}}, {"get Status", {}, 1},
            {"Sign", {}, {}}, {"Validate", {}, {}}, {"get Status", {}, 2}}},
        {"_Cls_SourisClv", {
            {"SourisMasquer", {}, {}}, {"SourisAfficher", {}, {}}, {"SourisPositionner", {short{3}, short{4}}, {}},
            {"SourisPosition", {1, 2}, std::nullopt}, {"SourisBoutonInverser", {}, {}},
            {"SourisBoutonOrigine", {}, {}}, {"SourisNbsBouton", {}, short{3}},
            {"SourisDelaiDoubleClique", {}, 500}, {"ChangerEtat_Touche", {20}, {}},
            {"LireEtat_Shift", {}, std::nullopt}, {"LireEtat_NumLock", {}, std::nullopt},
            {"ChangerEtat_Touche", {256}, {}, 9}, {"ChangerEtat_Touche", {20}, {}}}},
        {"_Cls_Multimedia", {
            {"FermerCD", {}, {}}, {"OuvrirCD", {}, {}}, {"JouerUnWav", {L"C:\\aucun.wav"}, {}},
            {"OuvrirMP3", {L"C:\\aucun.mp3", Value::truth(true)}, {}},
            {"JouerMP3", {}, {}}, {"PauseMP3", {}, {}}, {"StopMP3", {}, {}},
            {"FrequenceFichierWAV", {L"C:\\client\\vide.wav"}, short{0}},
            {"TypePeripherique", {L"C"}, 3}, {"EstDisqueDur", {L"C"}, Value::truth(true)},
            {"EstCDROM", {L"C"}, Value::truth(false)}, {"EstDisqueReseau", {L"C"}, Value::truth(false)},
            {"EstDisquette", {L"C"}, Value::truth(false)}, {"ReglageVolume", {Value::truth(true)}, {}, 53},
            {"CarteSonPresente", {}, std::nullopt}, {"NoSerieDisque", {L"C"}, std::nullopt},
            {"ResolutionEcranX", {}, std::nullopt}, {"ResolutionEcranY", {}, std::nullopt}}},
        {"_Cls_Internet", {
            {"get NSession", {}, Value::of(VT_DISPATCH)}, {"set NSession", {notes.value()}, {}},
            {"get NSession", {}, notes.value()},
            {"EcrireEmail_LotusNotes", {L"à", L"sujet", L"texte", L"", Value::truth(false)}, {}},
            {"set NSession", {Value::of(VT_DISPATCH)}, {}},
            {"EcrireEmail_OutlookExpress", {L"de", L"", L"", L"", L"", short{3}, L""}, Value::truth(false)},
            {"GetIPFromHostName", {L"poste-de-test"}, L"127.0.0.7"},
            {"GetHostNameFromIP", {L"127.0.0.7"}, L"poste-de-test"},
            {"GetIPHostName", {}, std::nullopt}, {"GetIPAddress", {}, std::nullopt},
            {"GetMACAddress", {}, std::nullopt}, {"GetUserName", {}, std::nullopt},
            {"GetDNSServers", {L"", Value::texts({})}, std::nullopt},
            {"TelechargeFichier", {L"rien:", L"C:\\client\\rien"}, Value::truth(false)},
            {"ExecuterURL", {L"C:\\client\\aucun", 0}, {}},
            {"PartageRep", {L"", L"C:\\client", L"nom", L"", L""}, 50}}},
        // clang-format on
    };
    return all;
}

/// The name by which a member is called, and the way of calling it.
std::pair<std::wstring, INVOKEKIND> calledAs(const std::string& step) {
    const auto name = step.substr(step.find(' ') + 1);
    const auto kind = step.starts_with("get ")   ? INVOKE_PROPERTYGET
                      : step.starts_with("put ") ? INVOKE_PROPERTYPUT
                      : step.starts_with("set ") ? INVOKE_PROPERTYPUTREF
                                                 : INVOKE_FUNC;
    return {{name.begin(), name.end()}, kind};
}

bool hasTray() {
    for (wchar_t root[] = L"A:\\"; root[0] <= L'Z'; ++root[0])
        if (GetDriveTypeW(root) == DRIVE_CDROM) return true;
    return false;
}

TEST(Members, BySlotAndByName) {
    ASSERT_FALSE(hasTray()) << "a real tray would move";
    const Library library;
    std::map<std::string, std::pair<Pointer<IDispatch>, Pointer<ITypeInfo>>> classes;
    std::set<std::tuple<std::string, std::wstring, INVOKEKIND>> published, called;
    for (unsigned i = 0; i < publishedNames.size(); ++i) {
        const auto info = library.at(i + 1);
        if (!info || !publishedNames[i].starts_with("_")) continue;
        const auto classId = attributesOf(library.at(i + 2).get()).guid;
        const auto slots = dualSide(info.get());
        classes[publishedNames[i]] = {Component::loaded().create<IDispatch>(classId), slots};
        for (const auto& [name, help, kind, parameters, result] : membersOf(slots.get()))
            published.insert({publishedNames[i], {name.begin(), name.end()}, kind});
    }
    std::map<std::string, Value> bySlots;  // what the machine decides
    for (const bool bySlot : {true, false}) {
        const Recorder recorder;
        ASSERT_TRUE(recorder.standsFor(L"rundll32"));
        for (const auto& [interfaceName, steps] : allSteps()) {
            const auto& [object, slots] = classes.at(interfaceName);
            for (const auto& [step, values, result, error] : steps) {
                const auto [name, kind] = calledAs(step);
                called.insert({interfaceName, name, kind});
                auto variables = values;
                std::vector<Argument> arguments;
                for (auto& variable : variables)
                    arguments.push_back(bySlot ? variable.referred(variable.type()) : variable);
                const auto call = invoke(object.get(), name, arguments, static_cast<WORD>(kind),
                                         bySlot ? slots.get() : nullptr);
                SCOPED_TRACE(step + (bySlot ? " by slot" : " by name"));
                EXPECT_EQ(call.status, error == 0 ? S_OK : DISP_E_EXCEPTION);
                EXPECT_EQ(call.code & 0xFFFF, error);
                if (error != 0) continue;
                EXPECT_EQ(call.result, result ? *result : bySlots.emplace(step, call.result).first->second);
            }
        }
    }
    EXPECT_EQ(called, published);
    DeleteFileW((Component::loaded().file() + L"\\..\\temp.eml").c_str());
    for (const auto* step : {"GetIPAddress", "GetIPHostName", "GetMACAddress", "GetUserName"})
        EXPECT_NE(bySlots[step].text(), L"") << step;
}

}  // namespace
}  // namespace tovera::client
