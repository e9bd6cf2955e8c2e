#include <filesystem>
#include <fstream>
#include <iterator>

#include "client/invocation.h"
#include "client/notes.h"
#include "client/recorder.h"
#include "client/web_server.h"

// What the class sends, opens and fetches, on the system's own entry points.
namespace tovera::client {
namespace {

std::string contentOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Gives a key of the classes its default value.
void registerClass(const std::wstring& name, const std::wstring& value) {
    HKEY key = nullptr;
    RegCreateKeyW(HKEY_LOCAL_MACHINE, (L"Software\\Classes\\" + name).c_str(), &key);
    RegSetValueExW(key, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()),
                   static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
    RegCloseKey(key);
}

TEST(Internet, OpensDraftsAndUrlsByTheirPrograms) {
    const Recorder recorder;
    ASSERT_TRUE(recorder.standsFor(L"rundll32"));
    const auto program = L'"' + (std::filesystem::current_path() / "rundll32.exe").wstring() + L"\" \"%1\"";
    registerClass(L".eml", L"tovmail");
    registerClass(L"tovmail\\shell\\open\\command", program);
    registerClass(L"http\\shell\\open\\command", program);
    const auto internet = Component::loaded().create<Cls_Internet, IDispatch>();
    const auto draft = std::filesystem::path(Component::loaded().file()).parent_path() / "temp.eml";
    expectResult(internet.get(), L"EcrireEmail_OutlookExpress",
                 {L"de", L"à", L"", L"", L"sujet", short{3}, L"texte"}, Value::truth(true));
    auto lines = recorder.take(1);
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_NE(lines[0].find("\\temp.eml"), std::string::npos) << lines[0];
    EXPECT_EQ(
        contentOf(draft),
        "From: <de>\r\nTo: \"\xE0\"\r\nSubject: sujet\r\nX-Priority: 3 \r\nX-Unsent: 1\r\n\r\ntexte\r\n");
    std::filesystem::remove(draft);
    expectResult(internet.get(), L"ExecuterURL", {L"http://h/a?b=c", 0}, {});
    lines = recorder.take(1);
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_NE(lines[0].find("http://h/a?b=c"), std::string::npos) << lines[0];
}

TEST(Internet, DownloadsIntoAFile) {
    const WebServer server("HTTP/1.1 200 OK\r\nConnection: close\r\nContent-Length: 7\r\n\r\nbonjour");
    std::filesystem::create_directories(L"C:\\client");
    const auto internet = Component::loaded().create<Cls_Internet, IDispatch>();
    expectResult(internet.get(), L"TelechargeFichier", {server.url(L"/f"), L"C:\\client\\reçu.txt"},
                 Value::truth(true));
    EXPECT_EQ(contentOf(L"C:\\client\\reçu.txt"), "bonjour");
    EXPECT_EQ(server.request().substr(0, 7), "GET /f ");
    expectResult(internet.get(), L"TelechargeFichier", {L"http://127.0.0.1:1/", L"C:\\client\\rien.txt"},
                 Value::truth(false));
}

TEST(Internet, MailThroughANotesSessionOfTheHost) {
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
