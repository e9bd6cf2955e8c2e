#include "client/slot_log.h"

// Early-bound calls: every slot of every interface, with its result, and what a failing slot tells.
namespace tovera::client {
namespace {

const Component& component() {
    return Component::loaded();
}

TEST(BySlot, Conversion) {
    const auto conversion = component().create<Cls_Conversion, _Cls_Conversion>();
    SlotLog slots(conversion.get());
    Text label(L"euro");
    Text smallLabel(L"centime");
    Text text;
    slots.reached("put IntituleMonnaie", conversion->put_IntituleMonnaie(label.address()));
    slots.reached("put IntitulePetiteMonnaie", conversion->put_IntitulePetiteMonnaie(smallLabel.address()));
    slots.reached("get IntituleMonnaie", conversion->get_IntituleMonnaie(text.out()));
    EXPECT_EQ(text.str(), L"euro");
    slots.reached("get IntitulePetiteMonnaie", conversion->get_IntitulePetiteMonnaie(text.out()));
    EXPECT_EQ(text.str(), L"centime");

    const struct {
        double number;
        VARIANT_BOOL isAmount;
        std::wstring words;
    } rows[] = {
        {0, VARIANT_FALSE, L"zéro"},
        {71, VARIANT_TRUE, L"soixante et onze euros"},
        {71, 1, L"soixante et onze"},
        {12.34, VARIANT_TRUE, L"douze euros et trente-quatre centimes"},
        {1001000, VARIANT_FALSE, L"un million  mille"},
    };
    for (auto row : rows) {
        slots.reached("ConvertirNombreEnLettre",
                      conversion->ConvertirNombreEnLettre(&row.number, &row.isAmount, text.out()));
        EXPECT_EQ(utf8(text.str()), utf8(row.words));
    }
    Text typed(L"1 234,50");
    slots.reached("Ctrl_SaiseNombre", conversion->Ctrl_SaiseNombre(typed.address(), text.out()));
    EXPECT_EQ(text.str(), L"1234,50");
    EXPECT_EQ(typed.str(), L"1 234,50");
    Text none;
    EXPECT_EQ(conversion->Ctrl_SaiseNombre(none.address(), text.out()), S_OK);
    EXPECT_EQ(text.str(), L"");
    Text source(L"\u201At\u201A");  // an accented letter in the code page of the console
    Text target(L"######");
    short converted = 0;
    slots.reached("ConvertirOemAnsi",
                  conversion->ConvertirOemAnsi(source.address(), target.address(), &converted));
    EXPECT_NE(converted, 0);
    EXPECT_EQ(utf8(target.str()), utf8(std::wstring(L"été\0##", 6)));
}

TEST(BySlot, Calendar) {
    const auto dates = component().create<Cls_Date, _Cls_Date>();
    SlotLog slots(dates.get());
    Value year = L"2002";
    DATE date = 0;
    slots.reached("Paques", dates->Paques(year.address(), &date));
    EXPECT_EQ(date, 37346.0);  // 31 March 2002
    Text text(L"25/12/2002");
    Value swapped;
    slots.reached("DateFRtoUS", dates->DateFRtoUS(text.address(), swapped.out()));
    EXPECT_EQ(swapped, Value(L"12/25/2002"));
    slots.reached("DateUStoFR", dates->DateUStoFR(text.address(), swapped.out()));
    EXPECT_EQ(swapped, Value(L"12/25/2002"));
    Text time;
    slots.reached("SecondeEnHeure", dates->SecondeEnHeure(90000, time.out()));
    EXPECT_EQ(time.str(), L"25:00:00");
    long seconds = 0;
    slots.reached("HeureEnSeconde", dates->HeureEnSeconde(37346.5, &seconds));
    EXPECT_EQ(seconds, 43200);
    slots.reached("Chrono", dates->Chrono(82800, 3600, &seconds));
    EXPECT_EQ(seconds, 7200);
    short days = 0;
    slots.reached("NBJoursOuvrablesParMois", dates->NBJoursOuvrablesParMois(2002, 2, &days));
    EXPECT_EQ(days, 20);
    slots.reached("NBJoursOuvrables", dates->NBJoursOuvrables(37382, 37386, &days));  // Monday to Friday
    EXPECT_EQ(days, 5);
}

TEST(BySlot, Geometry) {
    const auto math = component().create<Cls_Math, _Cls_Math>();
    SlotLog slots(math.get());
    Value angle = 10;
    float measure = 0;
    slots.reached("MesurePrincipale", math->MesurePrincipale(angle.address(), &measure));
    EXPECT_FLOAT_EQ(measure, -2.56F);
    EXPECT_EQ(angle.type(), VT_R8);
    double variable = 10;
    angle = Value::reference(VT_R8, &variable);
    EXPECT_EQ(math->MesurePrincipale(angle.address(), &measure), S_OK);
    EXPECT_NEAR(variable, -2.56, 1e-12);
    EXPECT_EQ(angle.type(), VT_R8 | VT_BYREF);

    Value zero = 0;
    Value three = 3;
    Value four = L"4";
    Value result;
    slots.reached("Hypothenuse", math->Hypothenuse(zero.address(), zero.address(), three.address(),
                                                   four.address(), result.out()));
    EXPECT_EQ(result, Value(5.0));
    Value half = 0.5;
    slots.reached("InverseCosinus", math->InverseCosinus(half.address(), &measure));
    EXPECT_FLOAT_EQ(measure, 1.0362F);
    slots.reached("InverseSinus", math->InverseSinus(half.address(), &measure));
    EXPECT_FLOAT_EQ(measure, 0.5338F);
    slots.reached("AngleTrigo", math->AngleTrigo(three.address(), four.address(), zero.address(),
                                                 zero.address(), result.out()));
    ASSERT_EQ(result.type(), VT_R4);
    EXPECT_NEAR(result.get().fltVal, 0.942F, 0.0005F);
}

TEST(BySlot, FailuresLeaveDefaultsAndARecord) {
    const auto dates = component().create<Cls_Date, _Cls_Date>();
    Value notAYear = L"abc";
    DATE date = 7;
    expectFailure(dates->Paques(notAYear.address(), &date), 13, L"Type incompatible", __uuidof(_Cls_Date));
    EXPECT_EQ(date, 0);
    long seconds = 7;
    expectFailure(dates->Chrono(-2147483647 - 1, 2147483647, &seconds), 6, L"Dépassement de capacité",
                  __uuidof(_Cls_Date));
    EXPECT_EQ(seconds, 0);
    const auto conversion = component().create<Cls_Conversion, _Cls_Conversion>();
    double number = 0.996;
    VARIANT_BOOL isAmount = VARIANT_FALSE;
    auto* words = reinterpret_cast<BSTR>(1);
    expectFailure(conversion->ConvertirNombreEnLettre(&number, &isAmount, &words), 9,
                  L"Indice hors des limites", __uuidof(_Cls_Conversion));
    EXPECT_EQ(words, nullptr);
    const auto math = component().create<Cls_Math, _Cls_Math>();
    Value one = 1;
    VARIANT result;
    result.vt = VT_DISPATCH;  // whatever stood there isn't looked at
    expectFailure(math->AngleTrigo(one.address(), one.address(), one.address(), one.address(), &result), 6,
                  L"Dépassement de capacité", __uuidof(_Cls_Math));
    EXPECT_EQ(result.vt, VT_EMPTY);
    EXPECT_EQ(dates->Chrono(100, 200, &seconds), S_OK) << "usable after a failure";
    EXPECT_EQ(seconds, 100);
}

TEST(BySlot, NullAddressesAreRefused) {
    const auto dates = component().create<Cls_Date, _Cls_Date>();
    Value year = 2002;
    DATE date = 0;
    EXPECT_EQ(dates->Chrono(1, 2, nullptr), E_POINTER);
    EXPECT_EQ(dates->SecondeEnHeure(1, nullptr), E_POINTER);
    EXPECT_EQ(dates->Paques(year.address(), nullptr), E_POINTER);
    EXPECT_EQ(dates->Paques(nullptr, &date), E_POINTER);
    const auto conversion = component().create<Cls_Conversion, _Cls_Conversion>();
    double number = 1;
    VARIANT_BOOL isAmount = VARIANT_FALSE;
    Text text;
    EXPECT_EQ(conversion->get_IntituleMonnaie(nullptr), E_POINTER);
    EXPECT_EQ(conversion->put_IntituleMonnaie(nullptr), E_POINTER);
    EXPECT_EQ(conversion->ConvertirNombreEnLettre(nullptr, &isAmount, text.out()), E_POINTER);
    EXPECT_EQ(conversion->ConvertirNombreEnLettre(&number, nullptr, text.out()), E_POINTER);
}

TEST(BySlot, TextsByReferenceComeBackThroughTheCodePage) {
    const auto conversion = component().create<Cls_Conversion, _Cls_Conversion>();
    Text source(L"a\u0416");
    Text target(L"##");
    short converted = 0;
    EXPECT_EQ(conversion->ConvertirOemAnsi(source.address(), target.address(), &converted), S_OK);
    EXPECT_EQ(source.str(), L"a?");
    EXPECT_EQ(target.str(), L"a?");
}

}  // namespace
}  // namespace tovera::client
