#include "client/invocation.h"
#include "client/notes.h"

// Mail through objects of a client's own.
namespace tovera::client {
namespace {

TEST(Mail, ThroughANotesSessionOfTheHost) {
    Notes notes;
    const auto internet = Component::loaded().create<Cls_Internet, IDispatch>();
    const auto send = [&](const wchar_t* attachment) {
        expectResult(internet.get(), L"EcrireEmail_LotusNotes",
                     {L"à", L"sujet", L"texte", attachment, Value::truth(false)}, {});
    };
    invoke(internet.get(), L"NSession", {notes.value()}, DISPATCH_PROPERTYPUTREF);
    send(L"C:\\f");
    EXPECT_EQ(notes.calls(), (std::vector<std::wstring>{
                                 L"GETDATABASE <> <Mail\\user.nsf>", L"OPENMAIL", L"CREATEDOCUMENT",
                                 L"REPLACEITEMVALUE <Subject> <sujet>&", L"REPLACEITEMVALUE <Body> <texte>&",
                                 L"REPLACEITEMVALUE <SendTo> <à>&", L"CREATERICHTEXTITEM <Attach>", L"Type",
                                 L"EMBEDOBJECT <1454> <> <C:\\f>&", L"SEND <0>"}));
    EXPECT_EQ(notes.references(), 1U) << "all but the session's are given back";
    notes.failing = L"CREATERICHTEXTITEM";
    send(L"C:\\f");
    EXPECT_EQ(notes.calls().size(), 18U) << "the mail goes out without its file, and nothing is told";
    invoke(internet.get(), L"NSession", {Value::of(VT_DISPATCH)}, DISPATCH_PROPERTYPUTREF);
    EXPECT_EQ(notes.references(), 0U);
}

}  // namespace
}  // namespace tovera::client
