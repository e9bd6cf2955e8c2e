#include "client/invocation.h"

// Late-bound calls with every kind of argument that hosts pass.
namespace tovera::client {
namespace {

struct ByName : ::testing::Test {
    Pointer<IDispatch> dates = Component::loaded().create<Cls_Date, IDispatch>();
    Pointer<IDispatch> math = Component::loaded().create<Cls_Math, IDispatch>();
    Pointer<IDispatch> conversion = Component::loaded().create<Cls_Conversion, IDispatch>();
    Pointer<IDispatch> registry = Component::loaded().create<Cls_InitREG, IDispatch>();
};

TEST_F(ByName, NamesAreFoundWithoutRegardToCase) {
    expectResult(dates.get(), L"CHRONO", {1, 3}, 2);
    wchar_t member[] = L"Chrono";
    wchar_t parameter[] = L"arriveesec";
    wchar_t unknown[] = L"Inconnu";
    LPOLESTR names[] = {member, parameter, unknown};
    DISPID ids[3]{};
    EXPECT_EQ(dates->GetIDsOfNames(IID_NULL, names, 3, 0, ids), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(ids[1], 1);
    EXPECT_EQ(ids[2], DISPID_UNKNOWN);
    EXPECT_EQ(dates->GetIDsOfNames(IID_NULL, names, 2, 0, ids), S_OK);
    LPOLESTR none[] = {unknown};
    EXPECT_EQ(dates->GetIDsOfNames(IID_NULL, none, 1, 0, ids), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(ids[0], DISPID_UNKNOWN);
}

TEST_F(ByName, ArgumentsOfOtherTypesAreConverted) {
    const Value expected = 2;
    expectResult(dates.get(), L"Chrono", {1.4, L"3"}, expected);
    expectResult(dates.get(), L"Chrono", {Value(), 2}, expected);
    expectResult(dates.get(), L"Chrono", {Value::truth(true), 1}, expected);
    long four = 4;
    short two = 2;
    Value held = Value::reference(VT_I4, &four);
    expectResult(dates.get(), L"Chrono",
                 {Value::reference(VT_I2, &two), Value::reference(VT_VARIANT, held.address())}, expected);
    const Text text(L"4");
    BSTR string = text.get();
    expectResult(dates.get(), L"Chrono", {2, Value::reference(VT_BSTR, &string)}, expected);
}

TEST_F(ByName, ChangedVariablesKeepTheirType) {
    const auto reduce = [&](const Value& argument) {
        expectResult(math.get(), L"MesurePrincipale", {argument}, Value(-2.56F));
    };
    double number = 10;
    reduce(Value::reference(VT_R8, &number));
    EXPECT_NEAR(number, -2.56, 1e-12);
    Value any = 10;
    reduce(Value::reference(VT_VARIANT, any.address()));
    ASSERT_EQ(any.type(), VT_R8);
    EXPECT_NEAR(any.get().dblVal, -2.56, 1e-12);
    number = 10;
    any = Value::reference(VT_R8, &number);  // a reference within a variable
    reduce(Value::reference(VT_VARIANT, any.address()));
    EXPECT_NEAR(number, -2.56, 1e-12);
    EXPECT_EQ(any.type(), VT_R8 | VT_BYREF);
    any = L"10";
    reduce(Value::reference(VT_VARIANT, any.address()));
    EXPECT_EQ(any.type(), VT_R8);
}

TEST_F(ByName, TextVariablesComeBack) {
    Text path(L"HKEY_CURRENT_USER\\Software\\TOVERA");
    EXPECT_EQ(
        invoke(registry.get(), L"LireREG_DWORD", {Value::reference(VT_BSTR, path.address()), L"x"}).status,
        S_OK);
    EXPECT_EQ(path.str(), L"Software\\TOVERA");
    Value any = L"HKEY_CURRENT_USER\\Software\\TOVERA";
    EXPECT_EQ(
        invoke(registry.get(), L"LireREG_DWORD", {Value::reference(VT_VARIANT, any.address()), L"x"}).status,
        S_OK);
    EXPECT_EQ(any, Value(L"Software\\TOVERA"));
    Value byValue = L"HKEY_CURRENT_USER\\Software\\TOVERA";
    EXPECT_EQ(invoke(registry.get(), L"LireREG_DWORD", {byValue, L"x"}).status, S_OK);
    EXPECT_EQ(byValue, Value(L"HKEY_CURRENT_USER\\Software\\TOVERA"));
}

TEST_F(ByName, ArraysOfTexts) {
    const auto translation = Component::loaded().create<Cls_Traduction, IDispatch>();
    SAFEARRAY* messages = nullptr;
    const auto load = [&](const Value& argument) {
        return invoke(translation.get(), L"Charger_TousLesMessages", {L"C:\\aucun.lng", argument}).status;
    };
    const auto upper = [&] {
        long bound = -1;
        SafeArrayGetUBound(messages, 1, &bound);
        return bound;
    };
    EXPECT_EQ(load(Value::reference(VT_ARRAY | VT_BSTR, &messages)), S_OK);
    EXPECT_EQ(upper(), 1);
    SafeArrayDestroy(messages);
    messages = SafeArrayCreateVector(VT_BSTR, 0, 9);
    Value held = Value::reference(VT_ARRAY | VT_BSTR, &messages);
    EXPECT_EQ(load(Value::reference(VT_VARIANT, held.address())), S_OK);
    EXPECT_EQ(upper(), 1);
    SafeArrayDestroy(messages);
    messages = SafeArrayCreateVector(VT_I4, 0, 9);
    EXPECT_EQ(load(Value::reference(VT_ARRAY | VT_I4, &messages)), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(upper(), 8);
    SafeArrayDestroy(messages);
}

TEST_F(ByName, NamedArguments) {
    expectResult(dates.get(), L"Chrono", {{L"ArriveeSec", 3}, {L"DepartSec", 1}}, 2);
    expectResult(dates.get(), L"Chrono", {1, {L"ArriveeSec", 3}}, 2);
    EXPECT_EQ(invoke(dates.get(), L"Chrono", {1, {L"DepartSec", 3}}).status, DISP_E_PARAMNOTFOUND);
    EXPECT_EQ(invoke(dates.get(), L"Chrono", {{L"DepartSec", 3}}).status, DISP_E_PARAMNOTOPTIONAL);
    EXPECT_EQ(invoke(dates.get(), L"Chrono", {{L"Seconde", 3}, 2}).status, DISP_E_UNKNOWNNAME);
}

TEST_F(ByName, CountsAndKinds) {
    EXPECT_EQ(invoke(dates.get(), L"Chrono", {1}).status, DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(invoke(dates.get(), L"Chrono", {1, 2, 3}).status, DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(invoke(dates.get(), L"Chrono", {1, Value::missing()}).status, DISP_E_PARAMNOTOPTIONAL);
    EXPECT_EQ(invoke(dates.get(), L"Chrono", {1}, DISPATCH_PROPERTYPUT).status, DISP_E_MEMBERNOTFOUND);
    expectResult(conversion.get(), L"IntituleMonnaie", {}, L"");
    for (const WORD kind :
         {WORD{DISPATCH_PROPERTYPUT}, WORD{DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF}}) {
        const auto label = kind == DISPATCH_PROPERTYPUT ? L"euro" : L"livre";
        EXPECT_EQ(invoke(conversion.get(), L"IntituleMonnaie", {label}, kind).status, S_OK);
        expectResult(conversion.get(), L"IntituleMonnaie", {}, label);
    }
    EXPECT_EQ(invoke(conversion.get(), L"IntituleMonnaie", {L"x"}, DISPATCH_PROPERTYPUTREF).status,
              DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(invoke(conversion.get(), L"IntituleMonnaie", {12}, DISPATCH_PROPERTYPUT).status, S_OK);
    expectResult(conversion.get(), L"IntituleMonnaie", {}, L"12");
    VARIANT result;
    VariantInit(&result);
    DISPPARAMS none{};
    EXPECT_EQ(dates->Invoke(0x12345, IID_NULL, 0, DISPATCH_METHOD, &none, &result, nullptr, nullptr),
              DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(dates->Invoke(0x12345, IID_IUnknown, 0, DISPATCH_METHOD, &none, &result, nullptr, nullptr),
              DISP_E_UNKNOWNINTERFACE);
}

TEST_F(ByName, FailuresTellTheirRecordOrTheArgumentAtFault) {
    auto call = invoke(dates.get(), L"Chrono", {1, L"abc"});
    EXPECT_EQ(call.status, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(call.argumentAtFault, 0U) << "counted from the last";
    call = invoke(dates.get(), L"Chrono", {1e10, 1});
    EXPECT_EQ(call.status, DISP_E_OVERFLOW);
    EXPECT_EQ(call.argumentAtFault, 1U);
    call = invoke(dates.get(), L"Chrono", {-2147483647, 2147483647});
    EXPECT_EQ(call.status, DISP_E_EXCEPTION);
    EXPECT_EQ(static_cast<unsigned long>(call.code), 0x800A0006UL);
    EXPECT_EQ(utf8(call.description), "Dépassement de capacité");
    EXPECT_EQ(call.source, L"KADRELDLL");
    EXPECT_EQ(call.result.type(), VT_EMPTY);
    EXPECT_EQ(invoke(dates.get(), L"NBJoursOuvrables", {Value::null(), 1}).status, DISP_E_EXCEPTION);
    DISPPARAMS none{};
    wchar_t member[] = L"SecondeEnHeure";
    LPOLESTR name = member;
    DISPID id = 0;
    dates->GetIDsOfNames(IID_NULL, &name, 1, 0, &id);
    EXPECT_EQ(dates->Invoke(id, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
              DISP_E_BADPARAMCOUNT)
        << "without any place to tell more";
}

}  // namespace
}  // namespace tovera::client
