#include "language/class_table.h"
#include "language/form_double.h"
#include "support/named_calls.h"

namespace tovera::testing {
namespace {

using ::testing::ElementsAre;

class MessageTableTest : public ::testing::Test {
  protected:
    MessageTableTest() {
        ON_CALL(doubles.services, createObject).WillByDefault([](std::u16string_view) {
            return fileSystem({});
        });
    }
    void save(StringArray& messages) { traduction.Sauver_TousLesMessages(messages, file); }
    StringArray loaded(StringArray messages) {
        traduction.Charger_TousLesMessages(file, messages);
        return messages;
    }

    TestPlatform doubles;
    ProfileDouble profile{doubles.kernel32};
    Cls_Traduction traduction{doubles.platform};
    Bstr file = u"fr.lng";
};

struct SavedTable {
    StringArray messages;
    std::vector<std::string> written;
};

TEST_F(MessageTableTest, WritesElementsFrom1ToTheUpperBound) {
    const SavedTable tables[] = {
        {StringArray::of({u"a", u"", Bstr()}, 1), {"MSG/MSG1=a", "MSG/MSG2=", "MSG/MSG3 null"}},
        {StringArray::of({u"zero", u"one"}, 0), {"MSG/MSG1=one"}},
        {StringArray::of({u"three", u"four"}, 3), {"MSG/MSG3=three", "MSG/MSG4=four"}},
        {StringArray::of({u"a", u"b"}, -2), {}},
        {StringArray::of({u"fixed"}, 1).fixed(), {"MSG/MSG1=fixed"}},
        {StringArray(), {}},
    };
    for (const auto& table : tables) {
        profile.written.clear();
        auto messages = table.messages;
        save(messages);
        EXPECT_EQ(profile.written, table.written);
    }
}

TEST_F(MessageTableTest, WritesTheLastNumberAgainBehind32767) {
    auto messages = StringArray::withBounds(32766, 32769);
    messages.at(32767) = u"last";
    save(messages);
    EXPECT_THAT(profile.written, ElementsAre("MSG/MSG32766 null", "MSG/MSG32767=last", "MSG/MSG32767=last",
                                             "MSG/MSG32767=last"));
}

TEST_F(MessageTableTest, BringsTheElementsBackThroughTheCodePage) {
    auto messages = StringArray::of({u"\u0416\u00e9", Bstr()}, 1);
    save(messages);
    EXPECT_EQ(messages.at(1), Bstr(u"?\u00e9"));
    EXPECT_TRUE(messages.at(2).isNull());
}

TEST_F(MessageTableTest, GivesNoResultWhateverFails) {
    EXPECT_CALL(doubles.services, createObject).WillRepeatedly([](auto) -> ObjectRef {
        raise(ErrorNumber::CannotCreateObject);
    });
    EXPECT_CALL(doubles.kernel32, WritePrivateProfileStringA).Times(2).WillRepeatedly([](auto&&...) -> I4 {
        raise(ErrorNumber::EntryPointNotFound);
    });
    auto messages = StringArray::of({u"a", u"b"}, 1);
    save(messages);
}

struct LoadedTable {
    std::map<std::string, std::string> entries;
    StringArray before;
    StringArray after;
};

TEST_F(MessageTableTest, ReadsUpToTheFirstEmptyMessageAndAddsAnElementForIt) {
    const std::map<std::string, std::string> gap{{"MSG/MSG1", "a"}, {"MSG/MSG2", ""}, {"MSG/MSG3", "c"}};
    const LoadedTable tables[] = {
        {{{"MSG/MSG1", "a"}, {"MSG/MSG2", "b"}}, {}, StringArray::of({u"a", u"b", Bstr()}, 1)},
        {gap, {}, StringArray::of({u"a", Bstr()}, 1)},
        {{}, {}, StringArray::of({Bstr()}, 1)},
        {{}, StringArray::of({u"kept", u"gone"}, 1), StringArray::of({u"kept"}, 1)},
        {{}, StringArray::of({u"zero", u"kept", u"gone"}, 0), StringArray::of({u"kept"}, 1)},
        {{}, StringArray::of({u"three"}, 3), StringArray::of({Bstr()}, 1)},
    };
    for (const auto& table : tables) {
        profile.entries = table.entries;
        EXPECT_EQ(loaded(table.before), table.after);
    }
}

TEST_F(MessageTableTest, RaisesWhatEndsALoad) {
    EXPECT_EQ(errorOf([&] { loaded(StringArray::of({u"a"}, 1).fixed()); }), 10);
    EXPECT_CALL(doubles.kernel32, GetPrivateProfileStringA)
        .WillRepeatedly([](auto&&, auto&&, auto&&, AnsiText& buffer, auto&&) -> I4 {
            buffer.bytes[0] = 'x';
            return 1;
        });
    StringArray messages;
    EXPECT_EQ(errorOf([&] { traduction.Charger_TousLesMessages(file, messages); }), 6);
    EXPECT_EQ(messages.upperBound(), 32767);
}

TEST_F(MessageTableTest, CallsEveryMemberByName) {
    profile.entries = {{"MSG/MSG-1", "minus"}, {"MSG/MSG300", std::string(300, 'x')}};
    const auto form =
        makeObject<FormDouble>(Scripted::Members{{u"name", Variant(u"F")}, {u"Caption", Variant(u"c")}});
    const auto messages = StringArray::of({u"a"}, 1);
    expectCallsOfEveryMethod<Cls_Traduction>(
        doubles.platform, {{u"Sauver_LangueFeuille", {form, Bstr(u"f")}, Variant(u"")},
                           {u"Charger_LangueFeuille", {form, Bstr(u"f")}, Variant(u"")},
                           {u"Sauver_TousLesMessages", {messages, Bstr(u"f")}, {}},
                           {u"Charger_LeMessage", {Bstr(u"f"), I2{-1}}, Variant(u"minus")},
                           {u"Charger_LeMessage", {Bstr(u"f"), Bstr(u"2")}, Variant(u"")},
                           {u"Charger_LeMessage", {Bstr(u"f"), I4{300}}, Bstr(std::u16string(254, u'x'))},
                           {u"Charger_LeMessage", {Bstr(u"f"), I4{40000}}, {}, 6},
                           {u"Charger_TousLesMessages", {Bstr(u"f"), messages}, {}}});
}

}  // namespace
}  // namespace tovera::testing
