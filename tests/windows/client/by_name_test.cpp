#include <cstring>
#include <limits>

#include "client/invocation.h"

// Late-bound calls with every kind of argument that hosts pass.
namespace tovera::client {
namespace {

struct ByName : ::testing::Test {
    Pointer<IDispatch> dates = Component::loaded().create<Cls_Date, IDispatch>();
    Pointer<IDispatch> math = Component::loaded().create<Cls_Math, IDispatch>();
    Pointer<IDispatch> conversion = Component::loaded().create<Cls_Conversion, IDispatch>();
    Pointer<IDispatch> translation = Component::loaded().create<Cls_Traduction, IDispatch>();
};

TEST_F(ByName, NamesOfMembersAndParameters) {
    expectResult(dates.get(), L"CHRONO", {1, 3}, 2);
    wchar_t member[] = L"Chrono";
    wchar_t parameter[] = L"arriveesec";
    wchar_t unknown[] = L"Inconnu";
    LPOLESTR names[] = {member, parameter, unknown};
    DISPID ids[3]{};
    EXPECT_EQ(dates->GetIDsOfNames(IID_NULL, names, 3, 0, ids), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(ids[1], 1);
    EXPECT_EQ(ids[2], DISPID_UNKNOWN);
    EXPECT_EQ(dates->GetIDsOfNames(IID_NULL, names + 2, 1, 0, ids), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(ids[0], DISPID_UNKNOWN);
    names[0] = nullptr;
    EXPECT_EQ(dates->GetIDsOfNames(IID_NULL, names, 1, 0, ids), E_INVALIDARG);
}

TEST_F(ByName, ArgumentsOfOtherTypesAreConverted) {
    long four = 4;
    short two = 2;
    Value text = L"4";
    Value held = Value::reference(VT_I4, &four);
    const std::vector<Argument> lists[] = {
        // clang-format off
        {1.4, L"2,6"}, {Value(), 2}, {Value::truth(true), 1}, {2, text.referred(VT_BSTR)},
        {Value::reference(VT_I2, &two), held.referred(VT_VARIANT)},
        {{L"ArriveeSec", 3}, {L"DepartSec", 1}}, {1, {L"ArriveeSec", 3}},
        // clang-format on
    };
    for (const auto& list : lists) expectResult(dates.get(), L"Chrono", list, 2);
}

TEST_F(ByName, ChangedVariablesKeepTheirType) {
    double number = 10;
    Value whole = 10;
    Value text = L"10";
    Value inner = Value::reference(VT_R8, &number);
    for (auto* any : {&whole, &text, &inner})
        expectResult(math.get(), L"MesurePrincipale", {any->referred(VT_VARIANT)}, -2.56F);
    EXPECT_NEAR(number, -2.56, 1e-12);
    EXPECT_EQ(inner.type(), VT_R8 | VT_BYREF);
    EXPECT_EQ(whole, Value(-2.56));
    EXPECT_EQ(text, Value(-2.56));
    CY money{.int64 = 100000};
    expectResult(math.get(), L"MesurePrincipale", {Value::reference(VT_CY, &money)}, -2.56F);
    EXPECT_EQ(money.int64, -25600);

    Value source = L"\u201A\u0416";  // an accented letter in the code page of the console, and one of no page
    Value target = L"####";
    expectResult(conversion.get(), L"ConvertirOemAnsi",
                 {source.referred(VT_BSTR), target.referred(VT_VARIANT)}, short{1});
    EXPECT_EQ(source, Value(L"‚?"));
    EXPECT_EQ(target, Value(std::wstring(L"é?\0#", 4)));
}

TEST_F(ByName, TypedVariablesAreWrittenThrough) {
    float angle = 100;
    short whole = 10;
    float huge = 1e30F;
    const auto reduced = [&](VARTYPE type, void* variable) {
        return invoke(math.get(), L"MesurePrincipale", {Value::reference(type, variable)}).result;
    };
    EXPECT_EQ(reduced(VT_R4, &angle), -0.4799898F);
    EXPECT_EQ(angle, -0.4799898F);
    EXPECT_EQ(reduced(VT_I2, &whole), -2.0F);
    EXPECT_EQ(whole, -2);
    reduced(VT_R4, &huge);
    EXPECT_TRUE(huge <= 3.14F && huge >= -3.14F);
}

TEST_F(ByName, LargeNumbersKeepAllDigitsInText) {
    Value whole = Value::of(VT_I8), positive = Value::of(VT_UI8), money = Value::of(VT_CY);
    whole.address()->llVal = std::numeric_limits<long long>::min();
    positive.address()->ullVal = std::numeric_limits<unsigned long long>::max();
    money.address()->cyVal.int64 = -9223372036854775807;
    Value decimal = Value::of(VT_DECIMAL);
    decimal.address()->decVal.Hi32 = 0xFFFFFFFF;
    decimal.address()->decVal.Lo64 = 0xFFFFFFFFFFFFFFFF;
    decimal.address()->decVal.scale = 10;
    const std::pair<Value*, const wchar_t*> rows[] = {
        {&whole, L"-9223372036854775808"},
        {&positive, L"18446744073709551615"},
        {&money, L"-922337203685477,5807"},
        {&decimal, L"7922816251426433759,3543950335"},
    };
    for (const auto& [number, text] : rows) {
        EXPECT_EQ(invoke(conversion.get(), L"IntituleMonnaie", {*number}, DISPATCH_PROPERTYPUT).status, S_OK);
        expectResult(conversion.get(), L"IntituleMonnaie", {}, text);
    }
}

TEST_F(ByName, ArraysOfTexts) {
    SAFEARRAY* none = nullptr;
    SAFEARRAY* integers = SafeArrayCreateVector(VT_I4, 0, 9);
    SAFEARRAY* texts = SafeArrayCreateVector(VT_BSTR, 0, 9);
    SAFEARRAY* unfilled = nullptr;  // has the bounds that it is to get, and no elements
    SafeArrayAllocDescriptorEx(VT_BSTR, 1, &unfilled);
    unfilled->rgsabound[0] = {1, 1};
    Value held = Value::reference(VT_ARRAY | VT_BSTR, &texts);
    const auto expectBound = [&](const Value& argument, HRESULT status, SAFEARRAY*& array, long bound) {
        const std::vector<Argument> arguments{L"C:\\aucun.lng", argument};
        EXPECT_EQ(invoke(translation.get(), L"Charger_TousLesMessages", arguments).status, status);
        long found = -1;
        SafeArrayGetUBound(array, 1, &found);
        EXPECT_EQ(found, bound);
        EXPECT_NE(array->pvData, nullptr);
        SafeArrayDestroy(array);
    };
    expectBound(Value::reference(VT_ARRAY | VT_BSTR, &none), S_OK, none, 1);
    expectBound(Value::reference(VT_ARRAY | VT_BSTR, &unfilled), S_OK, unfilled, 1);
    expectBound(held.referred(VT_VARIANT), S_OK, texts, 1);
    expectBound(Value::reference(VT_ARRAY | VT_I4, &integers), DISP_E_TYPEMISMATCH, integers, 8);
    for (const VARTYPE other : {VT_I4, VT_I8, VT_VARIANT}) {  // of a text's width in either bitness, and not
        SAFEARRAY* filled = SafeArrayCreateVector(other, 0, 9);
        if (other != VT_VARIANT) std::memset(filled->pvData, 1, 9 * sizeof(int));
        expectBound(Value::reference(VT_ARRAY | VT_BSTR, &filled), DISP_E_TYPEMISMATCH, filled, 8);
    }
}

TEST_F(ByName, WrongCountsNamesAndKindsAreRefused) {
    const struct {
        HRESULT status;
        std::vector<Argument> arguments;
        WORD kind = DISPATCH_METHOD;
    } rows[] = {
        // clang-format off
        {DISP_E_PARAMNOTFOUND, {1, {L"DepartSec", 3}}}, {DISP_E_PARAMNOTOPTIONAL, {{L"DepartSec", 3}}},
        {DISP_E_UNKNOWNNAME, {{L"Seconde", 3}, 2}}, {DISP_E_BADPARAMCOUNT, {1}}, {DISP_E_BADPARAMCOUNT, {1, 2, 3}},
        {DISP_E_PARAMNOTOPTIONAL, {1, Value::missing()}}, {DISP_E_MEMBERNOTFOUND, {1}, DISPATCH_PROPERTYPUT},
        // clang-format on
    };
    for (const auto& row : rows)
        EXPECT_EQ(invoke(dates.get(), L"Chrono", row.arguments, row.kind).status, row.status);
    const auto label = [&](Value value, int kind) {
        return invoke(conversion.get(), L"IntituleMonnaie", {value}, static_cast<WORD>(kind)).status;
    };
    EXPECT_EQ(label(L"x", DISPATCH_PROPERTYPUTREF), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(label(12, DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF), S_OK);
    expectResult(conversion.get(), L"IntituleMonnaie", {}, L"12");
    DISPPARAMS none{};
    const auto withoutPlaces = [&](DISPID id, REFIID reserved) {
        return dates->Invoke(id, reserved, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr);
    };
    EXPECT_EQ(withoutPlaces(0x12345, IID_NULL), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(withoutPlaces(0x60030003, IID_NULL), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(withoutPlaces(0x60030003, IID_IUnknown), DISP_E_UNKNOWNINTERFACE);
}

TEST_F(ByName, FailuresTellTheirRecordOrTheArgumentAtFault) {
    const auto mismatch = invoke(dates.get(), L"Chrono", {1, L"abc"});
    EXPECT_EQ(mismatch.status, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(mismatch.argumentAtFault, 0U) << "counted from the last";
    const auto overflow = invoke(dates.get(), L"Chrono", {1e10, 1});
    EXPECT_EQ(overflow.status, DISP_E_OVERFLOW);
    EXPECT_EQ(overflow.argumentAtFault, 1U);
    const auto failed = invoke(dates.get(), L"Chrono", {-2147483647, 2147483647});
    EXPECT_EQ(failed.status, DISP_E_EXCEPTION);
    EXPECT_EQ(static_cast<unsigned long>(failed.code), 0x800A0006UL);
    EXPECT_EQ(failed.description, Value(L"Dépassement de capacité"));
    EXPECT_EQ(failed.source, Value(L"KADRELDLL"));
    EXPECT_EQ(failed.result.type(), VT_EMPTY);
}

}  // namespace
}  // namespace tovera::client
