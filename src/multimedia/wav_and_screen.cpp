#include "frame/ascii_case.h"
#include "frame/checked.h"
#include "multimedia/cls_multimedia.h"
#include "platform/files.h"

namespace tovera {
namespace {

/// The low half of the sample rate, where a WAV file has it: counted from 1, as in the run-time's files.
constexpr I4 rateOffset = 25;

bool isNamedWav(std::u16string_view path) {
    return isWord(right(path, 3), u"wav");
}

I2 pixels(I4 twips, I4 twipsPerPixel) {
    if (twipsPerPixel == 0) raise(ErrorNumber::DivisionByZero);
    return narrow<I2>(twips / twipsPerPixel);
}

}  // namespace

I2 Cls_Multimedia::FrequenceFichierWAV(const Bstr& CheminFichierWAV) {
    if (!isNamedWav(CheminFichierWAV)) return 0;
    I2 rate = 0;
    platform_.call(&Files::readI2, CheminFichierWAV, rateOffset, rate);
    return rate;
}

I2 Cls_Multimedia::ResolutionEcranX() {
    const auto screen = platform_.services.screen();
    return pixels(screen.screenWidthTwips, screen.twipsPerPixelX);
}

I2 Cls_Multimedia::ResolutionEcranY() {
    const auto screen = platform_.services.screen();
    return pixels(screen.screenHeightTwips, screen.twipsPerPixelY);
}

}  // namespace tovera
