#include <gtest/gtest.h>

#include "frame/utf8.h"
#include "language/class_table.h"
#include "platform/profiles.h"
#include "support/named_calls.h"
#include "support/scripted_object.h"
#include "support/user_home.h"

namespace tovera::testing {
namespace {

struct FormTexts : UserHome {
    Variant save() { return traduction.Sauver_LangueFeuille(object, file); }
    Variant load() { return traduction.Charger_LangueFeuille(object, file); }
    Scripted& add(Bstr name, Scripted::Members further) {
        further.emplace_back(u"Name", Variant(std::move(name)));
        return form.add(std::move(further));
    }

    Cls_Traduction traduction{platform};
    ObjectRef object =
        makeObject<Scripted>(Scripted::Members{{u"Name", Variant(u"Principal")}, {u"Caption", Variant(u"")}});
    Scripted& form = static_cast<Scripted&>(*object);
    Bstr file = u"C:\\\u0416.lng";
    const Bstr fileInAnsi = u"C:\\J.lng";
};

TEST_F(FormTexts, AreWrittenInFileOrderUnlessEmpty) {
    add(u"Titre", {{u"Caption", Variant(u"Bonjour")}, {u"ToolTipText", Variant(u"")}});
    add(u"Nom", {{u"ToolTipText", Variant(u"aide")}, {u"Text", Variant(u"Jean  P")}});
    add(u"Horloge", {{u"Interval", Variant(I4{1000})}});
    add(u"Choix", {{u"Index", Variant(I2{3})}, {u"Caption", Variant(u"Oui")}, {u"Text", Variant(I2{12})}});
    EXPECT_EQ(save(), Variant(u""));
    EXPECT_EQ(files.textOf("J.lng"),
              "[Principal]\r\nPrincipal.Caption=\r\nTitre.Caption=Bonjour\r\nNom.Text=Jean  P\r\n"
              "Nom.ToolTipText=aide\r\nChoix(3).Caption=Oui\r\nChoix(3).Text=12\r\n");
    EXPECT_EQ(file, fileInAnsi) << "back through the code page";
}

TEST_F(FormTexts, WhatFailsIsPassedOverWithoutTouchingTheNextControl) {
    add(u"Perdu", {{u"Caption", Variant(u"x")}}).isControl = false;
    form.controls.push_back(Variant(I2{5}));
    form.add({{u"Caption", Variant(u"no name")}});
    add(u"Nul", {{u"Caption", Variant(Null{})}, {u"Text", Variant(u"t")}});
    add(u"Fugace", {{u"Caption", {57, 1, u"once, not twice"}}, {u"Text", Variant(u"u")}});
    add(u"Tableau", {{u"Index", {57, 1, I2{1}}}, {u"Text", Variant(u"v")}});
    add(u"Simple", {{u"Caption", Variant(u"w")}});
    form.controls.push_back(Variant());
    add(u"Apres", {{u"Caption", Variant(u"behind the broken enumeration")}});
    EXPECT_EQ(save(), Variant(u""));
    EXPECT_EQ(files.textOf("J.lng"),
              "[Principal]\r\nPrincipal.Caption=\r\nNul.Text=t\r\nFugace.Text=u\r\nSimple.Caption=w\r\n");
    object = nullptr;
    EXPECT_EQ(save(), Variant(u""));
    EXPECT_EQ(load(), Variant(u""));
}

TEST_F(FormTexts, OneLevelOfFoldersIsCreated) {
    files.makeFile("file");
    const std::u16string_view tooMany = u"Trop de répertoire à créer.";
    const std::pair<Bstr, std::u16string_view> rows[] = {
        {u"C:\\neuf\\a", u""},
        {u"C:\\neuf\\b", u""},
        {u"C:\\neuf\\x\\y\\a", tooMany},
        {u"C:\\file\\a", u""},  // a file stands there, which isn't told
        {u"C:\\file\\x\\a", tooMany}};
    for (const auto& [path, message] : rows) {
        file = path;
        EXPECT_EQ(save(), Variant(Bstr(message))) << toUtf8(path);
    }
    EXPECT_EQ(files.textOf("neuf/b"), "[Principal]\r\nPrincipal.Caption=\r\n");
    EXPECT_FALSE(std::filesystem::exists(files.onC("neuf/x")));
}

TEST_F(FormTexts, AreSavedWithoutAFileSystemObjectButNotLoaded) {
    const auto refuse = [](auto) -> ObjectRef { raise(ErrorNumber::CannotCreateObject); };
    const Scripted::Members troubled{{u"FileExists", {52}},
                                     {u"GetParentFolderName", Variant(u"C:\\")},
                                     {u"FolderExists", Variant(True)},
                                     {u"CreateFolder", {76}}};
    EXPECT_CALL(services, createObject).WillOnce(refuse).WillOnce(refuse).WillRepeatedly([&](auto) {
        return makeObject<Scripted>(troubled);
    });
    EXPECT_EQ(save(), Variant(u""));
    EXPECT_EQ(files.textOf("J.lng"), "[Principal]\r\nPrincipal.Caption=\r\n");
    EXPECT_EQ(errorOf([&] { load(); }), 429);
    EXPECT_EQ(errorOf([&] { load(); }), 52);
    EXPECT_EQ(save(), Variant(u"")) << "a folder that is there was created";
}

TEST_F(FormTexts, AreAssignedInAnOrderOfTheirOwn) {
    files.makeFile("fr.lng",
                   "[Principal]\nPrincipal.Caption=Main\nNom.Text=\nChoix(1).Caption=Yes\n"
                   "Choix.Caption=of a control outside the array\n");
    file = u"C:\\fr.lng";
    const auto& name = add(u"Nom", {{u"Caption", Variant(u"c")},
                                    {u"Text", Variant(u"Jean")},
                                    {u"ToolTipText", Variant(Bstr(std::u16string(300, u'x')))}});
    const auto& choice = add(u"Choix", {{u"Index", Variant(I2{1})}, {u"Caption", Variant(u"Oui")}});
    const auto& fixed = add(u"Fixe", {{u"Caption", {57, 9, u"k"}}, {u"Text", Variant(u"t")}});
    EXPECT_EQ(load(), Variant(u""));
    const auto longest = join(u"ToolTipText=", Bstr(std::u16string(254, u'x')));
    EXPECT_EQ(form.assigned, std::vector<Bstr>{u"Caption=Main"});
    EXPECT_EQ(name.assigned, (std::vector<Bstr>{u"Caption=c", longest, u"Text="}));
    EXPECT_EQ(choice.assigned, std::vector<Bstr>{u"Caption=Yes"});
    EXPECT_EQ(fixed.assigned, std::vector<Bstr>{u"Text=t"});
    file = u"C:\\\u0416.lng";
    EXPECT_EQ(load(), Variant(u"Fichier inexistant."));
    EXPECT_EQ(file, Bstr(u"C:\\\u0416.lng")) << "read by value";
}

struct MessageTable : UserHome {
    void save(StringArray& messages) { traduction.Sauver_TousLesMessages(messages, file); }
    void load(StringArray& messages) { traduction.Charger_TousLesMessages(file, messages); }

    Cls_Traduction traduction{platform};
    Bstr file = u"C:\\neuf\\fr.lng";
};

TEST_F(MessageTable, ElementsFrom1ToTheUpperBoundAreWritten) {
    auto never = StringArray::withBounds(-32768, 32769);
    never.at(-32768) = u"a number that the count must not come round to";
    const std::pair<StringArray, std::string> tables[] = {
        {StringArray::of({u"a", u"", u"c"}, 1), "MSG1=a\r\nMSG2=\r\nMSG3=c\r\n"},
        {StringArray::of({u"zero", u"one"}, 0), "MSG1=one\r\nMSG2=\r\nMSG3=c\r\n"},
        {StringArray::of({u"two", Bstr()}, 2), "MSG1=one\r\nMSG2=two\r\n"},
        {StringArray::of({u"a", u"b"}, -2), "MSG1=one\r\nMSG2=two\r\n"},
        {StringArray::of({u"fixed"}, 1).fixed(), "MSG1=fixed\r\nMSG2=two\r\n"},
        {StringArray(), "MSG1=fixed\r\nMSG2=two\r\n"},
        {never, ""}};
    for (auto [messages, written] : tables) {
        save(messages);
        EXPECT_EQ(files.textOf("neuf/fr.lng"), "[MSG]\r\n" + written);
    }
    auto messages = StringArray::of({u"\u0416\u00e9", Bstr()}, 1);
    save(messages);
    EXPECT_EQ(messages, StringArray::of({u"J\u00e9", Bstr()}, 1)) << "back through the code page";
    EXPECT_TRUE(messages.at(2).isNull());

    TestPlatform failing;  // whatever fails, there is no result
    Cls_Traduction(failing.platform).Sauver_TousLesMessages(messages, file);
}

TEST_F(MessageTable, ReadsUpToTheFirstEmptyMessageAndAddsAnElementForIt) {
    const std::tuple<std::string, StringArray, StringArray> tables[] = {
        {"MSG1=a\nMSG2=b\n", {}, StringArray::of({u"a", u"b", Bstr()}, 1)},
        {"MSG1=a\nMSG2=\nMSG3=c\n", {}, StringArray::of({u"a", Bstr()}, 1)},
        {"", StringArray::of({u"kept", u"gone"}, 1), StringArray::of({u"kept"}, 1)},
        {"", StringArray::of({u"zero", u"kept", u"gone"}, 0), StringArray::of({u"kept"}, 1)},
        {"", StringArray::of({u"three"}, 3), StringArray::of({Bstr()}, 1)}};
    for (auto [entries, messages, after] : tables) {
        files.makeFile("neuf/fr.lng", "[MSG]\n" + entries);
        load(messages);
        EXPECT_EQ(messages, after);
    }
}

TEST_F(MessageTable, RaisesWhatEndsALoad) {
    struct Endless : Profiles {
        I4 GetPrivateProfileStringA(const AnsiText&, const AnsiText&, const AnsiText&, AnsiText&,
                                    const AnsiText&) override {
            return 1;
        }
    } endless;
    auto ours = platform.with(endless);
    StringArray messages;
    EXPECT_EQ(errorOf([&] { Cls_Traduction(ours).Charger_TousLesMessages(file, messages); }), 6);
    EXPECT_EQ(messages.upperBound(), 32767);
    auto fixed = StringArray::of({u"a"}, 1).fixed();
    EXPECT_EQ(errorOf([&] { load(fixed); }), 10);
}

TEST_F(MessageTable, CallsEveryMemberByName) {
    files.makeFile("neuf/fr.lng", "[MSG]\nMSG-1=minus\nMSG300=" + std::string(300, 'x'));
    const Variant form = makeObject<Scripted>(Scripted::Members{{u"name", Variant(u"F")}});
    const auto messages = StringArray::of({u"a"}, 1);
    expectCallsOfEveryMethod<Cls_Traduction>(
        platform,
        {gives(u"", u"Sauver_LangueFeuille", form, file), gives(u"", u"Charger_LangueFeuille", form, file),
         gives(Empty(), u"Sauver_TousLesMessages", messages, file),
         gives(u"minus", u"Charger_LeMessage", file, I2{-1}), gives(u"", u"Charger_LeMessage", file, u"2"),
         gives(Bstr(std::u16string(254, u'x')), u"Charger_LeMessage", file, I4{300}),
         fails(6, u"Charger_LeMessage", file, I4{40000}),
         gives(Empty(), u"Charger_TousLesMessages", file, messages)});
}

}  // namespace
}  // namespace tovera::testing
