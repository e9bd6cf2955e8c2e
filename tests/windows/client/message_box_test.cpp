#include "boxes/box_recorder.h"
#include "client/invocation.h"

// The message boxes that users see, with their titles and icons.
namespace tovera::client {
namespace {

TEST(MessageBoxes, TypedNumberRefused) {
    const auto conversion = Component::loaded().create<Cls_Conversion, IDispatch>();
    const BoxRecorder boxes;
    expectResult(conversion.get(), L"Ctrl_SaiseNombre", {L"12 euros"}, L"");
    const ShownBox expected{
        L"Erreur", L"Vous ne pouvez saisir que des chiffres, si vous voulez que la conversion fonctionne.",
        64};
    EXPECT_EQ(boxes.shown(), std::vector{expected});
}

TEST(MessageBoxes, KeyPathRefused) {
    const auto registry = Component::loaded().create<Cls_InitREG, IDispatch>();
    for (const auto* path : {L"hkey_users\\a", L"HKEY_USERS\\", L""}) {
        const BoxRecorder boxes;
        Value variable = path;
        expectResult(registry.get(), L"LireREG_DWORD",
                     {Value::reference(VT_VARIANT, variable.address()), L"x"}, {});
        const ShownBox expected{L"HoldDLL", std::wstring(L"Incorrect Format:\n\n") + path, 0};
        EXPECT_EQ(boxes.shown(), std::vector{expected});
        EXPECT_EQ(variable, Value(path));
    }
    const BoxRecorder boxes;
    expectResult(registry.get(), L"EcritureREG_Software_RepInstall", {L"Produit\\", L"C:\\"},
                 L"Ecriture dans HKEY_CURRENT_USER\\Software\\Produit\\");
    EXPECT_EQ(boxes.shown().size(), 2U);
}

}  // namespace
}  // namespace tovera::client
