#include <map>
#include <set>

#include "client/invocation.h"
#include "client/library.h"

// Every member of every class once by slot and once by name, with the same result. The steps build on each
// other: what one writes, the next one reads.
namespace tovera::client {
namespace {

struct Step {
    std::string interfaceName;
    std::string member;  ///< "put Name" and "get Name" for a property
    std::vector<Value> arguments;
    Value result;
};

const wchar_t* const key = L"HKEY_CURRENT_USER\\Software\\TOVERA client";
const wchar_t* const file = L"C:\\client\\profil long.ini";
const wchar_t* const other = L"C:\\client\\autre.ini";

const std::vector<Step>& steps() {
    const std::wstring bytes(L"a\0é", 3);
    static const std::vector<Step> all{
        {"_Cls_Conversion", "put IntituleMonnaie", {L"euro"}, {}},
        {"_Cls_Conversion", "put IntitulePetiteMonnaie", {L"centime"}, {}},
        {"_Cls_Conversion", "get IntituleMonnaie", {}, L"euro"},
        {"_Cls_Conversion", "get IntitulePetiteMonnaie", {}, L"centime"},
        {"_Cls_Conversion", "Ctrl_SaiseNombre", {L"1 234,50"}, L"1234,50"},
        {"_Cls_Conversion",
         "ConvertirNombreEnLettre",
         {80.01, Value::truth(true)},
         L"quatre-vingts euros et un centime"},
        {"_Cls_Conversion", "ConvertirOemAnsi", {L"t", L"######"}, short{1}},
        {"_Cls_Date", "Paques", {L"2002"}, Value::date(37346)},
        {"_Cls_Date", "DateFRtoUS", {L"25/12/2002"}, L"12/25/2002"},
        {"_Cls_Date", "DateUStoFR", {L"12/25/2002"}, L"25/12/2002"},
        {"_Cls_Date", "SecondeEnHeure", {90000}, L"25:00:00"},
        {"_Cls_Date", "HeureEnSeconde", {Value::date(37346.5)}, 43200},
        {"_Cls_Date", "Chrono", {82800, 3600}, 7200},
        {"_Cls_Date", "NBJoursOuvrablesParMois", {short{2002}, short{2}}, short{20}},
        {"_Cls_Date", "NBJoursOuvrables", {Value::date(37382), Value::date(37386)}, short{5}},
        {"_Cls_Math", "MesurePrincipale", {10}, -2.56F},
        {"_Cls_Math", "Hypothenuse", {0, short{0}, 3.0F, L"4"}, 5.0},
        {"_Cls_Math", "InverseCosinus", {1}, 0.0F},
        {"_Cls_Math", "InverseSinus", {0.5}, 0.5338F},
        {"_Cls_Math", "AngleTrigo", {1, 0, 0, 0}, 0.0F},
        {"_Cls_InitREG", "CreerREG_Cle", {key}, {}},
        {"_Cls_InitREG", "EcrireREG_DWORD", {key, L"nombre", -5}, {}},
        {"_Cls_InitREG", "LireREG_DWORD", {key, L"nombre"}, -5},
        {"_Cls_InitREG", "EcrireREG_STRING", {key, L"texte", L"été"}, {}},
        {"_Cls_InitREG", "LireREG_STRING", {key, L"texte"}, L"été"},
        {"_Cls_InitREG", "EcrireREG_BINARY", {key, L"octets", bytes}, {}},
        {"_Cls_InitREG", "LireREG_BINARY", {key, L"octets"}, bytes},
        {"_Cls_InitREG",
         "EcritureREG_Software_RepInstall",
         {L"TOVERA client", L"C:\\Appli"},
         L"Ecriture dans HKEY_CURRENT_USER\\Software\\TOVERA client"},
        {"_Cls_InitREG", "EffaceREG_CLE", {key}, {}},
        {"_Cls_InitREG", "LireREG_STRING", {key, L"texte"}, L"Error"},
        {"_Cls_InitREG", "LireREG_ClePrincipale", {L"HKEY_USERS"}, -2147483645},
        {"_Cls_InitREG", "ErrorMsg", {1014}, L"Code d'Erreur indefini:   1014"},
        {"_Cls_Traduction", "Sauver_LangueFeuille", {Value::of(VT_DISPATCH), file}, L""},
        {"_Cls_InitREG", "IniEcrire", {L"Été", L"Clé", L"été", file}, 1},
        {"_Cls_InitREG", "IniLire", {L"Été", L"Clé", L"", file}, L"été"},
        {"_Cls_InitREG", "IniLire", {L"Été", L"x", std::wstring(300, L'x'), file}, std::wstring(254, L'x')},
        {"_Cls_InitREG", "WinIniEcrire", {L"TOVERA client", L"Clé", L"été"}, 1},
        {"_Cls_InitREG", "WinIniLire", {L"TOVERA client", L"Clé", L""}, L"été"},
        {"_Cls_InitREG", "RetourneCheminWindows", {}, L"C:\\windows"},
        {"_Cls_InitREG", "RetourneCheminSystem", {}, L"C:\\windows\\system32"},
        {"_Cls_InitREG", "FichierExiste", {file}, Value::truth(true)},
        {"_Cls_InitREG", "DossierExiste", {file}, Value::truth(false)},
        {"_Cls_InitREG", "GET_NomCourt", {L"C:\\windows"}, L"C:\\windows"},
        {"_Cls_InitREG", "GET_NomLong", {file}, file},
        {"_Cls_Traduction", "Sauver_TousLesMessages", {Value::texts({L"un", L"été"}), file}, {}},
        {"_Cls_Traduction", "Charger_LeMessage", {file, short{2}}, L"été"},
        {"_Cls_Traduction", "Charger_TousLesMessages", {file, Value::texts({})}, {}},
        {"_Cls_Traduction", "Charger_LangueFeuille", {Value::of(VT_DISPATCH), file}, L""},
        {"_Cls_InitREG", "RenommerFichier", {file, other}, Value::truth(true)},
        {"_Cls_Traduction", "Charger_LangueFeuille", {Value::of(VT_DISPATCH), file}, L"Fichier inexistant."},
        {"_Cls_InitREG", "RenommerFichier", {file, other}, Value::truth(false)},
        {"_Cls_InitREG", "RenommerFichier", {other, other}, Value::truth(false)},
        {"_Cls_InitREG", "RenommerFichier", {other, L"C:\\windows\\win.ini"}, Value::truth(false)},
        {"_Cls_InitREG", "RenommerFichier", {other, file}, Value::truth(true)},
        {"_Cls_SQL", "RepAPOS", {L"l'été"}, L"l''été"},
        {"_Cls_SQL", "Creer_ODBC_Access", {L"C:\\aucune.mdb", L"Base"}, L"Fichier inexistant."},
    };
    return all;
}

std::string stepName(const Member& member) {
    return (member.kind == INVOKE_PROPERTYGET   ? "get "
            : member.kind == INVOKE_PROPERTYPUT ? "put "
                                                : "") +
           member.name;
}

/// The members of all classes, and an object of each class.
class Members : public ::testing::Test {
  protected:
    Members() {
        const Library library;
        for (unsigned i = 0; i < publishedNames.size(); ++i) {
            const auto info = library.at(i + 1);
            if (!info || !publishedNames[i].starts_with("_")) continue;
            const auto classId = attributesOf(library.at(i + 2).get()).guid;
            objects[publishedNames[i]] = Component::loaded().create<IDispatch>(classId);
            for (auto& member : membersOf(dualSide(info.get()).get()))
                members[publishedNames[i]].emplace(stepName(member), std::move(member));
        }
    }

    std::map<std::string, Pointer<IDispatch>> objects;
    std::map<std::string, std::map<std::string, Member>> members;
};

/// Calls the function at the place that the type library gives, with arguments of exactly its types.
Value callSlot(IDispatch* object, const Member& member, std::vector<Value> arguments) {
    std::vector<Value> passed;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const auto& parameter = member.parameters.at(i);
        arguments[i].become(parameter.type);
        passed.push_back(parameter.byReference ? arguments[i].referred(parameter.type) : arguments[i]);
    }
    auto result = Value::of(member.result == VT_VARIANT ? VARTYPE{VT_EMPTY} : member.result);
    if (member.result) passed.push_back(result.referred(member.result));
    std::vector<VARTYPE> types;
    std::vector<VARIANTARG*> addresses;
    for (auto& argument : passed) {
        types.push_back(argument.type());
        addresses.push_back(argument.address());
    }
    Value status;
    EXPECT_EQ(DispCallFunc(object, static_cast<ULONG_PTR>(member.offset), CC_STDCALL, VT_ERROR,
                           static_cast<UINT>(types.size()), types.data(), addresses.data(), status.address()),
              S_OK);
    EXPECT_EQ(status.get().scode, S_OK) << member.name;
    return result;
}

TEST_F(Members, BySlotAndByName) {
    std::set<std::string> called;
    for (const bool bySlot : {true, false}) {
        for (const auto& [interfaceName, name, arguments, result] : steps()) {
            const auto& member = members.at(interfaceName).at(name);
            auto* const object = objects.at(interfaceName).get();
            const std::vector<Argument> given(arguments.begin(), arguments.end());
            const std::wstring wide(member.name.begin(), member.name.end());
            const auto kind = static_cast<WORD>(member.kind);
            EXPECT_EQ(bySlot ? callSlot(object, member, arguments) : invoke(object, wide, given, kind).result,
                      result)
                << interfaceName << " " << name << (bySlot ? " by slot" : " by name");
            called.insert(interfaceName + name);
        }
    }
    for (const auto& [interfaceName, all] : members)
        for (const auto& [name, member] : all) EXPECT_TRUE(called.contains(interfaceName + name)) << name;
}

}  // namespace
}  // namespace tovera::client
