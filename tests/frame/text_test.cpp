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
    EXPECT_EQ(join(null, Bstr(u"a"), u"b"), u"ab");
    EXPECT_EQ(right(u"abc", 9), u"abc");
    EXPECT_EQ(trimBlanks(u"  a\t "), u"a\t");
    EXPECT_EQ(trimBlanks(u"   "), u"");
    FixedText<4> fixed;
    EXPECT_EQ((fixed = u"ab").view(), u"ab  ");
    EXPECT_EQ((fixed = u"abcdef").view(), u"abcd");
}

TEST(Text, BrokenUtf8BecomesReplacements) {
    using namespace std::string_view_literals;
    const std::pair<std::string_view, std::u16string_view> rows[] = {
        // clang-format off
        {"\0a\u00E9\u20AC\U0001F600"sv, u"\0a\u00E9\u20AC\U0001F600"sv}, {"\U0010FFFF", u"\U0010FFFF"},
        {"\xC3", u"\uFFFD"}, {"\xC3(", u"\uFFFD("}, {"\xC0\x80", u"\uFFFD\uFFFD"}, {"\xFF", u"\uFFFD"},
        {"\xE0\x80\x80", u"\uFFFD\uFFFD\uFFFD"}, {"\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},
        {"\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"}, {"\x80 a", u"\uFFFD a"},
        {"\xE2\x82", u"\uFFFD\uFFFD"},
        // clang-format on
    };
    for (const auto& [bytes, text] : rows) {
        EXPECT_EQ(fromUtf8(bytes), text);
        if (text.find(u'\uFFFD') == text.npos) {
            EXPECT_EQ(toUtf8(text), bytes);
        }
    }
    const char16_t lone[] = {0xD83D, u'a', 0xDE00, 0xD83D};
    EXPECT_EQ(toUtf8({lone, 4}), "\uFFFDa\uFFFD\uFFFD");
}

TEST(StringArrays, BoundsAndResizing) {
    StringArray array;
    EXPECT_EQ(errorOf([&] { array.upperBound(); }), 9) << "without bounds";
    array.redim(-1, 1);
    array.at(1) = u"c";
    for (const I4 outside : {-2, 2}) EXPECT_EQ(errorOf([&] { array.at(outside); }), 9);
    EXPECT_EQ(errorOf([&] { array.redimPreserve(0, -2); }), 9);
    const std::tuple<I4, I4, StringArray> resized[] = {
        // clang-format off
        {-1, 1, StringArray::of({Bstr(), Bstr(), u"c"}, -1)}, {1, 3, StringArray::of({u"c", Bstr(), Bstr()}, 1)},
        {-1, 1, StringArray::of({Bstr(), Bstr(), u"c"}, -1)}, {0, 2, StringArray::of({Bstr(), u"c", Bstr()})},
        {5, 6, StringArray::withBounds(5, 6)},
        // clang-format on
    };
    for (const auto& [lower, upper, kept] : resized) {
        array.redimPreserve(lower, upper);
        EXPECT_EQ(array, kept);
    }
    auto fixed = StringArray::of({u"a"}).fixed();
    EXPECT_EQ(errorOf([&] { fixed.redim(0, 1); }), 10);
    EXPECT_EQ(errorOf([&] { fixed.redimPreserve(0, 1); }), 10);
    EXPECT_EQ(fixed.at(0), u"a");
    constexpr auto last = std::numeric_limits<I4>::max();
    auto highest = StringArray::withBounds(last, last);
    highest.at(last) = u"z";
}

}  // namespace
}  // namespace tovera::testing
