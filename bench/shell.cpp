#include <filesystem>
#include <memory>

#include "frame/number_text.h"
#include "peers/peers.h"
#include "platform/linux/shell/launch.h"
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

const Group paths(pathRows);
const Group launches(launchRows);

}  // namespace
}  // namespace bench
