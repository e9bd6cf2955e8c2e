#include "frame/checked.h"
#include "frame/file_system.h"
#include "frame/upper_case.h"
#include "platform/screen_windows.h"
#include "platform/shell32.h"
#include "platform/system_facts.h"
#include "shell/cls_windows.h"

namespace tovera {
namespace {

constexpr std::size_t pathLength = 260;
constexpr std::size_t moduleNameLength = 255;
constexpr I4 anyNumber = -1;

struct VersionName {
    I4 platform, major, minor;
    std::u16string_view name;
};

/// The first row that fits is the version's.
constexpr std::array versionNames{
    VersionName{0, anyNumber, anyNumber, u"32s"},
    VersionName{1, anyNumber, 0, u"95"},
    VersionName{1, anyNumber, 90, u"ME"},
    VersionName{1, anyNumber, anyNumber, u"98"},
    VersionName{2, 3, 0, u"NT3"},
    VersionName{2, 3, 1, u"NT3.1"},
    VersionName{2, 3, 5, u"NT3.5"},
    VersionName{2, 3, 51, u"NT3.51"},
    VersionName{2, 4, anyNumber, u"NT 4"},
    VersionName{2, 5, 0, u"Win2000"},
    VersionName{2, 5, 1, u"WinXP"},
};

/// What `ExecuteFichier` says of a document that can't be opened; empty for a code without words.
std::u16string_view reasonOf(I4 code) {
    switch (code) {
        case findCodes::noAssociation:
            return u"no association";
        case findCodes::fileNotFound:
            return u"Fichier non trouvé";
        case findCodes::folderNotFound:
            return u"Répertoire non trouvé";
        case findCodes::badFormat:
            return u"Mauvais format";
        default:
            return {};
    }
}

}  // namespace

Bstr Cls_Windows::getWindowsVersion() {
    OsVersionInfo version;
    if (platform_.call(&SystemFacts::GetVersionExA, version) != 1) return {};
    const auto fits = [](I4 expected, I4 number) { return expected == anyNumber || expected == number; };
    const auto* const found = std::ranges::find_if(versionNames, [&](const VersionName& row) {
        return row.platform == version.dwPlatformId && fits(row.major, version.dwMajorVersion) &&
               fits(row.minor, version.dwMinorVersion);
    });
    return found == versionNames.end() ? Bstr() : Bstr(found->name);
}

Variant Cls_Windows::ExecuteFichier(const Bstr& FichierDestination) {
    auto& services = platform_.services;
    const FileSystem fileSystem(services);
    auto path = FichierDestination;
    const auto name = fileSystem.fileName(path);
    const auto folder = fileSystem.parentFolderName(path);
    FixedText<pathLength> program;
    const auto code = platform_.call(&Shell32::FindExecutableA, name, folder, program);
    if (code < findCodes::lastFailure) {
        const auto reason = reasonOf(code);
        return reason.empty() ? Variant() : Variant(Bstr(reason));
    }
    const auto end = program.view().find(u'\0');
    if (end == std::u16string_view::npos) return {};
    Variant result = join(left(program.view(), end), u" ", FichierDestination);
    services.launch(*result.as<Bstr>(), WindowStyle::MinimizedFocus);
    return result;
}

I2 Cls_Windows::LancerActiverApplication(Bstr& strTitreAppli, Optional<Bstr> strCheminAppli) {
    I2 result = 0;
    onFailure([&](const CurrentError&) { result = 0; },
              [&] {
                  const auto window = platform_.call(&ScreenWindows::FindWindowA, nullptr, strTitreAppli);
                  if (window > 0) {
                      result = 1;
                      platform_.call(&ScreenWindows::BringWindowToTop, window);
                      platform_.call(&ScreenWindows::SetActiveWindow, window);
                  } else if (!strCheminAppli->empty()) {
                      platform_.services.launch(*strCheminAppli, WindowStyle::NormalFocus);
                      result = 1;
                  }
              });
    return result;
}

Bstr Cls_Windows::TrouveExecutable(const Bstr& strNomFichier) {
    constexpr std::u16string_view nul(u"\0", 1);
    Bstr program = join(FixedText<pathLength>().view(), nul);
    const auto code =
        narrow<I2>(platform_.call(&Shell32::FindExecutableA, join(strNomFichier, nul), nullptr, program));
    return code > findCodes::lastFailure ? Bstr(beforeNul(program)) : Bstr();
}

VariantBool Cls_Windows::ModeDeveloppement() {
    const Bstr environment = u"VB6.EXE";
    FixedText<moduleNameLength> buffer(u'\0');
    const auto count =
        platform_.call(&SystemFacts::GetModuleFileNameA, platform_.services.facts().moduleHandle, buffer);
    const auto file = left(buffer.view(), static_cast<std::size_t>(count));
    return VariantBool(upperCase(right(file, environment.length())) == environment);
}

}  // namespace tovera
