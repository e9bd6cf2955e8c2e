#include "client/slot_log.h"

// Every slot of the classes that work on the registry, on profile files and on data sources.
namespace tovera::client {
namespace {

std::wstring temporaryFolder() {
    wchar_t folder[MAX_PATH]{};
    GetTempPathW(MAX_PATH, folder);
    return folder;
}

/// One `BSTR` variable, made anew for each call, since most come back changed.
struct Variable : Text {
    explicit Variable(const std::wstring& text) : Text(text) {}
    operator BSTR*() { return address(); }
};

TEST(BySlot, RegistryKeys) {
    const auto registry = Component::loaded().create<Cls_InitREG, _Cls_InitREG>();
    SlotLog slots(registry.get());
    const std::wstring root = L"HKEY_CURRENT_USER\\Software\\TOVERA client";
    const auto key = [&] { return Variable(root); };
    const auto entry = [](const wchar_t* name) { return Variable(name); };
    Value result;
    Text text;

    auto path = key();
    slots.reached("CreerREG_Cle", registry->CreerREG_Cle(path, result.out()));
    EXPECT_EQ(result.type(), VT_EMPTY);
    EXPECT_EQ(path.str(), L"Software\\TOVERA client");
    long number = -5;
    slots.reached("EcrireREG_DWORD",
                  registry->EcrireREG_DWORD(key(), entry(L"nombre"), &number, result.out()));
    slots.reached("LireREG_DWORD", registry->LireREG_DWORD(key(), entry(L"nombre"), result.out()));
    EXPECT_EQ(result, Value(-5));
    slots.reached("EcrireREG_STRING",
                  registry->EcrireREG_STRING(key(), entry(L"texte"), Variable(L"été"), result.out()));
    slots.reached("LireREG_STRING", registry->LireREG_STRING(key(), entry(L"texte"), result.out()));
    EXPECT_EQ(result, Value(L"été"));
    const std::wstring bytes(L"a\0é", 3);
    slots.reached("EcrireREG_BINARY",
                  registry->EcrireREG_BINARY(key(), entry(L"octets"), Variable(bytes), result.out()));
    slots.reached("LireREG_BINARY", registry->LireREG_BINARY(key(), entry(L"octets"), result.out()));
    EXPECT_EQ(result, Value(bytes));
    slots.reached("EcritureREG_Software_RepInstall",
                  registry->EcritureREG_Software_RepInstall(Variable(L"TOVERA client"),
                                                            Variable(L"C:\\Appli"), text.out()));
    EXPECT_EQ(text.str(), L"Ecriture dans HKEY_CURRENT_USER\\Software\\TOVERA client");
    slots.reached("EffaceREG_CLE", registry->EffaceREG_CLE(key(), result.out()));
    EXPECT_EQ(registry->LireREG_STRING(key(), entry(L"texte"), result.out()), S_OK);
    EXPECT_EQ(result, Value(L"Error"));
    long handle = 0;
    slots.reached("LireREG_ClePrincipale", registry->LireREG_ClePrincipale(Variable(L"HKEY_USERS"), &handle));
    EXPECT_EQ(handle, -2147483645);
    long code = 1014;
    slots.reached("ErrorMsg", registry->ErrorMsg(&code, text.out()));
    EXPECT_EQ(text.str(), L"Code d'Erreur indefini:   1014");

    const auto file = temporaryFolder() + L"profil.ini";
    long written = 0;
    slots.reached("IniEcrire", registry->IniEcrire(Variable(L"S"), Variable(L"K"), Variable(L"été"),
                                                   Variable(file), &written));
    EXPECT_NE(written, 0);
    slots.reached("IniLire", registry->IniLire(Variable(L"S"), Variable(L"K"), Variable(L""), Variable(file),
                                               text.out()));
    EXPECT_EQ(utf8(text.str()), "été");
    slots.reached("WinIniEcrire", registry->WinIniEcrire(Variable(L"TOVERA client"), Variable(L"K"),
                                                         Variable(L"v"), &written));
    slots.reached("WinIniLire", registry->WinIniLire(Variable(L"TOVERA client"), Variable(L"K"),
                                                     Variable(L""), text.out()));
    EXPECT_EQ(text.str(), L"v");
    wchar_t folder[MAX_PATH]{};
    GetSystemDirectoryW(folder, MAX_PATH);
    slots.reached("RetourneCheminSystem", registry->RetourneCheminSystem(text.out()));
    EXPECT_EQ(text.str(), folder);
    GetWindowsDirectoryW(folder, MAX_PATH);
    slots.reached("RetourneCheminWindows", registry->RetourneCheminWindows(text.out()));
    EXPECT_EQ(text.str(), folder);

    VARIANT_BOOL found = 1;
    slots.reached("FichierExiste", registry->FichierExiste(Variable(file), &found));
    EXPECT_EQ(found, VARIANT_TRUE);
    slots.reached("DossierExiste", registry->DossierExiste(Variable(file), &found));
    EXPECT_EQ(found, VARIANT_FALSE);
    const Text name(file);
    slots.reached("GET_NomCourt", registry->GET_NomCourt(name.get(), text.out()));
    const Text shortName(text.str());
    slots.reached("GET_NomLong", registry->GET_NomLong(shortName.get(), text.out()));
    EXPECT_EQ(_wcsicmp(text.str().c_str(), file.c_str()), 0) << utf8(text.str());
    const auto renamed = temporaryFolder() + L"autre.ini";
    slots.reached("RenommerFichier", registry->RenommerFichier(Variable(file), Variable(renamed), &found));
    EXPECT_EQ(found, VARIANT_TRUE);
    EXPECT_TRUE(DeleteFileW(renamed.c_str()));
}

/// An array of texts with bounds 1 to their number.
SAFEARRAY* arrayOf(std::initializer_list<std::wstring> texts) {
    SAFEARRAY* const made = SafeArrayCreateVector(VT_BSTR, 1, static_cast<ULONG>(texts.size()));
    long index = 0;
    for (const auto& text : texts) {
        ++index;
        SafeArrayPutElement(made, &index, Text(text).get());
    }
    return made;
}

TEST(BySlot, Translation) {
    const auto translation = Component::loaded().create<Cls_Traduction, _Cls_Traduction>();
    SlotLog slots(translation.get());
    const auto file = temporaryFolder() + L"langue.lng";
    SAFEARRAY* messages = arrayOf({L"un", L"été", L"trois"});
    slots.reached("Sauver_TousLesMessages", translation->Sauver_TousLesMessages(&messages, Variable(file)));
    short number = 2;
    Text text;
    const Text name(file);
    slots.reached("Charger_LeMessage", translation->Charger_LeMessage(name.get(), &number, text.out()));
    EXPECT_EQ(utf8(text.str()), "été");
    SafeArrayDestroy(messages);
    messages = arrayOf({L"autre"});
    slots.reached("Charger_TousLesMessages", translation->Charger_TousLesMessages(name.get(), &messages));
    long upper = 0;
    SafeArrayGetUBound(messages, 1, &upper);
    EXPECT_EQ(upper, 4);
    long index = 3;
    SafeArrayGetElement(messages, &index, text.out());
    EXPECT_EQ(text.str(), L"trois");
    SafeArrayDestroy(messages);
    messages = nullptr;
    EXPECT_EQ(translation->Charger_TousLesMessages(name.get(), &messages), S_OK);
    ASSERT_NE(messages, nullptr) << "an array without bounds gets them";
    SafeArrayDestroy(messages);

    // Any object may be handed in: one without the members of a form keeps its texts.
    auto form = Component::loaded().create<Cls_Date, IDispatch>();
    auto* reference = form.get();
    Value result;
    slots.reached("Sauver_LangueFeuille",
                  translation->Sauver_LangueFeuille(&reference, Variable(file), result.out()));
    EXPECT_EQ(result, Value(L""));
    reference = nullptr;
    slots.reached("Charger_LangueFeuille",
                  translation->Charger_LangueFeuille(&reference, Variable(file + L"x"), result.out()));
    EXPECT_EQ(result, Value(L"Fichier inexistant."));
    EXPECT_TRUE(DeleteFileW(file.c_str()));
}

TEST(BySlot, Database) {
    const auto sql = Component::loaded().create<Cls_SQL, _Cls_SQL>();
    SlotLog slots(sql.get());
    Text text;
    slots.reached("RepAPOS", sql->RepAPOS(Variable(L"l'été"), text.out()));
    EXPECT_EQ(utf8(text.str()), "l''été");
    Value result;
    slots.reached("Creer_ODBC_Access",
                  sql->Creer_ODBC_Access(Variable(L"C:\\aucune.mdb"), Variable(L"Base"), result.out()));
    EXPECT_EQ(result, Value(L"Fichier inexistant."));
}

}  // namespace
}  // namespace tovera::client
