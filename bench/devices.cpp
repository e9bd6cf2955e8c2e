#include <cstdlib>

#include "input/cls_sourisclv.h"
#include "multimedia/cls_multimedia.h"
#include "peers/peers.h"
#include "platform/linux/screen/pointer.h"
#include "platform/sound.h"

using namespace tovera;

namespace bench {
namespace {

const Group devices([] {
    const auto typeOf = [](const char16_t* letter) {
        return loopOf([object = Cls_Multimedia(), letter = Bstr(letter)]() mutable {
            return object.TypePeripherique(letter);
        });
    };
    const Peer mounts{"mountinfo read once", loopIfInstalled(mountListRead)};
    std::vector<Row> rows{{"type of drive C", typeOf(u"C"), mounts, 0.67},
                          {"type of a drive that is looked for", typeOf(u"Y"), mounts, 0.67}};
    if (!hasDisplay()) return rows;
    rows.push_back({"position of the mouse",
                    loopOf([object = Cls_SourisClv()]() mutable {
                        I4 x = 0;
                        I4 y = 0;
                        return object.SourisPosition(x, y);
                    }),
                    {"xcb", loopIfInstalled(xcbPointer)},
                    0.77});
    rows.push_back({"table of the keys",
                    loopOf([object = Cls_SourisClv()]() mutable { return object.LireEtat_NumLock(); }),
                    {"xcb, the same requests", loopIfInstalled(xcbKeys)},
                    0.77});
    return rows;
});

/// BENCH_SOUND names a file that may be heard.
const Group sound([] {
    const char* const file = std::getenv("BENCH_SOUND");
    if (!file || homeSound().waveOutGetNumDevs() == 0) return std::vector<Row>{};
    const std::string path = file;
    return std::vector<Row>{
        {"open, play and close a sound",
         loopOf([object = Cls_Multimedia(), name = Bstr(std::u16string(path.begin(), path.end()))]() mutable {
             VariantBool playing = True;
             object.OuvrirMP3(name, playing);
             object.StopMP3();
             return True;
         }),
         {"GStreamer", loopIfInstalled(gStreamerPlay, path)},
         0.83}};
});

}  // namespace
}  // namespace bench
