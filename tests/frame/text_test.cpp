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
    EXPECT_EQ(right(u"abc", 9), u"abc");
    EXPECT_EQ(trimBlanks(u"  a\t "), u"a\t");
    EXPECT_EQ(trimBlanks(u"   "), u"");
    EXPECT_EQ(beforeNul(std::u16string_view(u"ab\0c", 4)), u"ab");
    FixedText<4> fixed;
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
    const auto entryPoint = [](AnsiText& a, AnsiText& b, AnsiText& c, AnsiText& d) {
        EXPECT_EQ(a.bytes + b.bytes, "\xE9??");
        EXPECT_EQ(c.addressOrNull(), nullptr);
        d.bytes.replace(0, 2, std::string("x\0", 2));
        return 5;
    };
    EXPECT_EQ(crossing.call(entryPoint, both, kept, null, buffer.buffer()), 5);
    EXPECT_EQ(both, u"é?");
    EXPECT_EQ(kept, u"\u20AC");
    EXPECT_TRUE(null.isNull());
    EXPECT_EQ(buffer.view(), std::u16string_view(u"x\0\0\0", 4));
}

TEST(Text, Utf8) {
    using namespace std::string_view_literals;
    const struct {
        std::string_view bytes;
        std::u16string_view text;
    } rows[] = {
        // clang-format off
        {"", u""}, {"a\u00E9\u20AC\U0001F600", u"a\u00E9\u20AC\U0001F600"}, {"\U0010FFFF", u"\U0010FFFF"},
        {"\0"sv, u"\0"sv}, {"\xC3", u"\uFFFD"}, {"\xC3(", u"\uFFFD("}, {"\xC0\x80", u"\uFFFD\uFFFD"},
        {"\xE0\x80\x80", u"\uFFFD\uFFFD\uFFFD"}, {"\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},
        {"\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"}, {"\xFF", u"\uFFFD"}, {"\x80 a", u"\uFFFD a"},
        {"\xE2\x82", u"\uFFFD\uFFFD"},
        // clang-format on
    };
    for (const auto& row : rows) {
        EXPECT_EQ(fromUtf8(row.bytes), row.text);
        if (row.text.find(u'\uFFFD') == row.text.npos) {
            EXPECT_EQ(toUtf8(row.text), row.bytes);
        }
    }
    const char16_t lone[] = {0xD83D, u'a', 0xDE00, 0xD83D};
    EXPECT_EQ(toUtf8({lone, 4}), "\uFFFDa\uFFFD\uFFFD");
}

TEST(StringArrays, BoundsAndResizing) {
    StringArray array;
    EXPECT_EQ(errorOf([&] { array.upperBound(); }), 9);
    EXPECT_EQ(errorOf([&] { array.at(0); }), 9);
    array.redim(-1, 1);
    array.at(1) = u"c";
    for (const I4 outside : {-2, 2}) EXPECT_EQ(errorOf([&] { array.at(outside); }), 9);
    EXPECT_EQ(errorOf([&] { array.redimPreserve(0, -2); }), 9);
    EXPECT_EQ(array, StringArray::of({Bstr(), Bstr(), u"c"}, -1));
    array.redimPreserve(1, 3);
    EXPECT_EQ(array, StringArray::of({u"c", Bstr(), Bstr()}, 1));
    array.redimPreserve(0, 1);
    EXPECT_EQ(array, StringArray::of({Bstr(), u"c"}, 0));
    array.redimPreserve(5, 6);
    EXPECT_EQ(array, StringArray::withBounds(5, 6));
    array.redim(1, 0);
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
}

TEST(Records, SizesAndOffsets) {
    std::string told;
    for (const auto& record : publishedRecords()) {
        told += std::string(record.name) + ' ' + std::to_string(record.size()) + ':';
        for (std::size_t i = 0; i < record.fields.size(); ++i)
            told += ' ' + std::to_string(record.offsetOf(i));
        told += '\n';
    }
    EXPECT_EQ(told,
              "BROWSEINFO 32: 0 4 8 12 16 20 24 28\nPOINTAPI 8: 0 4\nSHITEMID 8: 0 4\nITEMIDLIST 8: 0\n"
              "SHFILEOPSTRUCT 28: 0 4 8 12 16 18 20 24\n");
}

}  // namespace
}  // namespace tovera::testing
