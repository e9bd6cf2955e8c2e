#include "input/cls_sourisclv.h"

#include "frame/checked.h"

namespace tovera {
namespace {

constexpr I4 yes = -1;
constexpr I4 no = 0;

/// Virtual keys. The first is the one that is read in the name of Shift.
constexpr std::size_t capsLock = 20;
constexpr std::size_t numLock = 144;

constexpr UI1 toggled = 1;  ///< on, and not held down

}  // namespace

void Cls_SourisClv::SourisAfficher() {
    platform_.call(&Input::ShowCursor, yes);
}

void Cls_SourisClv::SourisMasquer() {
    platform_.call(&Input::ShowCursor, no);
}

void Cls_SourisClv::SourisPositionner(const I2& x, const I2& y) {
    platform_.call(&Input::SetCursorPos, I4{x}, I4{y});
}

void Cls_SourisClv::SourisBoutonInverser() {
    platform_.call(&Input::SwapMouseButton, yes);
}

void Cls_SourisClv::SourisBoutonOrigine() {
    platform_.call(&Input::SwapMouseButton, no);
}

I2 Cls_SourisClv::SourisNbsBouton() {
    return narrow<I2>(platform_.call(&Input::GetSystemMetrics, mouseButtonsMetric));
}

I4 Cls_SourisClv::SourisDelaiDoubleClique() {
    return platform_.call(&Input::GetDoubleClickTime);
}

I4 Cls_SourisClv::SourisPosition(I4& x, I4& y) {
    PointApi position;
    const I4 result = platform_.call(&Input::GetCursorPos, position);
    x = position.x;
    y = position.y;
    return result;
}

void Cls_SourisClv::readKeys() {
    platform_.call(&Input::GetKeyboardState, KeyStates(TabEtatClavier));
}

VariantBool Cls_SourisClv::isToggled(std::size_t key) {
    readKeys();
    return TabEtatClavier[key] == toggled ? True : False;
}

VariantBool Cls_SourisClv::LireEtat_Shift() {
    return isToggled(capsLock);
}

VariantBool Cls_SourisClv::LireEtat_NumLock() {
    return isToggled(numLock);
}

void Cls_SourisClv::ChangerEtat_Touche(const I4& lngVBKey) {
    readKeys();
    if (lngVBKey < 0 || lngVBKey >= static_cast<I4>(keyCount)) raise(ErrorNumber::SubscriptOutOfRange);
    auto& state = TabEtatClavier[static_cast<std::size_t>(lngVBKey)];
    state = state == toggled ? UI1{0} : toggled;
    platform_.call(&Input::SetKeyboardState, ConstKeyStates(TabEtatClavier));
}

}  // namespace tovera
