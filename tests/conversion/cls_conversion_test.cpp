#include <cmath>
#include <random>

#include "conversion/class_table.h"
#include "support/named_calls.h"

namespace tovera::testing {
namespace {

using ::testing::_;

class ClsConversion : public ::testing::Test {
  protected:
    TestPlatform test;
    Cls_Conversion object{test.platform};
};

TEST_F(ClsConversion, TypedNumbers) {
    const struct {
        Bstr typed, cleaned;
        bool refused = false;
    } rows[] = {
        // clang-format off
        {u"1 234,50", u"1234,50"}, {u"-12.5", u"-12.5"}, {u" - 12", u"-12"}, {u",,,", u",,,"},
        {u"1,2.3", u"1,2.3"}, {u"   ", u""}, {Bstr(), u""}, {u"-", u"-"}, {u"12-3", u"", true},
        {u"1a", u"", true}, {u"+5", u"", true}, {u"--1", u"", true}, {u"1\t2", u"", true},
        {u"\u0661", u"", true}, {u"1\u00A02", u"", true}, {u"\u00B2", u"", true},
        {std::u16string(u"1\0", 2), u"", true},
        // clang-format on
    };
    const ShownBox refusal{
        u"Vous ne pouvez saisir que des chiffres, si vous voulez que la conversion fonctionne.", 64,
        u"Erreur"};
    for (const auto& row : rows) {
        test.services.boxes.clear();
        EXPECT_EQ(object.Ctrl_SaiseNombre(row.typed), row.cleaned);
        EXPECT_EQ(test.services.boxes, std::vector<ShownBox>(row.refused ? 1 : 0, refusal));
    }
    test.services.boxes.clear();
    const std::u16string longest(32767, u'7');
    EXPECT_EQ(object.Ctrl_SaiseNombre(u"  " + longest), longest);
    EXPECT_EQ(errorOf([&] { object.Ctrl_SaiseNombre(longest + u"x"); }), 6);
    EXPECT_TRUE(test.services.boxes.empty());
}

TEST_F(ClsConversion, OemTextCrossesBothTexts) {
    Bstr source = u"\u0082t\u20AC";
    Bstr target = u"######";
    EXPECT_CALL(test.user32, OemToCharA(_, _)).WillOnce([](const AnsiText& from, AnsiText& to) {
        EXPECT_EQ(from.bytes, "\x82t?");
        to.bytes.replace(0, 4, std::string("\xE9t?\0", 4));
        return 7;
    });
    EXPECT_EQ(object.ConvertirOemAnsi(source, target), 7);
    EXPECT_EQ(source, u"\u0082t?");
    EXPECT_EQ(target, Bstr(std::u16string(u"ét?\0##", 6)));

    Bstr none;
    EXPECT_CALL(test.user32, OemToCharA(_, _)).WillOnce([](const AnsiText& from, AnsiText&) {
        EXPECT_TRUE(from.isNull);
        return 0x8000;  // more than the result holds
    });
    EXPECT_EQ(errorOf([&] { object.ConvertirOemAnsi(none, target); }), 6);
    EXPECT_TRUE(none.isNull());
}

TEST_F(ClsConversion, ByName) {
    EXPECT_CALL(test.user32, OemToCharA(_, _)).WillOnce(::testing::Return(1));
    const std::vector<NamedCall> calls{
        // clang-format off
        gives(u"-5", u"Ctrl_SaiseNombre", I4{-5}),
        gives(u"soixante et onze", u"ConvertirNombreEnLettre", u"71", False),
        fails(9, u"ConvertirNombreEnLettre", R8{0.996}, False),
        gives(u"un ", u"ConvertirNombreEnLettre", I2{1}, I2{1}),
        fails(13, u"ConvertirNombreEnLettre", u"mille", False),
        fails(94, u"ConvertirNombreEnLettre", Null{}, False), fails(449, u"ConvertirNombreEnLettre", I2{1}),
        gives(I2{1}, u"ConvertirOemAnsi", u"a", u"b"),
        // clang-format on
    };
    expectCallsOfEveryMethod<Cls_Conversion>(test.platform, calls);
    const auto labelled = objectOn<Cls_Conversion>(test.platform);
    writeMember(labelled, u"IntituleMonnaie", u"franc");
    writeMember(labelled, u"IntitulePetiteMonnaie", u"sou");
    expectCall(labelled, gives(u"franc", u"IntituleMonnaie"));
    expectCall(labelled, gives(u"sou", u"IntitulePetiteMonnaie"));
    expectCall(labelled, gives(u"deux francs et deux sous", u"ConvertirNombreEnLettre", R8{2.02}, True));
    expectCall(objectOn<Cls_Conversion>(test.platform), gives(Bstr(), u"IntituleMonnaie"));
}

using Text = std::u16string;

/// The words of 1 to 999,999,999,999 told once more in the plainest way: the empty text for 0.
Text wordsOf(std::uint64_t v) {
    const Text units[] = {u"",         u"un",     u"deux",  u"trois",    u"quatre",   u"cinq",    u"six",
                          u"sept",     u"huit",   u"neuf",  u"dix",      u"onze",     u"douze",   u"treize",
                          u"quatorze", u"quinze", u"seize", u"dix-sept", u"dix-huit", u"dix-neuf"};
    const Text tens[] = {u"vingt", u"trente", u"quarante", u"cinquante", u"soixante"};
    if (v < 20) return units[v];
    if (v == 80) return u"quatre-vingts";
    if (v > 80 && v < 100) return u"quatre-vingt-" + units[v - 80];
    if (v < 80) {
        const auto ten = std::min<std::uint64_t>(v / 10, 6);
        const auto rest = v - ten * 10;
        if (rest == 0) return tens[ten - 2];
        return tens[ten - 2] + (rest == 1 || rest == 11 ? u" et " : u"-") + units[rest];
    }
    if (v < 1000) {
        const Text hundred = v < 200 ? u"cent" : wordsOf(v / 100) + u" cent";
        if (v % 100 != 0) return hundred + u" " + wordsOf(v % 100);
        return v < 200 ? hundred : hundred + u"s";
    }
    const struct {
        std::uint64_t size;
        Text one, many;
    } groups[] = {{1'000'000'000, u"un milliard ", u" milliards "},
                  {1'000'000, u"un million ", u" millions "},
                  {1000, u" mille ", u" mille "}};
    Text joined;
    for (const auto& group : groups) {
        const auto count = v / group.size % 1000;
        if (count > 0) joined += count == 1 ? group.one : wordsOf(count) + group.many;
    }
    return Text(trimBlanks(joined + wordsOf(v % 1000)));
}

Text expectedWords(R8 x, const Text* label, const Text* small) {
    const R8 whole = std::floor(x);
    const R8 hundredfold = (x - whole) * 100;
    auto d = static_cast<std::uint64_t>(hundredfold);
    const R8 rest = hundredfold - static_cast<R8>(d);
    if (rest > 0.5 || (rest == 0.5 && d % 2 == 1)) ++d;
    if (d == 100) return u"error 9";
    Text text = whole == 0 ? u"zéro" : wordsOf(static_cast<std::uint64_t>(whole));
    if (label) text += u" " + *label + (whole > 1 ? u"s" : u"");
    if (d > 0) text += u" et " + wordsOf(d) + u" ";
    if (d > 0 && label) text += *small + (d > 1 ? u"s" : u"");
    return text;
}

class FrenchWords : public ClsConversion {
  protected:
    FrenchWords() {
        object.setIntituleMonnaie(euro);
        object.setIntitulePetiteMonnaie(centime);
    }

    Text given(R8 x, VariantBool amount) {
        Text text;
        const I4 error = errorOf([&] { text = object.ConvertirNombreEnLettre(x, amount).view(); });
        return error == 0 ? text : Text(u"error ") + static_cast<char16_t>(u'0' + error);
    }
    void expectBoth(R8 x) {
        SCOPED_TRACE(::testing::PrintToString(x));
        ASSERT_EQ(given(x, False), expectedWords(x, nullptr, nullptr));
        ASSERT_EQ(given(x, True), expectedWords(x, &euro, &centime));
    }

    const Text euro = u"euro";
    const Text centime = u"centime";
};

TEST_F(FrenchWords, OfTheTable) {
    const struct {
        R8 x;
        Text plain, amount;
    } rows[] = {
        // clang-format off
        {-0.0, u"zéro", u"zéro euro"}, {71, u"soixante et onze", u"soixante et onze euros"},
        {80, u"quatre-vingts", u"quatre-vingts euros"},
        {91, u"quatre-vingt-onze", u"quatre-vingt-onze euros"},
        {200000, u"deux cents mille", u"deux cents mille euros"},
        {1001000, u"un million  mille", u"un million  mille euros"},
        {1e12, u"cent milliards", u"cent milliards euros"},
        {1e15, u"cent milliards", u"cent milliards euros"},
        {1000000000021, u"cent milliards vingt et un", u"cent milliards vingt et un euros"},
        {1.01, u"un et un ", u"un euro et un centime"},
        {-12.34, u"moins douze et trente-quatre ", u"moins douze euros et trente-quatre centimes"},
        {0.996, u"error 9", u"error 9"}, {-7.999, u"error 9", u"error 9"},
        {std::numeric_limits<R8>::infinity(), u"error 6", u"error 6"}, {std::nan(""), u"error 6", u"error 6"},
        // clang-format on
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.x);
        EXPECT_EQ(given(row.x, False), row.plain);
        EXPECT_EQ(given(row.x, VariantBool::ofBits(1)), row.plain);
        EXPECT_EQ(given(row.x, True), row.amount);
    }
    Cls_Conversion bare(test.platform);
    EXPECT_EQ(bare.ConvertirNombreEnLettre(2.5, True), u"deux s et cinquante s");
    EXPECT_EQ(bare.ConvertirNombreEnLettre(1, True), u"un ");
}

TEST_F(FrenchWords, AreThoseOfAPlainRoutine) {
    for (int v = 0; v <= 2000; ++v) expectBoth(v);
    for (R8 power = 1000; power < 1e12; power *= 10) {
        for (const R8 x : {power - 1, power, power + 1, power * 7.1, power + 0.5, power * 2 + 1000})
            expectBoth(x);
    }
    expectBoth(999999999999);
    for (int d = 0; d < 1000; ++d) expectBoth(d % 3 + d / 1000.0);
    std::mt19937_64 random(20020506);
    for (int i = 0; i < 20000; ++i) {
        const R8 size = std::pow(10.0, static_cast<R8>(random() % 13));
        const R8 x = static_cast<R8>(random()) * 0x1p-64 * size;
        expectBoth(i % 2 == 0 ? std::floor(x) : x);
    }
}

}  // namespace
}  // namespace tovera::testing
