#include "frame/number_text.h"
#include "frame/upper_case.h"
#include "platform/files.h"
#include "platform/setup_kit.h"
#include "shell/cls_windows.h"

namespace tovera {
namespace {

constexpr I4 startupFolder = 7;

/// The first link file of a folder whose name ends in the link's name, whatever the case; empty when none
/// does.
Bstr linkIn(Platform& platform, const Bstr& folder, const Bstr& linkName) {
    for (const auto& file : platform.call(&Files::filesLike, join(folder, u"\\*.lnk"))) {
        if (upperCase(right(file, linkName.length())) == upperCase(linkName)) return file;
        platform.services.pumpMessages();
    }
    return {};
}

void showError(Services& services, const CurrentError& error) {
    services.messageBox(join(numberToText(error.number), u"\r\n\r\n\r\n", error.description));
}

}  // namespace

void Cls_Windows::CreationRaccourci(Bstr& strNomDuRaccourci, Bstr& strPathCible, Optional<Bstr> strArgument,
                                    Optional<Bstr> strPlaceRaccourci) {
    auto& services = platform_.services;
    const auto handler = [&](const CurrentError& error) { showError(services, error); };
    onFailure(handler, [&] {
        const auto folder = services.facts().folder;
        platform_.call(&Files::changeFolder, folder);
        platform_.call(&SetupKit::fCreateShellLink, Bstr(u""), strNomDuRaccourci, strPathCible,
                       std::as_const(*strArgument));
        auto& place = *strPlaceRaccourci;
        if (place.empty()) place = GET_DossierSpecial(startupFolder);
        if (!place.view().ends_with(u'\\')) place = join(place, u"\\");
        const auto linkName = join(strNomDuRaccourci, u".lnk");
        const auto link = linkIn(platform_, folder, linkName);
        platform_.call(&Files::copy, link, join(place, linkName));
        platform_.call(&Files::remove, link);
    });
}

}  // namespace tovera
