#include <cstdlib>
#include <filesystem>
#include <memory>
#include <thread>

#include "frame/number_text.h"
#include "peers/peers.h"
#include "platform/linux/shell/launch.h"
#include "platform/linux/shell/shared_timer.h"
#include "platform/timers.h"
#include "shell/cls_windows.h"

using namespace tovera;

namespace bench {
namespace {

constexpr I2 allParts = 15;

/// The same parts by the standard library, which knows slashes alone here.
std::string partsByStandardLibrary(const std::string& text) {
    const std::filesystem::path path(text);
    auto extension = path.extension().string();
    for (auto& c : extension) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return path.parent_path().string() + '/' + path.stem().string() + extension;
}

std::vector<Row> pathRows() {
    const auto object = std::make_shared<Cls_Windows>();
    const auto ours = [&] {
        return loopOf([object, path = Bstr(u"C:\\Documents\\Sous dossier\\un fichier.txt")] {
            return object->GET_NomFichier(path, allParts);
        });
    };
    const auto standard = loopOf([path = std::string("/Documents/Sous dossier/un fichier.txt")] {
        return partsByStandardLibrary(path);
    });
    return {
        {"GET_NomFichier, all parts", ours(), {"std::filesystem::path", standard}, 2},
        {"GET_NomFichier, all parts",
         ours(),
         {"QFileInfo", loopIfInstalled(qtPathParts, std::string("/Documents/Sous dossier/un fichier.txt"))},
         2}};
}

std::vector<Row> launchRows() {
    return {{"launch a program",
             loopOf([] { return launchCommand("/bin/true"); }),
             {"g_spawn_async", loopIfInstalled(glibSpawn, std::string("/bin/true"))},
             1},
            {"special folder of the user",
             loopOf([object = std::make_shared<Cls_Windows>()] { return object->GET_DossierSpecial(0); }),
             {"GLib, its cache renewed", loopIfInstalled(glibSpecialFolder)}}};
}

/// A wait for a timer of two milliseconds, which is what `Wait` does with its seconds.
std::vector<Row> waitRows() {
    constexpr auto span = std::chrono::milliseconds(2);
    constexpr std::int64_t unitsOfSpan = 20'000;
    const auto ours = [] {
        auto& timers = homeTimers();
        const auto timer = timers.CreateWaitableTimerA(-1, {"bench"});
        timers.SetWaitableTimer(timer, FileTime::ofCount(-unitsOfSpan), 0, 0);
        const auto result = timers.MsgWaitForMultipleObjects(1, timer, 0, -1, 255);
        timers.CloseHandle(timer);
        return result;
    };
    return {{"wait for 2 ms",
             loopOf(ours),
             {"nanosleep", loopOf([span] {
                  std::this_thread::sleep_for(span);
                  return 0;
              })},
             0.9}};
}

const Group paths(pathRows);
const Group launches(launchRows);
const Group waits(waitRows);

}  // namespace
}  // namespace bench
