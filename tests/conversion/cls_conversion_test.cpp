#include "conversion/class_table.h"
#include "support/named_calls.h"

namespace tovera::testing {
namespace {

using ::testing::_;

TEST(ClsConversion, TypedNumbers) {
    const struct {
        Bstr typed;
        Bstr cleaned;
        bool refused = false;
    } rows[] = {
        // clang-format off
        {u"1 234,50", u"1234,50"}, {u"-12.5", u"-12.5"}, {u" - 12", u"-12"}, {u",,,", u",,,"},
        {u"1,2.3", u"1,2.3"}, {u"", u""}, {u"   ", u""}, {Bstr(), u""}, {u"-", u"-"}, {u"12-3", u"", true},
        {u"1a", u"", true}, {u"+5", u"", true}, {u"--1", u"", true}, {u"1\t2", u"", true},
        {u"\u0661", u"", true}, {u"1\u00A02", u"", true}, {u"\u00B2", u"", true},
        {std::u16string(u"1\0", 2), u"", true},
        // clang-format on
    };
    for (const auto& row : rows) {
        TestPlatform test;
        EXPECT_EQ(Cls_Conversion(test.platform).Ctrl_SaiseNombre(row.typed), row.cleaned);
        std::vector<ShownBox> boxes;
        if (row.refused) {
            boxes.push_back(
                {u"Vous ne pouvez saisir que des chiffres, si vous voulez que la conversion fonctionne.", 64,
                 u"Erreur"});
        }
        EXPECT_EQ(test.services.boxes, boxes);
    }
}

TEST(ClsConversion, TypedNumbersUpTo32767Characters) {
    TestPlatform test;
    Cls_Conversion object(test.platform);
    const std::u16string longest(32767, u'7');
    EXPECT_EQ(object.Ctrl_SaiseNombre(u"  " + longest), longest);
    EXPECT_EQ(errorOf([&] { object.Ctrl_SaiseNombre(longest + u"7"); }), 6);
    EXPECT_EQ(errorOf([&] { object.Ctrl_SaiseNombre(longest + u"x"); }), 6);
    EXPECT_TRUE(test.services.boxes.empty());
}

TEST(ClsConversion, OemTextCrossesBothTexts) {
    TestPlatform test;
    Cls_Conversion object(test.platform);
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

TEST(ClsConversion, ByName) {
    TestPlatform test;
    EXPECT_CALL(test.user32, OemToCharA(_, _)).WillOnce(::testing::Return(1));
    const std::vector<NamedCall> calls{
        // clang-format off
        gives(u"12", u"Ctrl_SaiseNombre", u"1 2"), gives(u"-5", u"Ctrl_SaiseNombre", I4{-5}),
        gives(u"soixante et onze", u"ConvertirNombreEnLettre", u"71", VariantBool(false)),
        fails(9, u"ConvertirNombreEnLettre", R8{0.996}, VariantBool(false)),
        gives(u"un ", u"ConvertirNombreEnLettre", I2{1}, I2{1}),
        fails(13, u"ConvertirNombreEnLettre", u"mille", VariantBool(false)),
        fails(94, u"ConvertirNombreEnLettre", Null{}, VariantBool(false)),
        fails(449, u"ConvertirNombreEnLettre", I2{1}), gives(I2{1}, u"ConvertirOemAnsi", u"a", u"b"),
        // clang-format on
    };
    expectCallsOfEveryMethod<Cls_Conversion>(test.platform, calls);
    const auto object = objectOn<Cls_Conversion>(test.platform);
    writeMember(object, u"IntituleMonnaie", u"franc");
    writeMember(object, u"IntitulePetiteMonnaie", u"sou");
    EXPECT_EQ(readMember(object, u"IntituleMonnaie"), Variant(u"franc"));
    EXPECT_EQ(readMember(object, u"IntitulePetiteMonnaie"), Variant(u"sou"));
    EXPECT_EQ(callMember(object, u"ConvertirNombreEnLettre", R8{2.02}, VariantBool(true)),
              Variant(u"deux francs et deux sous"));
    EXPECT_EQ(readMember(objectOn<Cls_Conversion>(test.platform), u"IntituleMonnaie"), Variant(Bstr()));
}

}  // namespace
}  // namespace tovera::testing
