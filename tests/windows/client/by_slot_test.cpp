#include "client/component.h"

// Early-bound calls through the header that clients get: what a failing slot tells, null addresses, and what
// comes back in variables.
namespace tovera::client {
namespace {

struct BySlot : ::testing::Test {
    /// The code of a failure, and the record of the thread with description, source and interface.
    static void expectFailure(HRESULT status, int number, const wchar_t* description, REFIID interfaceId) {
        EXPECT_EQ(static_cast<unsigned long>(status), 0x800A0000UL + static_cast<unsigned long>(number));
        Pointer<IErrorInfo> record;
        ASSERT_EQ(GetErrorInfo(0, record.out()), S_OK);
        Value text, source;
        GUID failed{};
        record->GetDescription(text.textOut());
        record->GetSource(source.textOut());
        record->GetGUID(&failed);
        EXPECT_EQ(text, Value(description));
        EXPECT_EQ(source, Value(L"KADRELDLL"));
        EXPECT_TRUE(IsEqualGUID(failed, interfaceId));
    }

    const Component& component = Component::loaded();
    Pointer<_Cls_Date> dates = component.create<Cls_Date, _Cls_Date>();
    Pointer<_Cls_Math> math = component.create<Cls_Math, _Cls_Math>();
    Pointer<_Cls_Conversion> conversion = component.create<Cls_Conversion, _Cls_Conversion>();
    double number = 0.996;
    VARIANT_BOOL isAmount = VARIANT_FALSE;
    DATE date = 7;
};

TEST_F(BySlot, FailuresLeaveDefaultsAndARecord) {
    Value notAYear = L"abc";
    expectFailure(dates->Paques(notAYear.address(), &date), 13, L"Type incompatible", __uuidof(_Cls_Date));
    EXPECT_EQ(date, 0);
    auto* words = reinterpret_cast<BSTR>(1);
    expectFailure(conversion->ConvertirNombreEnLettre(&number, &isAmount, &words), 9,
                  L"Indice hors des limites", __uuidof(_Cls_Conversion));
    EXPECT_EQ(words, nullptr);
    VARIANT one = Value(1).get();
    VARIANT result;
    result.vt = VT_DISPATCH;  // whatever stood there isn't looked at
    expectFailure(math->AngleTrigo(&one, &one, &one, &one, &result), 6, L"Dépassement de capacité",
                  __uuidof(_Cls_Math));
    EXPECT_EQ(result.vt, VT_EMPTY);
    EXPECT_EQ(math->Hypothenuse(&one, &one, &one, &one, &result), S_OK) << "usable after a failure";
}

TEST_F(BySlot, NullAddressesAreRefusedAndNullTextsAreEmpty) {
    Value text;
    BSTR words = nullptr;
    EXPECT_EQ(dates->Chrono(1, 2, nullptr), E_POINTER);
    EXPECT_EQ(dates->Paques(nullptr, &date), E_POINTER);
    EXPECT_EQ(conversion->put_IntituleMonnaie(nullptr), E_POINTER);
    EXPECT_EQ(conversion->ConvertirNombreEnLettre(&number, &isAmount, &words) & 0xFFFF, 9);
    words = reinterpret_cast<BSTR>(1);
    EXPECT_EQ(conversion->ConvertirNombreEnLettre(&number, nullptr, &words), E_POINTER);
    EXPECT_EQ(words, nullptr);
    Pointer<IErrorInfo> record;
    EXPECT_EQ(GetErrorInfo(0, record.out()), S_FALSE) << "none of an earlier failure";
    Value none = Value::of(VT_BSTR);
    EXPECT_EQ(conversion->Ctrl_SaiseNombre(none.textAddress(), text.textOut()), S_OK);
    EXPECT_EQ(text, Value(L""));
}

TEST_F(BySlot, AVariablePassedTwiceIsOneVariable) {
    const auto registry = component.create<Cls_InitREG, _Cls_InitREG>();
    const Value path = L"HKEY_CURRENT_USER\\Software\\TOVERA client";
    Value made = path, written = path, read = path, name = L"Software\\TOVERA client", result;
    EXPECT_EQ(registry->CreerREG_Cle(made.textAddress(), result.out()), S_OK);
    auto* const all = written.textAddress();
    EXPECT_EQ(registry->EcrireREG_STRING(all, all, all, result.out()), S_OK);
    EXPECT_EQ(registry->LireREG_STRING(read.textAddress(), name.textAddress(), result.out()), S_OK);
    EXPECT_EQ(result, Value(L"Software\\TOVERA client")) << "the path was cut when name and text were read";
}

}  // namespace
}  // namespace tovera::client
