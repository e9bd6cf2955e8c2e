#include "frame/utf8.h"
#include "language/class_table.h"
#include "language/form_double.h"

namespace tovera::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

Scripted::Members named(const char16_t* name, Scripted::Members further = {}) {
    further.insert(further.begin(), {u"Name", Variant(name)});
    return further;
}

ScriptedMember failing(I4 error) {
    return {{}, error, error};
}

class FormTextsTest : public ::testing::Test {
  protected:
    FormTextsTest() {
        ON_CALL(doubles.services, createObject(::testing::Eq(u"Scripting.FileSystemObject")))
            .WillByDefault([this](std::u16string_view) { return fileSystem(answers); });
    }

    Variant save() { return traduction.Sauver_LangueFeuille(form, file); }
    Variant load() { return traduction.Charger_LangueFeuille(form, file); }
    FormDouble& formDouble() { return static_cast<FormDouble&>(*form); }

    TestPlatform doubles;
    ProfileDouble profile{doubles.kernel32};
    Scripted::Members answers;
    Cls_Traduction traduction{doubles.platform};
    ObjectRef form = makeObject<FormDouble>(named(u"Principal", {{u"Caption", Variant(u"")}}));
    Bstr file = u"C:\\langues\\fr.lng";
};

TEST_F(FormTextsTest, WritesTheTextsThatAreNotEmptyInFileOrder) {
    formDouble().add(named(u"Titre", {{u"Caption", Variant(u"Bonjour")}, {u"ToolTipText", Variant(u"")}}));
    formDouble().add(named(u"Nom", {{u"ToolTipText", Variant(u"aide")}, {u"Text", Variant(u" Jean ")}}));
    formDouble().add(named(u"Horloge", {{u"Interval", Variant(I4{1000})}}));
    formDouble().add(named(
        u"Choix", {{u"Index", Variant(I2{3})}, {u"Caption", Variant(u"Oui")}, {u"Text", Variant(I2{12})}}));
    EXPECT_EQ(save(), Variant(u""));
    EXPECT_THAT(profile.written,
                ElementsAre("Principal/Principal.Caption=", "Principal/Titre.Caption=Bonjour",
                            "Principal/Nom.Text= Jean ", "Principal/Nom.ToolTipText=aide",
                            "Principal/Choix(3).Caption=Oui", "Principal/Choix(3).Text=12"));
    EXPECT_EQ(profile.lastFile, "C:\\langues\\fr.lng");
}

TEST_F(FormTextsTest, PassesOverWhatFailsWithoutTouchingTheNextControl) {
    auto& lost = formDouble().add(named(u"Perdu", {{u"Caption", Variant(u"x")}}));
    lost.hasControlInterface = false;
    formDouble().controls.push_back(Variant(I2{5}));
    formDouble().add({{u"Caption", Variant(u"no name")}});
    formDouble().add(named(u"Nul", {{u"Caption", Variant(Null{})}, {u"Text", Variant(u"t")}}));
    auto& once = formDouble().add(named(u"Fugace", {{u"Caption", failing(57)}, {u"Text", Variant(u"u")}}));
    once[u"Caption"].value = Variant(u"read once, not twice");
    once[u"Caption"].readsBeforeError = 1;
    auto& index = formDouble().add(named(u"Tableau", {{u"Index", failing(57)}, {u"Text", Variant(u"v")}}));
    index[u"Index"].readsBeforeError = 1;
    index[u"Index"].value = Variant(I2{1});
    formDouble().add(named(u"Simple", {{u"Caption", Variant(u"w")}}));
    formDouble().controls.push_back(Variant());
    formDouble().add(named(u"Apres", {{u"Caption", Variant(u"behind the broken enumeration")}}));
    EXPECT_EQ(save(), Variant(u""));
    EXPECT_THAT(profile.written, ElementsAre("Principal/Principal.Caption=", "Principal/Nul.Text=t",
                                             "Principal/Fugace.Text=u", "Principal/Simple.Caption=w"));
}

TEST_F(FormTextsTest, EndsWithItsResultOnAFormThatIsNoneOrDoesNotEnumerate) {
    formDouble().add(named(u"Titre", {{u"Caption", Variant(u"x")}}));
    formDouble().enumerates = false;
    EXPECT_EQ(save(), Variant(u""));
    EXPECT_EQ(load(), Variant(u""));
    EXPECT_THAT(profile.written, ElementsAre("Principal/Principal.Caption="));
    form = nullptr;
    EXPECT_EQ(save(), Variant(u""));
    EXPECT_EQ(load(), Variant(u""));
    EXPECT_EQ(profile.written.size(), 1U);
}

TEST_F(FormTextsTest, IgnoresWritesThatFail) {
    formDouble().add(named(u"Titre", {{u"Caption", Variant(u"x")}}));
    EXPECT_CALL(doubles.kernel32, WritePrivateProfileStringA)
        .WillOnce([](auto&&...) -> I4 { raise(ErrorNumber::EntryPointNotFound); })
        .WillOnce(::testing::Return(0));
    EXPECT_EQ(save(), Variant(u""));
}

TEST_F(FormTextsTest, BringsTheFileNameBackThroughTheCodePage) {
    file = u"C:\\\u0416.lng";
    save();
    EXPECT_EQ(file, Bstr(u"C:\\?.lng"));
}

struct FolderCase {
    std::u16string_view title;
    Scripted::Members answers;
    std::u16string_view result;
};

TEST_F(FormTextsTest, CreatesOneLevelOfFolders) {
    const std::u16string_view tooMany = u"Trop de répertoire à créer.";
    const FolderCase cases[] = {
        {u"there", {{u"CreateFolder", failing(76)}}, u""},
        {u"missing", {{u"FolderExists", Variant(False)}}, u""},
        {u"missing twice", {{u"FolderExists", Variant(False)}, {u"CreateFolder", failing(76)}}, tooMany},
        {u"test fails", {{u"FolderExists", failing(5)}, {u"CreateFolder", failing(76)}}, tooMany},
        {u"other failure", {{u"FolderExists", Variant(False)}, {u"CreateFolder", failing(58)}}, u""},
        {u"no parent", {{u"GetParentFolderName", failing(76)}}, tooMany},
    };
    for (const auto& folder : cases) {
        answers = folder.answers;
        profile.written.clear();
        EXPECT_EQ(save(), Variant(Bstr(folder.result))) << toUtf8(folder.title);
        EXPECT_EQ(profile.written.size(), 1U) << toUtf8(folder.title);
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
    auto& name = formDouble().add(named(
        u"Nom",
        {{u"Caption", Variant(u"c")}, {u"Text", Variant(u"Jean")}, {u"ToolTipText", Variant(u"aide")}}));
    auto& choice = formDouble().add(
        named(u"Choix", {{u"Index", Variant(I2{1})}, {u"Caption", ScriptedMember(Variant(u"Oui"))}}));
    auto& stubborn = formDouble().add(
        named(u"Fixe", {{u"Caption", ScriptedMember(Variant(u"k"), 0, 57)}, {u"Text", Variant(u"t")}}));
    EXPECT_EQ(load(), Variant(u""));
    EXPECT_EQ(formDouble().text(u"Caption"), u"Main");
    EXPECT_EQ(name.text(u"Text"), u"");
    EXPECT_EQ(name.text(u"ToolTipText"), u"aide");
    EXPECT_EQ(choice.text(u"Caption"), u"Yes");
    EXPECT_EQ(stubborn.text(u"Caption"), u"k");
    EXPECT_THAT(profile.asked,
                ElementsAre("Principal/Principal.Caption", "Principal/Nom.Caption",
                            "Principal/Nom.ToolTipText", "Principal/Nom.Text", "Principal/Choix(1).Caption",
                            "Principal/Fixe.Caption", "Principal/Fixe.Text"));
}

TEST_F(FormTextsTest, TellsAMissingFileAndFallsBackOnThePresentTexts) {
    answers = {{u"FileExists", Variant(False)}};
    auto& longText = formDouble().add(named(u"Nom", {{u"Text", Variant(Bstr(std::u16string(300, u'x')))}}));
    EXPECT_EQ(load(), Variant(u"Fichier inexistant."));
    EXPECT_EQ(longText.text(u"Text"), Bstr(std::u16string(254, u'x')));
    answers = {{u"FileExists", failing(52)}};
    EXPECT_EQ(errorOf([&] { load(); }), 52);
}

TEST_F(FormTextsTest, LoadsWhatItSaved) {
    formDouble()[u"Caption"].value = Variant(u"Édition");
    auto& control = formDouble().add(named(
        u"Bouton", {{u"Index", Variant(I2{0})}, {u"Caption", Variant(u"a=b")}, {u"Text", Variant(u"t")}}));
    save();
    for (auto* object : std::initializer_list<Scripted*>{&formDouble(), &control})
        (*object)[u"Caption"].value = Variant(u"?");
    control[u"Text"].value = Variant(u"");
    load();
    EXPECT_EQ(formDouble().text(u"Caption"), u"Édition");
    EXPECT_EQ(control.text(u"Caption"), u"a=b");
    EXPECT_EQ(control.text(u"Text"), u"t");
}

}  // namespace
}  // namespace tovera::testing
