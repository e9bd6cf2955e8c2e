#include "client/form.h"

#include "client/component.h"

// The texts of a form that an application hands in, out to a file and back.
namespace tovera::client {
namespace {

std::wstring entryOf(const std::wstring& file, const wchar_t* key) {
    wchar_t text[255]{};
    GetPrivateProfileStringW(L"Principal", key, L"(none)", text, 255, file.c_str());
    return text;
}

TEST(Forms, TextsAreSavedAndLoaded) {
    Form title({{L"name", L"Titre"}, {L"Caption", L"Bonjour"}, {L"ToolTipText", L""}});
    Form choice({{L"name", L"Choix"}, {L"Index", L"1"}, {L"Caption", L"Été"}});
    Form timer(Form::Members{{L"name", L"Horloge"}});
    Form form({{L"name", L"Principal"}, {L"Caption", L"Fenêtre"}}, {&title, &choice, &timer});
    wchar_t folder[MAX_PATH]{};
    GetTempPathW(MAX_PATH, folder);
    const auto file = folder + std::wstring(L"forme.lng");
    {
        const auto translation = Component::loaded().create<Cls_Traduction, _Cls_Traduction>();
        IDispatch* reference = &form;
        Text name(file);
        Value result;
        EXPECT_EQ(translation->Sauver_LangueFeuille(&reference, name.address(), result.out()), S_OK);
        EXPECT_EQ(result, Value(L""));
        EXPECT_EQ(utf8(entryOf(file, L"Principal.Caption")), utf8(L"Fenêtre"));
        EXPECT_EQ(entryOf(file, L"Titre.Caption"), L"Bonjour");
        EXPECT_EQ(entryOf(file, L"Titre.ToolTipText"), L"(none)");
        EXPECT_EQ(utf8(entryOf(file, L"Choix(1).Caption")), utf8(L"Été"));

        WritePrivateProfileStringW(L"Principal", L"Choix(1).Caption", L"Summer", file.c_str());
        WritePrivateProfileStringW(L"Principal", L"Principal.Caption", L"", file.c_str());
        EXPECT_EQ(translation->Charger_LangueFeuille(&reference, name.address(), result.out()), S_OK);
        EXPECT_EQ(result, Value(L""));
    }
    EXPECT_EQ(choice.text(L"Caption"), L"Summer");
    EXPECT_EQ(form.text(L"Caption"), L"");
    EXPECT_EQ(title.text(L"Caption"), L"Bonjour");
    for (const auto* object : {&form, &title, &choice, &timer}) EXPECT_EQ(object->references(), 0U);
    DeleteFileW(file.c_str());
}

}  // namespace
}  // namespace tovera::client
