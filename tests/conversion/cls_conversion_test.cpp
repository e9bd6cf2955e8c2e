#include <cmath>

#include "conversion/class_table.h"
#include "platform/oem_text.h"
#include "support/named_calls.h"

namespace tovera::testing {
namespace {

using ::testing::_;
using Text = std::u16string;

class MockOemText : public OemText {
  public:
    MOCK_METHOD(I4, OemToCharA, (const AnsiText& source, AnsiText& target), (override));
};

class ClsConversion : public ::testing::Test {
  protected:
    TestPlatform test;
    ::testing::StrictMock<MockOemText> oemText;
    Platform platform = test.platform.with(oemText);
    Cls_Conversion object{platform};
};

TEST_F(ClsConversion, TypedNumbers) {
    const std::pair<Bstr, std::optional<Bstr>> rows[] = {
        // clang-format off
        {u"1 234,50", u"1234,50"}, {u" - 12.5", u"-12.5"}, {u"1,2.3,", u"1,2.3,"}, {u"   ", u""},
        {Bstr(), u""}, {u"-", u"-"}, {u"12-3", {}}, {u"1a", {}}, {u"+5", {}}, {u"--1", {}}, {u"1\t2", {}},
        {u"\u0661", {}}, {u"1\u00A02", {}}, {Text(u"1\0", 2), {}},
        // clang-format on
    };
    const ShownBox refusal{
        u"Vous ne pouvez saisir que des chiffres, si vous voulez que la conversion fonctionne.", 64,
        u"Erreur"};
    for (const auto& [typed, cleaned] : rows) {
        test.services.boxes.clear();
        EXPECT_EQ(object.Ctrl_SaiseNombre(typed), cleaned.value_or(u""));
        EXPECT_EQ(test.services.boxes, std::vector<ShownBox>(cleaned ? 0 : 1, refusal));
    }
    const Text longest(32767, u'7');
    EXPECT_EQ(object.Ctrl_SaiseNombre(u"  " + longest), longest);
    EXPECT_EQ(errorOf([&] { object.Ctrl_SaiseNombre(longest + u"7"); }), 6);
}

TEST_F(ClsConversion, OemTextCrossesBothTexts) {
    Bstr source = u"\u0082t\u20AC";
    Bstr target = u"######";
    EXPECT_CALL(oemText, OemToCharA(_, _)).WillOnce([](const AnsiText& from, AnsiText& to) {
        EXPECT_EQ(from.bytes, "\x82t?");
        to.bytes.replace(0, 4, std::string("\xE9t?\0", 4));
        return 7;
    });
    EXPECT_EQ(object.ConvertirOemAnsi(source, target), 7);
    EXPECT_EQ(source, u"\u0082t?");
    EXPECT_EQ(target, Bstr(Text(u"ét?\0##", 6)));
    EXPECT_CALL(oemText, OemToCharA(_, _)).WillOnce(::testing::Return(0x8000));
    EXPECT_EQ(errorOf([&] { object.ConvertirOemAnsi(source, target); }), 6) << "more than the result holds";
}

TEST_F(ClsConversion, ByName) {
    EXPECT_CALL(oemText, OemToCharA(_, _)).WillOnce(::testing::Return(1));
    const std::vector<NamedCall> calls{
        // clang-format off
        gives(u"-5", u"Ctrl_SaiseNombre", I4{-5}), gives(I2{1}, u"ConvertirOemAnsi", u"a", u"b"),
        gives(u"soixante et onze", u"ConvertirNombreEnLettre", u"71", False),
        gives(u"un ", u"ConvertirNombreEnLettre", I2{1}, I2{1}),
        fails(13, u"ConvertirNombreEnLettre", u"mille", False), fails(449, u"ConvertirNombreEnLettre", I2{1}),
        // clang-format on
    };
    expectCallsOfEveryMethod<Cls_Conversion>(platform, calls);
    const auto labelled = objectOn<Cls_Conversion>(platform);
    writeMember(labelled, u"IntituleMonnaie", u"franc");
    writeMember(labelled, u"IntitulePetiteMonnaie", u"sou");
    expectCall(labelled, gives(u"franc", u"IntituleMonnaie"));
    expectCall(labelled, gives(u"sou", u"IntitulePetiteMonnaie"));
    expectCall(labelled, gives(u"deux francs et deux sous", u"ConvertirNombreEnLettre", R8{2.02}, True));
    expectCall(objectOn<Cls_Conversion>(platform), gives(Bstr(), u"IntituleMonnaie"));
}

class FrenchWords : public ClsConversion {
  protected:
    Text given(R8 x, VariantBool amount) {
        Text text;
        const I4 error = errorOf([&] { text = object.ConvertirNombreEnLettre(x, amount).view(); });
        return error == 0 ? text : Text(u"error ") + static_cast<char16_t>(u'0' + error);
    }
};

TEST_F(FrenchWords, HaveSignLabelsAndHundredths) {
    object.setIntituleMonnaie(u"euro");
    object.setIntitulePetiteMonnaie(u"centime");
    const std::tuple<R8, Text, Text> rows[] = {
        // clang-format off
        {-0.0, u"zéro", u"zéro euro"}, {1, u"un", u"un euro"}, {2, u"deux", u"deux euros"},
        {-1.01, u"moins un et un ", u"moins un euro et un centime"},
        {12.34, u"douze et trente-quatre ", u"douze euros et trente-quatre centimes"},
        {0.125, u"zéro et douze ", u"zéro euro et douze centimes"},
        {0.375, u"zéro et trente-huit ", u"zéro euro et trente-huit centimes"},
        {0.996, u"error 9", u"error 9"}, {-7.999, u"error 9", u"error 9"},
        {std::numeric_limits<R8>::infinity(), u"error 6", u"error 6"}, {std::nan(""), u"error 6", u"error 6"},
        // clang-format on
    };
    for (const auto& [x, plain, amount] : rows) {
        EXPECT_EQ(given(x, False), plain) << x;
        EXPECT_EQ(given(x, VariantBool::ofBits(1)), plain) << x;
        EXPECT_EQ(given(x, True), amount) << x;
    }
    Cls_Conversion bare(platform);
    EXPECT_EQ(bare.ConvertirNombreEnLettre(2.5, True), u"deux s et cinquante s");
    EXPECT_EQ(bare.ConvertirNombreEnLettre(1, True), u"un ");
    const Text longest(200'000, u'c');  // far more than the words themselves take
    bare.setIntitulePetiteMonnaie(longest);
    EXPECT_EQ(bare.ConvertirNombreEnLettre(1.02, True), Bstr(u"un  et deux " + longest + u"s"));
    bare.setIntituleMonnaie(longest);
    EXPECT_EQ(bare.ConvertirNombreEnLettre(2.01, True), Bstr(u"deux " + longest + u"s et un " + longest));
}

TEST_F(FrenchWords, OfEveryWordAndGroupOfDigits) {
    const std::pair<R8, Text> rows[] = {
        // clang-format off
        {0, u"zéro"}, {1, u"un"}, {2, u"deux"}, {3, u"trois"}, {4, u"quatre"}, {5, u"cinq"}, {6, u"six"},
        {7, u"sept"}, {8, u"huit"}, {9, u"neuf"}, {10, u"dix"}, {11, u"onze"}, {12, u"douze"}, {13, u"treize"},
        {14, u"quatorze"}, {15, u"quinze"}, {16, u"seize"}, {17, u"dix-sept"}, {18, u"dix-huit"},
        {19, u"dix-neuf"}, {20, u"vingt"}, {21, u"vingt et un"}, {30, u"trente"}, {42, u"quarante-deux"},
        {50, u"cinquante"}, {61, u"soixante et un"}, {70, u"soixante-dix"}, {71, u"soixante et onze"},
        {72, u"soixante-douze"}, {79, u"soixante-dix-neuf"}, {80, u"quatre-vingts"}, {81, u"quatre-vingt-un"},
        {90, u"quatre-vingt-dix"}, {91, u"quatre-vingt-onze"}, {92, u"quatre-vingt-douze"},
        {100, u"cent"}, {101, u"cent un"}, {300, u"trois cents"}, {280, u"deux cent quatre-vingts"},
        {999, u"neuf cent quatre-vingt-dix-neuf"}, {1000, u"mille"}, {1001, u"mille un"},
        {21000, u"vingt et un mille"}, {200000, u"deux cents mille"}, {1e6, u"un million"},
        {1001000, u"un million  mille"}, {1e9, u"un milliard"}, {999000000999, u"neuf cent quatre-vingt-dix-neuf "
         "milliards neuf cent quatre-vingt-dix-neuf"}, {123456789, u"cent vingt-trois millions quatre cent "
         "cinquante-six mille sept cent quatre-vingt-neuf"}, {1e12, u"cent milliards"},
        {1000000000021, u"cent milliards vingt et un"}, {1e15, u"cent milliards"},
        {1234567890123456, u"cent vingt-trois milliards quatre cent cinquante-six millions sept cent "
         "quatre-vingt-neuf mille quatre cent soixante"},
        // clang-format on
    };
    for (const auto& [x, words] : rows) EXPECT_EQ(given(x, False), words) << x;
}

}  // namespace
}  // namespace tovera::testing
