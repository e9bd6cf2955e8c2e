#include <gtest/gtest.h>
#include <map>

#include "frame/utf8.h"
#include "network/class_table.h"
#include "support/test_platform.h"

namespace tovera::testing {
namespace {

/// What a member of the Notes objects does: gives a value, or fails with a code.
struct Answer {
    Variant value;
    ReturnCode code = ReturnCode::Success;
};

/// All the Notes objects in one: it notes each call, and hands itself out.
class Notes final : public Counted<> {
  public:
    std::optional<MemberId> memberNamed(std::u16string_view name) override {
        names_.emplace_back(name);
        return static_cast<MemberId>(names_.size()) - 1;
    }
    ReturnCode invoke(MemberId member, CallKind, std::span<Variant> arguments, Variant& result,
                      ErrorRecord& failure) noexcept override {
        const auto name = toUtf8(names_.at(static_cast<std::size_t>(member)));
        auto call = name;
        for (auto& argument : arguments) call += ' ' + shown(argument);
        calls.push_back(call);
        const auto found = answers.find(answers.contains(call) ? call : name);
        if (found == answers.end()) {
            if (name != "Type") result = ObjectRef(this);
            if (name == "Type") result = I4{1};
            return ReturnCode::Success;
        }
        result = found->second.value;
        failure.code = found->second.code;
        failure.description = join(u"panne de ", fromUtf8(name));
        return found->second.code;
    }

    std::map<std::string, Answer> answers;
    std::vector<std::string> calls;

  private:
    static std::string shown(Variant& value) {
        if (const auto* text = value.as<Bstr>()) return '<' + toUtf8(*text) + '>';
        if (const auto* truth = value.as<VariantBool>()) return truth->raw == 0 ? "False" : "True";
        if (const auto* number = value.as<I2>()) return std::to_string(*number);
        if (!value.is<Reference>()) return "?";
        auto& text = **std::get_if<Bstr*>(value.as<Reference>());
        return "&<" + toUtf8(std::exchange(text, u"lu")) + '>';
    }
    std::vector<std::u16string> names_;
};

struct NotesCase {
    std::map<std::string, Answer> answers;
    const char16_t* attachment;
    I2 acknowledged;
    std::vector<ShownBox> boxes;
    std::size_t calls;
};

Answer fails(I4 number) {
    return {{}, codeOf(number)};
}
ShownBox box(const char16_t* text, I4 flags = 0) {
    return {text, flags, u"HoldDLL"};
}

struct NotesMail : ::testing::Test {
    TestPlatform test;
    ObjectRef notes = makeObject<Notes>();
    Cls_Internet object{test.platform};

    Notes& script() { return static_cast<Notes&>(*notes); }
    void send(const char16_t* attachment, I2 acknowledged) {
        Bstr to = u"dest", subject = u"sujet", text = u"texte", file = attachment;
        object.EcrireEmail_LotusNotes(to, subject, text, file, VariantBool::ofBits(acknowledged));
    }
    auto& boxes() { return test.services.boxes; }
};

TEST_F(NotesMail, StepsInTheirOrder) {
    object.setNSession(notes);
    Bstr to = u"dest", subject = u"sujet", text = u"texte", file = u"C:\\f";
    object.EcrireEmail_LotusNotes(to, subject, text, file, True);
    EXPECT_EQ(script().calls, (std::vector<std::string>{
                                  "GETDATABASE <> <Mail\\user.nsf>", "OPENMAIL", "CREATEDOCUMENT",
                                  "REPLACEITEMVALUE <Subject> &<sujet>", "REPLACEITEMVALUE <Body> &<texte>",
                                  "REPLACEITEMVALUE <SendTo> &<dest>", "CREATERICHTEXTITEM <Attach>", "Type",
                                  "EMBEDOBJECT 1454 <> &<C:\\f>", "SEND False"}));
    EXPECT_EQ(boxes(), std::vector{box(u"Notes Sendmail OK.")});
    EXPECT_TRUE(to == u"lu" && subject == u"lu" && text == u"lu" && file == u"lu");
    EXPECT_EQ(script().references(), 2U) << "all but the session's are given back";
}

TEST_F(NotesMail, MessagesOfEachFailure) {
    const auto own = codeOf(0x1111);
    const auto negative = static_cast<ReturnCode>(static_cast<I4>(0x80040FB7U));
    const auto unable = box(u"Unable to connect to Notes mailbox ... Exiting!", 16);
    const auto ok = box(u"Notes Sendmail OK.");
    const std::string subject = "REPLACEITEMVALUE <Subject> &<sujet>";
    const Answer nothing{Variant(ObjectRef()), {}};
    const NotesCase rows[] = {
        // A database that can't be had is told by the call on it, which has no object.
        {{{"GETDATABASE", fails(500)}},
         u"",
         -1,
         {{join(u"Error opening Notes mailbox: ", descriptionOf(91)), 0, u"HoldDLL"}, unable},
         1},
        {{{"GETDATABASE", nothing}},
         u"",
         -1,
         {{join(u"Error opening Notes mailbox: ", descriptionOf(91)), 0, u"HoldDLL"}, unable},
         1},
        {{{"OPENMAIL", {{}, own}}},
         u"",
         -1,
         {box(u"Error opening Notes mailbox: panne de OPENMAIL"), unable},
         2},
        {{{"OPENMAIL", {{}, negative}}},
         u"",
         0,
         {box(u"Error opening Notes mailbox: panne de OPENMAIL"), unable},
         2},
        {{{"CREATEDOCUMENT", {{}, negative}}},
         u"",
         -1,
         {box(u"Error on Notes SendMail: panne de CREATEDOCUMENT")},
         3},
        {{{subject, {{}, own}}},
         u"",
         -1,
         {box(u"Error on Notes SendMail: panne de REPLACEITEMVALUE"), ok},
         7},
        {{{subject, {{}, negative}}}, u"", -1, {ok}, 7},
        {{{"CREATERICHTEXTITEM", {{}, own}}}, u"f", -1, {ok}, 8},
        {{{"Type", {I4{2}, {}}}}, u"f", -1, {box(u"Error on Notes SendMail - not Rich Text"), ok}, 9},
        {{{"Type", {u"1", {}}}}, u"f", -1, {ok}, 10},
        {{{"Type", {Null(), {}}}}, u"f", -1, {ok}, 10},
        {{{"Type", {{}, own}}}, u"f", -1, {ok}, 10},
        {{{"EMBEDOBJECT", {{}, negative}}},
         u"f",
         -1,
         {box(u"Error sending attachment: panne de EMBEDOBJECT"), ok},
         10},
        {{{"SEND", {{}, own}}}, u"", -1, {box(u"Error on Notes SendMail: panne de SEND")}, 7},
        {{{"SEND", {{}, negative}}}, u"", -1, {ok}, 7},
        {{}, u"", 0, {}, 7},
        {{}, u"", 1, {}, 7},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.answers.empty() ? "none" : row.answers.begin()->first);
        notes = makeObject<Notes>();
        script().answers = row.answers;
        object.setNSession(notes);
        boxes().clear();
        send(row.attachment, row.acknowledged);
        EXPECT_EQ(boxes(), row.boxes);
        EXPECT_EQ(script().calls.size(), row.calls);
        EXPECT_EQ(object.NSession(), notes) << "whatever it proves to be";
    }
}

TEST_F(NotesMail, SessionIsMadeOnceAndKept) {
    EXPECT_CALL(test.services, createObject(std::u16string_view(u"Notes.Notessession")))
        .WillOnce([](auto) -> ObjectRef { raise(ErrorNumber::CannotCreateObject); })
        .WillOnce([this](auto) { return notes; });
    EXPECT_FALSE(object.NSession());
    send(u"", -1);
    EXPECT_EQ(boxes(), (std::vector<ShownBox>{
                           {join(u"Error opening Notes mailbox: ", descriptionOf(91)), 0, u"HoldDLL"},
                           box(u"Unable to connect to Notes mailbox ... Exiting!", 16)}));
    EXPECT_FALSE(object.NSession());
    boxes().clear();
    send(u"", -1);
    send(u"", 0);
    EXPECT_EQ(boxes(), std::vector{box(u"Notes Sendmail OK.")});
    EXPECT_EQ(object.NSession(), notes);
}

TEST_F(NotesMail, SessionByName) {
    const auto internet = makeObject<ComponentObjectOf<Cls_Internet>>(test.services, test.platform);
    EXPECT_EQ(readMember(internet, u"nsession"), Variant(ObjectRef()));
    Variant given(notes);
    invokeMember(internet, u"NSession", CallKind::AssignReference, {&given, 1});
    EXPECT_EQ(readMember(internet, u"NSession"), Variant(notes));
    const auto& members = describe<Cls_Internet>().members;
    EXPECT_TRUE(members[0].published && !members[1].published && members[2].published);
    Variant text(u"x");
    EXPECT_EQ(errorOf([&] {
                  invokeMember(internet, u"NSession", CallKind::AssignReference, {&text, 1});
              }),
              13);
}

}  // namespace
}  // namespace tovera::testing
