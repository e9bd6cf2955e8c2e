#include "boxes/box_recorder.h"
#include "client/invocation.h"

// The message boxes that users see, with their titles and icons.
namespace tovera::client {
namespace {

TEST(MessageBoxes, TypedNumberRefused) {
    const auto conversion = Component::loaded().create<Cls_Conversion, IDispatch>();
    const BoxRecorder boxes;
    expectResult(conversion.get(), L"Ctrl_SaiseNombre", {L"12 euros"}, L"");
    const auto* const text =
        L"Vous ne pouvez saisir que des chiffres, si vous voulez que la conversion fonctionne.";
    EXPECT_EQ(boxes.shown(), std::vector({ShownBox{L"Erreur", text, 64}}));
}

TEST(MessageBoxes, KeyPathRefused) {
    const auto registry = Component::loaded().create<Cls_InitREG, IDispatch>();
    const BoxRecorder boxes;
    expectResult(registry.get(), L"LireREG_DWORD", {L"HKEY_USERS\\", L"x"}, {});
    EXPECT_EQ(boxes.shown(), std::vector({ShownBox{L"HoldDLL", L"Incorrect Format:\n\nHKEY_USERS\\", 0}}));
}

}  // namespace
}  // namespace tovera::client
