#include "network/cls_internet.h"
#include "network/printed_number.h"
#include "platform/opening.h"

namespace tovera {
namespace {

constexpr I4 shownNormally = 1;

}  // namespace

std::unique_ptr<OutputFile> Cls_Internet::OpenDraftFile(const Bstr& path) {
    return platform_.call(&SequentialOutput::openForOutput, path);
}

void Cls_Internet::OpenWithShell(const Bstr& verb, const Bstr& file, const Bstr& parameters,
                                 const Bstr& folder, I4 show) {
    const I4 desktop = platform_.call(&Opening::GetDesktopWindow);
    platform_.call(&Opening::ShellExecuteA, desktop, verb, file, parameters, folder, show);
}

void Cls_Internet::EcrireEmail_OutlookExpress(const Bstr& MsgFrom, const Bstr& MsgTo, const Bstr& MsgCC,
                                              const Bstr& MsgBCC, const Bstr& MsgSubject,
                                              const I2& MsgPriority, const Bstr& MsgMessage,
                                              Result<VariantBool>& opened) {
    const auto path = join(platform_.services.facts().folder, u"\\temp.eml");
    auto file = OpenDraftFile(path);
    const auto print = [&](std::u16string_view line) { file->printLine(platform_.services.toAnsi(line)); };
    const auto printAddress = [&](std::u16string_view label, const Bstr& address) {
        if (!address.empty()) print(join(label, u"\"", address, u"\""));
    };
    print(join(u"From: <", MsgFrom, u">"));
    if (MsgTo.empty()) return;
    printAddress(u"To: ", MsgTo);
    printAddress(u"CC: ", MsgCC);
    printAddress(u"BCC: ", MsgBCC);
    print(join(u"Subject: ", MsgSubject));
    print(join(u"X-Priority:", printedNumber(MsgPriority), u" "));
    print(u"X-Unsent: 1");
    print(u"");
    print(MsgMessage);
    file->close();
    opened = True;
    OpenWithShell(u"Open", path, {}, {}, shownNormally);
}

void Cls_Internet::ExecuterURL(Bstr& strURL, const I4& hwnd) {
    const auto folder = platform_.services.facts().folder;
    platform_.call(&Opening::ShellExecuteA, hwnd, Bstr(u"Open"), strURL, Bstr(u""), folder, shownNormally);
}

}  // namespace tovera
