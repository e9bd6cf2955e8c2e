#include <limits>

#include "frame/component.h"
#include "frame/utf8.h"
#include "support/test_platform.h"

namespace tovera::testing {
namespace {

TEST(Text, NullReadsAsEmpty) {
    Bstr null;
    EXPECT_TRUE(null.isNull());
    EXPECT_FALSE(Bstr(u"").isNull());
    EXPECT_EQ(null, Bstr(u""));
    EXPECT_NE(Bstr(u"é"), Bstr(u"É"));
    EXPECT_EQ(join(null, Bstr(u"a"), u"b"), u"ab");
    EXPECT_FALSE(Bstr(null.view()).isNull());
    EXPECT_EQ(left(u"abc", 5), u"abc");
    EXPECT_EQ(right(u"abc", 2), u"bc");
    EXPECT_EQ(right(u"abc", 9), u"abc");
    EXPECT_EQ(trimBlanks(u"  a\t "), u"a\t");
    EXPECT_EQ(trimBlanks(u"   "), u"");
    EXPECT_EQ(beforeNul(std::u16string_view(u"ab\0c", 4)), u"ab");
    FixedText<4> fixed;
    EXPECT_EQ(fixed.view(), u"    ");
    EXPECT_EQ((fixed = u"ab").view(), u"ab  ");
    EXPECT_EQ((fixed = u"abcdef").view(), u"abcd");
}

TEST(Text, CrossesToAnEntryPointAndBack) {
    TestServices services;
    const StringCrossing crossing(services);
    Bstr both = u"é\u20AC";
    const Bstr kept = u"\u20AC";
    Bstr null;
    FixedText<4> buffer(u'\0');
    const auto status = crossing.call(
        [](AnsiText& a, AnsiText& b, AnsiText& c, AnsiText& d) {
            EXPECT_EQ(a.bytes, "\xE9?");
            EXPECT_EQ(b.terminated(), "?");
            EXPECT_EQ(c.addressOrNull(), nullptr);
            d.bytes.replace(0, 2, std::string("x\0", 2));
            return 5;
        },
        both, kept, null, buffer.buffer());
    EXPECT_EQ(status, 5);
    EXPECT_EQ(both, u"é?");
    EXPECT_EQ(kept, u"\u20AC");
    EXPECT_TRUE(null.isNull());
    EXPECT_EQ(buffer.view(), std::u16string_view(u"x\0\0\0", 4));

    const auto failing = [](AnsiText& text) -> I4 {
        text.bytes = "lost";
        raise(ErrorNumber::EntryPointNotFound);
    };
    EXPECT_EQ(errorOf([&] { crossing.call(failing, both); }), 453);
    EXPECT_EQ(both, u"é?");
}

TEST(Text, Utf8) {
    const struct {
        std::string_view bytes;
        std::u16string_view text;
    } exact[] = {
        {"", u""},
        {"a\u00E9\u20AC", u"a\u00E9\u20AC"},
        {"\U0001F600", u"\U0001F600"},
        {"\U0010FFFF", u"\U0010FFFF"},
        {std::string_view("\0", 1), std::u16string_view(u"\0", 1)},
    };
    for (const auto& row : exact) {
        EXPECT_EQ(fromUtf8(row.bytes), row.text);
        EXPECT_EQ(toUtf8(row.text), row.bytes);
    }
    const struct {
        std::string_view bytes;
        std::u16string_view text;
    } broken[] = {
        // clang-format off
        {"\xC3", u"\uFFFD"}, {"\xC3(", u"\uFFFD("}, {"\xC0\x80", u"\uFFFD\uFFFD"},
        {"\xE0\x80\x80", u"\uFFFD\uFFFD\uFFFD"}, {"\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},
        {"\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"}, {"\xFF", u"\uFFFD"},
        // clang-format on
        {"\x80"
         "a",
         u"\uFFFDa"},
        {"\xE2\x82", u"\uFFFD\uFFFD"},
    };
    for (const auto& row : broken) EXPECT_EQ(fromUtf8(row.bytes), row.text);
    const char16_t lone[] = {0xD83D, u'a', 0xDE00, 0xD83D};
    EXPECT_EQ(toUtf8({lone, 4}), "\uFFFDa\uFFFD\uFFFD");
}

TEST(StringArrays, BoundsAndResizing) {
    StringArray array;
    EXPECT_EQ(errorOf([&] { array.upperBound(); }), 9);
    EXPECT_EQ(errorOf([&] { array.at(0); }), 9);
    array.redim(-1, 1);
    array.at(-1) = u"a";
    array.at(1) = u"c";
    EXPECT_EQ(errorOf([&] { array.at(2); }), 9);
    EXPECT_EQ(errorOf([&] { array.at(-2); }), 9);
    EXPECT_EQ(errorOf([&] { array.redimPreserve(0, -2); }), 9);
    EXPECT_EQ(array.upperBound(), 1);

    array.redimPreserve(1, 3);
    EXPECT_EQ(array, StringArray::of({u"c", Bstr(), Bstr()}, 1));
    EXPECT_TRUE(array.at(2).isNull());
    array.redimPreserve(0, 1);
    EXPECT_EQ(array, StringArray::of({Bstr(), u"c"}, 0));
    array.redimPreserve(5, 6);
    EXPECT_EQ(array, StringArray::of({Bstr(), Bstr()}, 5));
    array.redim(1, 0);
    EXPECT_EQ(array.upperBound(), 0);
    EXPECT_EQ(errorOf([&] { array.at(1); }), 9);

    auto fixed = StringArray::of({u"a"}).fixed();
    EXPECT_EQ(errorOf([&] { fixed.redim(0, 1); }), 10);
    EXPECT_EQ(errorOf([&] { fixed.redimPreserve(0, 1); }), 10);
    fixed.at(0) = u"b";
    EXPECT_EQ(fixed.at(0), u"b");

    constexpr auto last = std::numeric_limits<I4>::max();
    auto highest = StringArray::withBounds(last, last);
    EXPECT_EQ(highest.upperBound(), last);
    highest.at(last) = u"z";
    EXPECT_EQ(errorOf([&] { highest.at(last - 1); }), 9);
}

TEST(Records, OffsetsAndSizes) {
    const struct {
        std::string_view name;
        std::size_t size;
        std::vector<std::size_t> offsets;
    } expected[] = {
        {"BROWSEINFO", 32, {0, 4, 8, 12, 16, 20, 24, 28}},
        {"POINTAPI", 8, {0, 4}},
        {"SHITEMID", 8, {0, 4}},
        {"ITEMIDLIST", 8, {0}},
        {"SHFILEOPSTRUCT", 28, {0, 4, 8, 12, 16, 18, 20, 24}},
    };
    const auto records = publishedRecords();
    ASSERT_EQ(records.size(), std::size(expected));
    for (std::size_t i = 0; i < records.size(); ++i) {
        std::vector<std::size_t> offsets;
        for (std::size_t f = 0; f < records[i].fields.size(); ++f) offsets.push_back(records[i].offsetOf(f));
        EXPECT_EQ(records[i].name, expected[i].name);
        EXPECT_EQ(records[i].size(), expected[i].size);
        EXPECT_EQ(offsets, expected[i].offsets);
    }
}

}  // namespace
}  // namespace tovera::testing
