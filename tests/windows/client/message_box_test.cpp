#include "boxes/message_box.h"

#include "client/invocation.h"

// The message boxes that users see, with their titles and icons.
namespace tovera::client {
namespace {

std::vector<ShownBox> shown;
HWND answered = nullptr;

/// Answers a message box of this thread from within its own message loop.
void CALLBACK answer(HWND, UINT, UINT_PTR, DWORD) {
    const HWND box = findMessageBox();
    if (!box || box == answered) return;
    answered = box;
    shown.push_back(read(box));
    accept(box);
}

TEST(MessageBoxes, OfRefusedNumbersKeyPathsAndAddresses) {
    const auto timer = SetTimer(nullptr, 0, 20, answer);
    const auto conversion = Component::loaded().create<Cls_Conversion, IDispatch>();
    const auto registry = Component::loaded().create<Cls_InitREG, IDispatch>();
    expectResult(conversion.get(), L"Ctrl_SaiseNombre", {L"12 euros"}, L"");
    expectResult(registry.get(), L"LireREG_DWORD", {L"HKEY_USERS\\", L"x"}, {});
    const auto internet = Component::loaded().create<Cls_Internet, IDispatch>();
    expectResult(internet.get(), L"GetHostNameFromIP", {L"poste-de-test"}, L"");
    KillTimer(nullptr, timer);
    const auto* const text =
        L"Vous ne pouvez saisir que des chiffres, si vous voulez que la conversion fonctionne.";
    EXPECT_EQ(shown, std::vector({ShownBox{L"Erreur", text, 64},
                                  ShownBox{L"HoldDLL", L"Incorrect Format:\n\nHKEY_USERS\\", 0},
                                  ShownBox{L"ERROR", L"String passed is an invalid IP.", 0}}));
}

}  // namespace
}  // namespace tovera::client
