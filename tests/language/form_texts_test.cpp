#include "frame/utf8.h"
#include "language/class_table.h"
#include "language/form_double.h"

namespace tovera::testing {
namespace {

using ::testing::ElementsAre;

Scripted::Members named(const char16_t* name, Scripted::Members further = {}) {
    further.insert(further.begin(), {u"Name", Variant(name)});
    return further;
}

ScriptedMember failing(I4 error, int readsBefore = 0, Variant value = {}) {
    ScriptedMember member(std::move(value), error, error);
    member.readsBeforeError = readsBefore;
    return member;
}

class FormTextsTest : public ::testing::Test {
  protected:
    FormTextsTest() {
        ON_CALL(doubles.services, createObject(::testing::Eq(u"Scripting.FileSystemObject")))
            .WillByDefault([this](std::u16string_view) { return fileSystem(answers); });
    }

    Variant save() { return traduction.Sauver_LangueFeuille(object, file); }
    Variant load() { return traduction.Charger_LangueFeuille(object, file); }

    TestPlatform doubles;
    ProfileDouble profile{doubles.kernel32};
    Scripted::Members answers;
    Cls_Traduction traduction{doubles.platform};
    ObjectRef object = makeObject<Scripted>(named(u"Principal", {{u"Caption", Variant(u"")}}));
    Scripted& form = static_cast<Scripted&>(*object);
    Bstr file = u"C:\\\u0416.lng";
};

TEST_F(FormTextsTest, WritesTheTextsThatAreNotEmptyInFileOrder) {
    form.add(named(u"Titre", {{u"Caption", Variant(u"Bonjour")}, {u"ToolTipText", Variant(u"")}}));
    form.add(named(u"Nom", {{u"ToolTipText", Variant(u"aide")}, {u"Text", Variant(u" Jean ")}}));
    form.add(named(u"Horloge", {{u"Interval", Variant(I4{1000})}}));
    form.add(named(u"Choix",
                   {{u"Index", Variant(I2{3})}, {u"Caption", Variant(u"Oui")}, {u"Text", Variant(I2{12})}}));
    EXPECT_EQ(save(), Variant(u""));
    EXPECT_THAT(profile.written,
                ElementsAre("Principal/Principal.Caption=", "Principal/Titre.Caption=Bonjour",
                            "Principal/Nom.Text= Jean ", "Principal/Nom.ToolTipText=aide",
                            "Principal/Choix(3).Caption=Oui", "Principal/Choix(3).Text=12"));
    EXPECT_EQ(file, Bstr(u"C:\\?.lng")) << "back through the code page";
}

TEST_F(FormTextsTest, PassesOverWhatFailsWithoutTouchingTheNextControl) {
    form.add(named(u"Perdu", {{u"Caption", Variant(u"x")}})).isControl = false;
    form.controls.push_back(Variant(I2{5}));
    form.add({{u"Caption", Variant(u"no name")}});
    form.add(named(u"Nul", {{u"Caption", Variant(Null{})}, {u"Text", Variant(u"t")}}));
    form.add(named(u"Fugace", {{u"Caption", failing(57, 1, u"once, not twice")}, {u"Text", Variant(u"u")}}));
    form.add(named(u"Tableau", {{u"Index", failing(57, 1, I2{1})}, {u"Text", Variant(u"v")}}));
    form.add(named(u"Simple", {{u"Caption", Variant(u"w")}}));
    form.controls.push_back(Variant());
    form.add(named(u"Apres", {{u"Caption", Variant(u"behind the broken enumeration")}}));
    EXPECT_EQ(save(), Variant(u""));
    EXPECT_THAT(profile.written, ElementsAre("Principal/Principal.Caption=", "Principal/Nul.Text=t",
                                             "Principal/Fugace.Text=u", "Principal/Simple.Caption=w"));
}

TEST_F(FormTextsTest, EndsWithItsResultWhateverFails) {
    form.add(named(u"Titre", {{u"Caption", Variant(u"x")}}));
    EXPECT_CALL(doubles.kernel32, WritePrivateProfileStringA)
        .WillOnce([](auto&&...) -> I4 { raise(ErrorNumber::EntryPointNotFound); })
        .WillOnce(::testing::Return(0))
        .WillOnce(::testing::Return(1));
    EXPECT_EQ(save(), Variant(u""));
    form.enumerates = false;
    EXPECT_EQ(save(), Variant(u""));
    EXPECT_EQ(load(), Variant(u""));
    object = nullptr;
    EXPECT_EQ(save(), Variant(u""));
    EXPECT_EQ(load(), Variant(u""));
}

struct FolderCase {
    Scripted::Members answers;
    std::u16string_view result;
};

TEST_F(FormTextsTest, CreatesOneLevelOfFolders) {
    const std::u16string_view tooMany = u"Trop de répertoire à créer.";
    const FolderCase cases[] = {
        {{{u"CreateFolder", failing(76)}}, u""},
        {{{u"FolderExists", Variant(False)}}, u""},
        {{{u"FolderExists", Variant(False)}, {u"CreateFolder", failing(76)}}, tooMany},
        {{{u"FolderExists", failing(5)}, {u"CreateFolder", failing(76)}}, tooMany},
        {{{u"FolderExists", Variant(False)}, {u"CreateFolder", failing(58)}}, u""},
        {{{u"GetParentFolderName", failing(76)}}, tooMany},
    };
    for (const auto& folder : cases) {
        answers = folder.answers;
        profile.written.clear();
        EXPECT_EQ(save(), Variant(Bstr(folder.result))) << toUtf8(answers[0].first) << answers.size();
        EXPECT_EQ(profile.written.size(), 1U);
    }
}

TEST_F(FormTextsTest, SavesWithoutAFileSystemObjectButDoesNotLoad) {
    EXPECT_CALL(doubles.services, createObject).WillRepeatedly([](auto) -> ObjectRef {
        raise(ErrorNumber::CannotCreateObject);
    });
    EXPECT_EQ(save(), Variant(u""));
    EXPECT_EQ(profile.written.size(), 1U);
    EXPECT_EQ(errorOf([&] { load(); }), 429);
}

TEST_F(FormTextsTest, AssignsTextsInItsOwnOrder) {
    profile.entries = {{"Principal/Principal.Caption", "Main"},
                       {"Principal/Nom.Text", ""},
                       {"Principal/Choix(1).Caption", "Yes"},
                       {"Principal/Choix.Caption", "of a control outside the array"}};
    auto& name = form.add(named(
        u"Nom",
        {{u"Caption", Variant(u"c")}, {u"Text", Variant(u"Jean")}, {u"ToolTipText", Variant(u"aide")}}));
    auto& choice = form.add(named(u"Choix", {{u"Index", Variant(I2{1})}, {u"Caption", Variant(u"Oui")}}));
    form.add(named(u"Fixe", {{u"Caption", ScriptedMember(Variant(u"k"), 0, 57)}, {u"Text", Variant(u"t")}}));
    EXPECT_EQ(load(), Variant(u""));
    EXPECT_EQ(form.text(u"Caption"), u"Main");
    EXPECT_EQ(name.text(u"Text"), u"");
    EXPECT_EQ(name.text(u"ToolTipText"), u"aide");
    EXPECT_EQ(choice.text(u"Caption"), u"Yes");
    EXPECT_THAT(profile.asked,
                ElementsAre("Principal/Principal.Caption", "Principal/Nom.Caption",
                            "Principal/Nom.ToolTipText", "Principal/Nom.Text", "Principal/Choix(1).Caption",
                            "Principal/Fixe.Caption", "Principal/Fixe.Text"));
}

TEST_F(FormTextsTest, TellsAMissingFileAndFallsBackOnThePresentTexts) {
    answers = {{u"FileExists", Variant(False)}};
    auto& longText = form.add(named(u"Nom", {{u"Text", Variant(Bstr(std::u16string(300, u'x')))}}));
    EXPECT_EQ(load(), Variant(u"Fichier inexistant."));
    EXPECT_EQ(longText.text(u"Text"), Bstr(std::u16string(254, u'x')));
    EXPECT_EQ(file, Bstr(u"C:\\\u0416.lng")) << "read by value";
    answers = {{u"FileExists", failing(52)}};
    EXPECT_EQ(errorOf([&] { load(); }), 52);
}

}  // namespace
}  // namespace tovera::testing
