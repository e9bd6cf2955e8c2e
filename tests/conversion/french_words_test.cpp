#include <cmath>
#include <random>

#include "conversion/class_table.h"
#include "support/named_calls.h"

namespace tovera::testing {
namespace {

using Text = std::u16string;

// The rules of the words told once more in the plainest way, on integers and with text put together piece by
// piece.

Text wordsBelow100(int v) {
    const Text units[] = {u"",         u"un",     u"deux",  u"trois",    u"quatre",   u"cinq",    u"six",
                          u"sept",     u"huit",   u"neuf",  u"dix",      u"onze",     u"douze",   u"treize",
                          u"quatorze", u"quinze", u"seize", u"dix-sept", u"dix-huit", u"dix-neuf"};
    const Text tens[] = {u"vingt", u"trente", u"quarante", u"cinquante", u"soixante"};
    if (v < 20) return units[v];
    if (v == 80) return u"quatre-vingts";
    if (v > 80) return u"quatre-vingt-" + units[v - 80];
    const Text ten = tens[std::min(v / 10, 6) - 2];
    const int rest = v - std::min(v / 10, 6) * 10;
    if (rest == 0) return ten;
    return ten + (rest == 1 || rest == 11 ? u" et " : u"-") + units[rest];
}

Text wordsBelow1000(int v) {
    const Text rest = wordsBelow100(v % 100);
    if (v < 100) return rest;
    const Text hundred = v < 200 ? u"cent" : wordsBelow100(v / 100) + u" cent";
    if (v % 100 != 0) return hundred + u" " + rest;
    return v < 200 ? hundred : hundred + u"s";
}

Text wordsOfWhole(R8 whole) {
    if (whole == 0) return u"zéro";
    char digits[400];
    std::snprintf(digits, sizeof digits, "%012.0f", whole);
    const std::string text = digits;
    const auto group = [&](std::size_t at) { return std::stoi(text.substr(at, 3)); };
    const int a = group(0), b = group(3), c = group(6), u = group(text.size() - 3);
    Text joined;
    if (a > 0) joined += wordsBelow1000(a) + (a == 1 ? u" milliard " : u" milliards ");
    if (b > 0) joined += wordsBelow1000(b) + (b == 1 ? u" million " : u" millions ");
    if (c > 0) joined += (c == 1 ? u"" : wordsBelow1000(c)) + u" mille ";
    joined += wordsBelow1000(u);
    while (joined.front() == u' ') joined.erase(0, 1);
    while (joined.back() == u' ') joined.pop_back();
    return joined;
}

Text expectedWords(R8 x, const Text* label, const Text* small) {
    const R8 whole = std::floor(x);
    const R8 hundredfold = (x - whole) * 100;
    int d = static_cast<int>(hundredfold);
    const R8 rest = hundredfold - d;
    if (rest > 0.5 || (rest == 0.5 && d % 2 == 1)) ++d;
    if (d == 100) return u"error 9";
    Text text = wordsOfWhole(whole);
    if (label) text += u" " + *label + (whole > 1 ? u"s" : u"");
    if (d > 0) text += u" et " + wordsBelow100(d) + u" ";
    if (d > 0 && label) text += *small + (d > 1 ? u"s" : u"");
    return text;
}

class FrenchWords : public ::testing::Test {
  protected:
    FrenchWords() {
        labelled.setIntituleMonnaie(euro);
        labelled.setIntitulePetiteMonnaie(centime);
    }

    static Text given(Cls_Conversion& object, R8 x, VariantBool amount) {
        Text text;
        const I4 error = errorOf([&] { text = object.ConvertirNombreEnLettre(x, amount).view(); });
        return error == 0 ? text : Text(u"error ") + static_cast<char16_t>(u'0' + error);
    }
    void expectBoth(R8 x) {
        SCOPED_TRACE(::testing::PrintToString(x));
        ASSERT_EQ(given(labelled, x, False), expectedWords(x, nullptr, nullptr));
        ASSERT_EQ(given(labelled, x, True), expectedWords(x, &euro, &centime));
    }

    const Text euro = u"euro";
    const Text centime = u"centime";
    TestPlatform test;
    Cls_Conversion labelled{test.platform};
};

TEST_F(FrenchWords, OfTheTable) {
    const struct {
        R8 x;
        Text plain;
        Text amount;
    } rows[] = {
        // clang-format off
        {0, u"zéro", u"zéro euro"}, {-0.0, u"zéro", u"zéro euro"}, 
        {71, u"soixante et onze", u"soixante et onze euros"},
        {80, u"quatre-vingts", u"quatre-vingts euros"}, 
        {91, u"quatre-vingt-onze", u"quatre-vingt-onze euros"},
        {99, u"quatre-vingt-dix-neuf", u"quatre-vingt-dix-neuf euros"}, 
    // clang-format off
        {200, u"deux cents", u"deux cents euros"},
        {80000, u"quatre-vingts mille", u"quatre-vingts mille euros"},
        {200000, u"deux cents mille", u"deux cents mille euros"},
        {1001000, u"un million  mille", u"un million  mille euros"},
        {1001001, u"un million  mille un", u"un million  mille un euros"},
        {1e12, u"cent milliards", u"cent milliards euros"},
        {1e15, u"cent milliards", u"cent milliards euros"}, {1.01, u"un et un ", u"un euro et un centime"},
        {1.5, u"un et cinquante ", u"un euro et cinquante centimes"}, {1.004, u"un", u"un euro"},
        {1.006, u"un et un ", u"un euro et un centime"},
        {0.125, u"zéro et douze ", u"zéro euro et douze centimes"},
        {2.375, u"deux et trente-huit ", u"deux euros et trente-huit centimes"},
        {-12.34, u"moins douze et trente-quatre ", u"moins douze euros et trente-quatre centimes"},
        {0.996, u"error 9", u"error 9"}, {-7.999, u"error 9", u"error 9"},
        {std::numeric_limits<R8>::infinity(), u"error 6", u"error 6"}, {std::nan(""), u"error 6", u"error 6"},
        // clang-format on
        // clang-format on
        {999999999999,
         u"neuf cent quatre-vingt-dix-neuf milliards neuf cent quatre-vingt-dix-neuf millions neuf cent "
         u"quatre-vingt-dix-neuf mille neuf cent quatre-vingt-dix-neuf",
         u"neuf cent quatre-vingt-dix-neuf milliards neuf cent quatre-vingt-dix-neuf millions neuf cent "
         u"quatre-vingt-dix-neuf mille neuf cent quatre-vingt-dix-neuf euros"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.x);
        EXPECT_EQ(given(labelled, row.x, False), row.plain);
        EXPECT_EQ(given(labelled, row.x, VariantBool::ofBits(1)), row.plain);
        EXPECT_EQ(given(labelled, row.x, True), row.amount);
    }
    Cls_Conversion bare(test.platform);
    EXPECT_EQ(given(bare, 2.5, True), u"deux s et cinquante s");
    EXPECT_EQ(given(bare, 1, True), u"un ");
}

TEST_F(FrenchWords, AreThoseOfAPlainRoutine) {
    for (int v = 0; v <= 2000; ++v) expectBoth(v);
    for (R8 power = 1000; power < 1e15; power *= 10) {
        for (const R8 x : {power - 1, power, power + 1, power * 7.1, power + 0.5, power * 2 + 1000})
            expectBoth(x);
    }
    for (int d = 0; d < 1000; ++d) expectBoth(d % 3 + d / 1000.0);
    std::mt19937_64 random(20020506);
    for (int i = 0; i < 20000; ++i) {
        const R8 size = std::pow(10.0, static_cast<R8>(random() % 15));
        const R8 x = static_cast<R8>(random()) * 0x1p-64 * size;
        expectBoth(i % 2 == 0 ? std::floor(x) : x);
    }
}

}  // namespace
}  // namespace tovera::testing
