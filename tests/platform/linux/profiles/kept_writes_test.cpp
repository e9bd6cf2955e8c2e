#include <gtest/gtest.h>
#include <sys/inotify.h>

#include "frame/utf8.h"
#include "language/cls_traduction.h"
#include "platform/linux/files/file_descriptor.h"
#include "platform/profiles.h"
#include "support/scripted_object.h"
#include "support/user_home.h"

namespace tovera::testing {
namespace {

using namespace std::string_literals;

struct KeptWrites : UserHome {
    struct Write {
        const char* section;
        const char* key;
        const char* value;
    };
    static AnsiText ansi(const char* text) { return text ? AnsiText{text} : AnsiText{{}, true}; }
    void write(const Write& of) {
        EXPECT_EQ(profiles->WritePrivateProfileStringA(ansi(of.section), ansi(of.key), ansi(of.value), file),
                  1);
    }

    std::unique_ptr<Profiles> profiles = homeProfiles().keepingWrites();
    AnsiText file{"C:\\a.ini"};
};

TEST_F(KeptWrites, AreMadeTogetherAtTheEnd) {
    const std::tuple<std::string, std::vector<Write>, std::string> rows[] = {
        {"", {{"s", "a", "1"}, {"t", "b", "2"}, {"S", "c", "3"}}, "[s]\r\na=1\r\nc=3\r\n[t]\r\nb=2\r\n"},
        {"", {{"", "a", "1"}}, "a=1\r\n"},
        {"[s]\na=1",
         {{"s", "b", "2"}, {"t", "c", "3"}, {"u", "d", "4"}},
         "[s]\na=1\nb=2\n[t]\nc=3\n[u]\nd=4\n"},
        {"[s]\na=", {{"t", "c", "3"}, {"s", "a", "1"}}, "[s]\na=1\n[t]\nc=3\n"},
        {"[s]\na=", {{"s", "b", "2"}, {"s", "A", "1"}}, "[s]\na=1\nb=2\n"},
        {"[s]\na=1\nb=2\n\n[t]\n", {{"s", "b", nullptr}, {"s", "c", " 3"}}, "[s]\na=1\nc=3\n\n[t]\n"},
        {"[s]\na=1\nb=2\n", {{"s", "a", "3"}, {"s", "a", "4"}, {"s", "b", "2"}}, "[s]\na=4\nb=2\n"},
        {"[s]\na=1\na=2\n", {{"s", "a", nullptr}, {"s", "a", "3"}}, "[s]\na=3\n"},
        {"[s]\na=1\n", {{"s", "a", "2"}, {"s", "a", nullptr}}, "[s]\n"},
        {"[s]\na=1\n", {{"s", "x=y", "1"}, {"s", "x=y", "2"}}, "[s]\na=1\nx=y=1\nx=y=2\n"},
        {"[s]\n[s]\na=1\n", {{"s", "a", "2"}}, "[s]\na=2\n[s]\na=1\n"},
        {"[s]\na=1\n[t]\nb=2\n", {{"s", "c", "3"}, {"s", nullptr, nullptr}, {"t", "b", "4"}}, "[t]\nb=4\n"},
        {"\xEF\xBB\xBF[s]\nk=\xE2\x98\x83\n",
         {{"s", "\xE9", "\xE8"}, {"s", "a", "1"}},
         "\xEF\xBB\xBF[s]\nk=\xE2\x98\x83\n\xC3\xA9=\xC3\xA8\na=1\n"}};
    for (const auto& [before, writes, after] : rows) {
        files.makeFile("a.ini", before);
        profiles = homeProfiles().keepingWrites();
        for (const auto& of : writes) write(of);
        profiles.reset();
        EXPECT_EQ(files.textOf("a.ini"), after);
    }
}

TEST_F(KeptWrites, AreSeenByAReadAndAddedToWhatOthersWroteMeanwhile) {
    write({"s", "a", "1"});
    write({"s", "b", "2"});
    EXPECT_NE(homeProfiles().WritePrivateProfileStringA({"s"}, {"c"}, {"3"}, file), 0);
    EXPECT_EQ(files.textOf("a.ini"), "[s]\r\nc=3\r\n");
    AnsiText buffer{"###"};
    EXPECT_EQ(profiles->GetPrivateProfileStringA({"s"}, {"b"}, {"d"}, buffer, file), 1);
    EXPECT_EQ(files.textOf("a.ini"), "[s]\r\nc=3\r\na=1\r\nb=2\r\n");
    file = {"C:\\none\\a.ini"};
    write({"s", "a", "1"});
    profiles.reset();
    EXPECT_FALSE(std::filesystem::exists(files.onC("none")));
}

/// A control that looks at the language file whenever it is asked for a text.
struct Onlooker final : Counted<> {
    explicit Onlooker(std::string looksAt) : file(std::move(looksAt)) {}
    std::optional<MemberId> memberNamed(std::u16string_view name) override {
        return name == u"name" ? 0 : name == u"Text" ? 1 : std::optional<MemberId>();
    }
    ReturnCode invoke(MemberId member, CallKind, std::span<Variant>, Variant& result,
                      ErrorRecord&) noexcept override {
        result = member == 0 ? Variant(u"Champ") : Variant(u"texte");
        seen.insert(contentOf(file));
        return ReturnCode::Success;
    }
    ObjectRef query(const InterfaceId&) override { return ObjectRef(this); }
    std::string file;
    std::set<std::string> seen;
};

TEST_F(KeptWrites, OfAFormReplaceItsFileOnce) {
    const auto form =
        makeObject<Scripted>(Scripted::Members{{u"Name", Variant(u"F")}, {u"Caption", Variant(u"c")}});
    auto& controls = static_cast<Scripted&>(*form).controls;
    std::string expected = "[F]\r\nold=1\r\nF.Caption=c\r\n";
    for (int i = 0; i < 20; ++i) {
        const Bstr name = u"N" + fromUtf8(std::to_string(i));
        static_cast<Scripted&>(*form).add({{u"Name", Variant(name)}, {u"Caption", Variant(u"x")}});
        expected += toUtf8(name) + ".Caption=x\r\n";
    }
    files.makeFile("f.lng", "[F]\r\nold=1\r\n");
    const auto onlooker = makeObject<Onlooker>(files.onC("f.lng"));
    controls.emplace_back(onlooker);

    const FileDescriptor watch(inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
    ASSERT_GE(inotify_add_watch(watch.get(), files.onC("").c_str(), IN_MOVED_TO), 0);
    Bstr file = u"C:\\f.lng";
    Cls_Traduction(platform).Sauver_LangueFeuille(form, file);
    std::array<char, 4096> events{};
    int replaced = 0;
    for (auto left = read(watch.get(), events.data(), events.size()), at = ssize_t{0}; at < left;) {
        const auto* const event = reinterpret_cast<const inotify_event*>(events.data() + at);
        if (event->len > 0 && std::string(event->name) == "f.lng") ++replaced;
        at += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
    }
    EXPECT_EQ(replaced, 1);
    EXPECT_EQ(files.textOf("f.lng"), expected + "Champ.Text=texte\r\n");
    EXPECT_EQ(static_cast<Onlooker&>(*onlooker).seen, std::set<std::string>{"[F]\r\nold=1\r\n"});
}

}  // namespace
}  // namespace tovera::testing
