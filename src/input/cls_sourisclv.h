#pragma once

#include <array>

#include "frame/component.h"
#include "platform/input.h"
#include "platform/platform.h"

namespace tovera {

/// Mouse and keyboard, by the platform's own calls. A call that fails is told by `SourisPosition` alone.
///
/// On Linux these act on the X display. Without one, or under a Wayland session whose windows aren't X's,
/// positions are 0 and nothing is hidden, moved or swapped; the state of the keys is then a table of the
/// calling thread.
class Cls_SourisClv {
  public:
    explicit Cls_SourisClv(Platform& platform = home()) : platform_(platform) {}

    /// Raises the display count of the cursor by one. It is seen while the count isn't negative.
    void SourisAfficher();
    /// Lowers the count by one: hidden twice, the cursor has to be shown twice.
    void SourisMasquer();
    /// Puts the cursor there, in pixels from the left upper corner of the screen.
    void SourisPositionner(const I2& x, const I2& y);
    /// Swaps the left and the right button, for the whole display.
    void SourisBoutonInverser();
    /// Gives the buttons their own meaning back.
    void SourisBoutonOrigine();
    /// The number of mouse buttons; 0 without a mouse.
    I2 SourisNbsBouton();
    /// The time in milliseconds within which a second click makes a double click.
    I4 SourisDelaiDoubleClique();
    /// Gives the position of the cursor, in pixels, and nonzero. All three are 0 when it can't be had.
    I4 SourisPosition(I4& x, I4& y);

    /// Whether Caps Lock is on; False while the key is held down.
    VariantBool LireEtat_Shift();
    /// Whether Num Lock is on; False while the key is held down.
    VariantBool LireEtat_NumLock();
    /// Turns the state of a virtual key over, 0 to 255, in the table of the calling thread: on becomes off,
    /// all else becomes on. On Linux a lock key (20, 144, 145) is turned over for the whole display. Error 9
    /// for any other key.
    void ChangerEtat_Touche(const I4& lngVBKey);

  private:
    void readKeys();
    VariantBool isToggled(std::size_t key);

    Platform& platform_;
    std::array<UI1, keyCount> TabEtatClavier{};
};

}  // namespace tovera
