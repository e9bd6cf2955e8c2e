#include "frame/arithmetic.h"
#include "network/cls_internet.h"

namespace tovera {
namespace {

constexpr I2 attachmentOfFile = 1454;
constexpr R8 richText = 1;

/// A file is put into a rich-text item of its own; a failure costs the mail nothing but the file.
void attach(Services& services, FailuresIgnored& step, const ObjectRef& document, Bstr& attachment,
            ObjectRef& embedded) {
    const Conversions convert(services);
    const Arithmetic numbers(services);
    auto& error = step.error;
    error.clear();
    ObjectRef item;
    step([&] { item = convert.to<ObjectRef>(callMember(document, u"CREATERICHTEXTITEM", u"Attach")); });
    if (error.number != 0) return;
    bool isOther = false;
    step([&] {
        const auto order = numbers.compareToNumber(readMember(item, u"Type"), richText);
        isOther = order < 0 || order > 0;
    });
    if (isOther) {
        services.messageBox(u"Error on Notes SendMail - not Rich Text");
        return;
    }
    error.clear();
    step([&] {
        embedded = convert.to<ObjectRef>(
            callMember(item, u"EMBEDOBJECT", attachmentOfFile, u"", Reference(&attachment)));
    });
    if (error.number != 0) services.messageBox(join(u"Error sending attachment: ", error.description));
}

}  // namespace

/// Whether there is a session now, after one was made where there was none.
Variant Cls_Internet::EnsureNotesSession() {
    FailuresIgnored step;
    if (nSession_) return True;
    step.error.clear();
    step([&] { nSession_ = platform_.services.createObject(u"Notes.Notessession"); });
    if (step.error.number == 0) return True;
    nSession_ = nullptr;
    return False;
}

void Cls_Internet::EcrireEmail_LotusNotes(Bstr& EmailDest, Bstr& strSujet, Bstr& Messagetext,
                                          Bstr& Attachment, const VariantBool& AccuseMsgbox) {
    auto& services = platform_.services;
    const Conversions convert(services);
    FailuresIgnored step;
    auto& error = step.error;
    const auto show = [&](std::u16string_view what) { services.messageBox(join(what, error.description)); };
    constexpr std::u16string_view sendingFailed = u"Error on Notes SendMail: ";

    step([&] { EnsureNotesSession(); });
    error.clear();
    const auto session = nSession_;  // a call of it may bring another one
    ObjectRef database;
    step([&] {
        database = convert.to<ObjectRef>(callMember(session, u"GETDATABASE", u"", u"Mail\\user.nsf"));
    });
    step([&] { callMember(database, u"OPENMAIL"); });
    if (error.number != 0) {
        show(u"Error opening Notes mailbox: ");
        services.messageBox(u"Unable to connect to Notes mailbox ... Exiting!", messageFlags::stop);
        return;
    }
    error.clear();
    ObjectRef document;
    step([&] { document = convert.to<ObjectRef>(callMember(database, u"CREATEDOCUMENT")); });
    if (error.number != 0) return show(sendingFailed);
    const std::pair<const char16_t*, Bstr&> items[] = {
        {u"Subject", strSujet}, {u"Body", Messagetext}, {u"SendTo", EmailDest}};
    for (const auto& [name, text] : items)
        step([&, item = name, &value = text] {
            callMember(document, u"REPLACEITEMVALUE", item, Reference(&value));
        });
    if (error.number > 0) show(sendingFailed);

    ObjectRef embedded;
    if (!Attachment.empty()) attach(services, step, document, Attachment, embedded);
    error.clear();
    step([&] { callMember(document, u"SEND", False); });
    if (error.number > 0) {
        show(sendingFailed);
    } else if (AccuseMsgbox.isExactlyTrue()) {
        services.messageBox(u"Notes Sendmail OK.");
    }
}

}  // namespace tovera
