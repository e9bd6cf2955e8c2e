#include "client/form.h"

#include "client/component.h"

// The texts of a form that an application hands in, out to a file and back.
namespace tovera::client {
namespace {

/// A control that says yes to any identifier of an interface.
struct Agreeing : Form {
    using Form::Form;
    STDMETHODIMP QueryInterface(REFIID, void** found) override {
        *found = dispatch();
        return AddRef(), S_OK;
    }
};

TEST(Forms, TextsAreSavedAndLoaded) {
    Form title(
        {{L"name", L"Titre"}, {L"Index", Form::raising}, {L"Caption", L"Bonjour"}, {L"Text", Form::nowhere}});
    Form choice({{L"name", L"Choix"}, {L"Index", L"1"}, {L"Caption", L"Été"}});
    Agreeing timer(Form::Members{{L"name", L"Horloge"}});
    Form form({{L"name", L"Principal"}, {L"Caption", L"Fenêtre"}}, {&title, &choice, &timer});
    const wchar_t* const file = L"C:\\forme.lng";
    {
        const auto translation = Component::loaded().create<Cls_Traduction, _Cls_Traduction>();
        IDispatch* reference = form.dispatch();
        Value name = file;
        Value result;
        EXPECT_EQ(translation->Sauver_LangueFeuille(&reference, name.textAddress(), result.out()), S_OK);
        EXPECT_EQ(result, Value(L""));
        char section[99]{};
        const auto length = GetPrivateProfileSectionA("Principal", section, sizeof section, "C:\\forme.lng");
        constexpr char expected[] =
            "Principal.Caption=Fen\xEAtre\0Titre.Caption=Bonjour\0Choix(1).Caption=\xC9t\xE9";
        EXPECT_EQ(std::string(section, length), std::string(expected, sizeof expected));
        WritePrivateProfileStringW(L"Principal", L"Choix(1).Caption", L"Summer", file);
        WritePrivateProfileStringW(L"Principal", L"Principal.Caption", L"", file);
        EXPECT_EQ(translation->Charger_LangueFeuille(&reference, name.textAddress(), result.out()), S_OK);
        EXPECT_EQ(result, Value(L""));
    }
    EXPECT_EQ(choice.text(L"Caption"), L"Summer");
    EXPECT_EQ(form.text(L"Caption"), L"");
    EXPECT_EQ(title.text(L"Caption"), L"Bonjour");
    for (const Form* object : {&form, &title, &choice, static_cast<Form*>(&timer)})
        EXPECT_EQ(object->references(), 0U);
}

}  // namespace
}  // namespace tovera::client
