#include "platform/linux/profile_text.h"

#include <gtest/gtest.h>

#include "platform/linux/profile_encoding.h"

namespace tovera::testing {
namespace {

std::string changed(std::string_view text, const std::optional<ProfileEdit>& edit) {
    return edit ? std::string(text).replace(edit->position, edit->length, edit->replacement)
                : std::string(text);
}

constexpr std::string_view none = "(none)";

std::string_view valueIn(std::string_view text, std::string_view section, std::string_view key) {
    ProfileSearch search(section, key);
    search.goesOnAfter(text);
    return search.value().value_or(none);
}

TEST(ProfileText, ReadsEntries) {
    const struct {
        std::string_view text, section, key, value;
    } rows[] = {
        {"[s]\r\nk=v\r\n", "s", "k", "v"},
        {"[S]\nK=v", " s ", "\tk ", "v"},
        {"[s]\rk=v\r", "s", "k", "v"},
        {"  [ s ] ; rest\r\n \t k \t = \t v w \x1A\r\n", "s", "k", "v w"},
        {"[Caf\xC9]\n\xE9t\xE9=\x80", "caf\xE9", "\xC9T\xC9", "\x80"},
        {"[s]\nk=1\nK=2\n[s]\nk=3", "s", "k", "1"},
        {"[s]\n[s]\nk=3", "s", "k", none},
        {"[s]\nk\nk=2", "s", "k", none},
        {"[s]\nk=", "s", "k", ""},
        {"[s]\nk==a=b", "s", "k", "=a=b"},
        {"[s]\na=b=c", "s", "a=b", none},
        {"[s]\nkk=1\nk=2", "s", "k", "2"},
        {"[s]\nk=\"a\"", "s", "k", "\"a\""},
        {"[s]\n;k=1", "s", "k", none},
        {"[a]b]\nk=v", "a]b", "k", "v"},
        {"[s\nk=v", "s", "k", none},
        {"[s]\n[t\n=1\nk=v", "s", "k", "v"},
        {"k=v\n[s]\nk=w", "", "k", "v"},
        {"[s]\n=v", "s", "", "v"},
        {"", "s", "k", none},
        {"[s]\r\na=a line of more than sixteen bytes\r\nb=another one of them\rk=v\n", "s", "k", "v"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(valueIn(row.text, row.section, row.key), row.value);
    }
}

TEST(ProfileText, DropsOnePairOfQuotes) {
    const std::pair<std::string_view, std::string_view> rows[] = {
        {"\"a\"", "a"},   {"'a'", "a"},       {"\"a", "\"a"}, {"a\"", "a\""},
        {"\"a'", "\"a'"}, {"\"", "\""},       {"\"\"", ""},   {"\" a \"", " a "},
        {"", ""},         {"\"'a'\"", "'a'"}, {"aba", "aba"}, {"\"a\"b\"", "a\"b"},
    };
    for (const auto& [value, expected] : rows) EXPECT_EQ(withoutQuotes(value), expected);
}

TEST(ProfileText, ListsSectionsAndKeys) {
    using namespace std::string_literals;
    constexpr std::string_view text =
        "a=1\n[s]\nb = 1\r\n;c=2\nd\n\n=e\nF=\nb=2\n[ t u ]\ng=1\n[]\nh=1\n[S]\ni=1\n";
    EXPECT_EQ(profileSections(text), "s\0t u\0S\0"s);
    EXPECT_EQ(profileKeys(text, "S"), "b\0F\0b\0"s);
    EXPECT_EQ(profileKeys(text, "T U"), "g\0"s);
    EXPECT_EQ(profileKeys(text, ""), "a\0"s);
    EXPECT_EQ(profileKeys(text, "x"), "");
}

TEST(ProfileText, ChangesOnePlace) {
    const struct {
        std::string_view before, section, key, value, after;
    } rows[] = {
        {"", "s", "k", "v", "[s]\r\nk=v\r\n"},
        {"[s]\r\nk=v\r\n", "S", "K", "w", "[s]\r\nk=w\r\n"},
        {"; c\n[s] x\n Key \t= \told  \n\nz=1\n", "s", "KEY", "new", "; c\n[s] x\n Key \t= \tnew  \n\nz=1\n"},
        {"[s]\nk=\n", "s", "k", "  v ", "[s]\nk=v \n"},
        {"[s]\nk \n", "s", "k", "v", "[s]\nk=v \n"},
        {"[s]\nk=v\n", "s", "k", " v", "[s]\nk=v\n"},
        {"[s]\na=1\n\n\n[t]\nb=2\n", "s", "k", "v", "[s]\na=1\nk=v\n\n\n[t]\nb=2\n"},
        {"[s]\n;c\n\x1A", "s", "k", "v", "[s]\n;c\nk=v\n\x1A"},
        {"[s]\na=1", "s", "k", "v", "[s]\na=1\nk=v\n"},
        {"[r]\n[s]", "s", "k", "v", "[r]\n[s]\nk=v\n"},
        {"[r]\ra=1", "s", "k", "v", "[r]\ra=1\r[s]\rk=v\r"},
        {"x\n\n[s]\n", "", "k", "v", "x\nk=v\n\n[s]\n"},
        {{"a\0b", 3}, " s ", " k ", "v", {"a\0b\r\n[s]\r\nk=v\r\n", 15}},
        {"[s]\nk=1\nk=2\n", "s", "k", "3", "[s]\nk=3\nk=2\n"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.before);
        const auto edit = editToSet(row.before, row.section, row.key, row.value);
        EXPECT_EQ(edit.has_value(), row.before != row.after);
        EXPECT_EQ(changed(row.before, edit), row.after);
    }
}

TEST(ProfileText, RemovesEntriesAndSections) {
    constexpr std::string_view text = "[r]\r\n;c\r\nk=1\r\nK=2\r\n\r\n[s]\r\nk=3\r\n[R]\r\nk=4";
    EXPECT_EQ(changed(text, editToRemove(text, "R", "k")),
              "[r]\r\n;c\r\nK=2\r\n\r\n[s]\r\nk=3\r\n[R]\r\nk=4");
    EXPECT_EQ(changed(text, editToRemoveSection(text, " r")), "[s]\r\nk=3\r\n[R]\r\nk=4");
    EXPECT_EQ(changed("a=1\n[s]\n", editToRemoveSection("a=1\n[s]\n", "s")), "a=1\n");
    EXPECT_FALSE(editToRemove(text, "s", "x") || editToRemove(text, "x", "k"));
    EXPECT_FALSE(editToRemoveSection(text, "x"));
}

TEST(ProfileText, UnicodeFilesStayUnicode) {
    using namespace std::string_literals;
    const struct {
        std::string before, after;
    } rows[] = {
        {"\xEF\xBB\xBF[\xC3\x89]\nk=\xE2\x82\xAC\xE2\x98\x83", "\xEF\xBB\xBF[\xC3\x89]\nk=\xC3\xA8"},
        {"\xFF\xFE[\0\xC9\0]\0\n\0k\0=\0\xAC\x20\x03\x26"s, "\xFF\xFE[\0\xC9\0]\0\n\0k\0=\0\xE8\0"s},
        {"\xFE\xFF\0[\0\xC9\0]\0\n\0k\0=\x20\xAC\x26\x03"s, "\xFE\xFF\0[\0\xC9\0]\0\n\0k\0=\0\xE8"s},
    };
    for (const auto& row : rows) {
        const ProfileContent content(row.before);
        EXPECT_EQ(valueIn(content.ansi(), "\xE9", "K"), "\x80?");
        EXPECT_EQ(content.with(*editToSet(content.ansi(), "\xE9", "k", "\xE8")), row.after);
    }
    // What can't be written back as it was is left alone.
    for (const auto& bytes : {"\xEF\xBB\xBF[s]\nk=\xFF"s, "\xFF\xFE[\0s\0]\0\n"s}) {
        const ProfileContent content(bytes);
        EXPECT_FALSE(content.with(*editToSet(content.ansi(), "s", "k", "v")));
    }
}

}  // namespace
}  // namespace tovera::testing
