#include "language/class_table.h"
#include "language/form_double.h"
#include "support/named_calls.h"

namespace tovera::testing {
namespace {

class MessageTableTest : public ::testing::Test {
  protected:
    MessageTableTest() {
        ON_CALL(doubles.services, createObject).WillByDefault([](auto) { return fileSystem({}); });
    }
    void save(StringArray& messages) { traduction.Sauver_TousLesMessages(messages, file); }
    void load(StringArray& messages) { traduction.Charger_TousLesMessages(file, messages); }

    TestPlatform doubles;
    ProfileDouble profile{doubles.kernel32};
    Cls_Traduction traduction{doubles.platform};
    Bstr file = u"fr.lng";
};

TEST_F(MessageTableTest, WritesElementsFrom1ToTheUpperBound) {
    const struct {
        StringArray messages;
        std::vector<std::string> written;
    } tables[] = {
        {StringArray::of({u"a", u"", Bstr()}, 1), {"MSG/MSG1=a", "MSG/MSG2=", "MSG/MSG3 null"}},
        {StringArray::of({u"zero", u"one"}, 0), {"MSG/MSG1=one"}},
        {StringArray::of({u"three", u"four"}, 3), {"MSG/MSG3=three", "MSG/MSG4=four"}},
        {StringArray::of({u"a", u"b"}, -2), {}},
        {StringArray::of({u"fixed"}, 1).fixed(), {"MSG/MSG1=fixed"}},
        {StringArray(), {}},
        {StringArray::of({u"last", u"", u""}, 32767),
         {"MSG/MSG32767=last", "MSG/MSG32767=last", "MSG/MSG32767=last"}},
    };
    for (auto [messages, written] : tables) {
        profile.written.clear();
        save(messages);
        EXPECT_EQ(profile.written, written);
    }
    auto messages = StringArray::of({u"\u0416\u00e9", Bstr()}, 1);
    save(messages);
    EXPECT_EQ(messages, StringArray::of({u"?\u00e9", Bstr()}, 1)) << "back through the code page";
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

TEST_F(MessageTableTest, ReadsUpToTheFirstEmptyMessageAndAddsAnElementForIt) {
    const struct {
        std::map<std::string, std::string> entries;
        StringArray before, after;
    } tables[] = {
        {{{"MSG/MSG1", "a"}, {"MSG/MSG2", "b"}}, {}, StringArray::of({u"a", u"b", Bstr()}, 1)},
        {{{"MSG/MSG1", "a"}, {"MSG/MSG2", ""}, {"MSG/MSG3", "c"}}, {}, StringArray::of({u"a", Bstr()}, 1)},
        {{}, {}, StringArray::of({Bstr()}, 1)},
        {{}, StringArray::of({u"kept", u"gone"}, 1), StringArray::of({u"kept"}, 1)},
        {{}, StringArray::of({u"zero", u"kept", u"gone"}, 0), StringArray::of({u"kept"}, 1)},
        {{}, StringArray::of({u"three"}, 3), StringArray::of({Bstr()}, 1)},
    };
    for (const auto& table : tables) {
        profile.entries = table.entries;
        auto messages = table.before;
        load(messages);
        EXPECT_EQ(messages, table.after);
    }
}

TEST_F(MessageTableTest, RaisesWhatEndsALoad) {
    auto fixed = StringArray::of({u"a"}, 1).fixed();
    EXPECT_EQ(errorOf([&] { load(fixed); }), 10);
    for (int i = 1; i <= 32767; ++i) profile.entries["MSG/MSG" + std::to_string(i)] = "x";
    StringArray messages;
    EXPECT_EQ(errorOf([&] { load(messages); }), 6);
    EXPECT_EQ(messages.upperBound(), 32767);
}

TEST_F(MessageTableTest, CallsEveryMemberByName) {
    profile.entries = {{"MSG/MSG-1", "minus"}, {"MSG/MSG300", std::string(300, 'x')}};
    const auto form = makeObject<Scripted>(Scripted::Members{{u"name", Variant(u"F")}});
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
