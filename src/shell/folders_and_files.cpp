#include "frame/file_system.h"
#include "platform/files.h"
#include "platform/shell32.h"
#include "platform/system_facts.h"
#include "shell/cls_windows.h"

namespace tovera {
namespace {

constexpr std::size_t pathLength = 260;
constexpr std::size_t chosenPathLength = 512;

Bstr folderFrom(const Platform& platform, I4 (SystemFacts::*entryPoint)(AnsiText&)) {
    FixedText<pathLength> buffer(u'\0');
    const auto count = platform.call(entryPoint, buffer);
    return left(buffer.view(), static_cast<std::size_t>(count));
}

}  // namespace

Bstr Cls_Windows::ParcourirDossier(const ObjectRef& NomForme, const Bstr& strTITRE) {
    auto& services = platform_.services;
    BrowseInfo asked;
    asked.hOwner = Conversions(services).to<I4>(readMember(NomForme, u"hwnd"));
    asked.lpszTitle = AnsiCopy(services, strTITRE).text();
    asked.ulFlags = shellFlags::onlyFileSystemFolders;
    const auto chosen = platform_.call(&Shell32::SHBrowseForFolderA, asked);
    FixedText<chosenPathLength> path;
    if (platform_.call(&Shell32::SHGetPathFromIDListA, chosen, path) == 0) return {};
    return beforeNul(path.view());
}

Variant Cls_Windows::Effacer_FichierDossier(const Bstr& strPath) {
    const FileSystem fileSystem(platform_.services);
    if (strPath.empty()) return {};
    auto path = strPath;
    if (!fileSystem.fileExists(path) && !fileSystem.folderExists(path)) return {};
    ShFileOpStruct operation;
    operation.wFunc = shellFlags::deleteFiles;
    operation.pFrom = AnsiCopy(platform_.services, join(strPath, std::u16string_view(u"\0", 1))).text();
    operation.fFlags = shellFlags::allowUndo;
    platform_.call(&Shell32::SHFileOperationA, operation);
    return {};
}

void Cls_Windows::EcritAjoutDansFichier(const Bstr& strPathFichier, const Bstr& strTxtAEcrire) {
    onFailure([](const CurrentError&) {},
              [&] {
                  if (strPathFichier.empty()) return;
                  const auto line = platform_.services.toAnsi(join(strTxtAEcrire, u"\r\n"));
                  platform_.call(&Files::append, strPathFichier, std::string_view(line));
              });
}

Bstr Cls_Windows::GET_DossierSpecial(const I4& CSIDL) {
    ItemIdList place;
    if (platform_.call(&Shell32::SHGetSpecialFolderLocation, 0, CSIDL, place) != 0) return {};
    FixedText<pathLength> path;
    if (platform_.call(&Shell32::SHGetPathFromIDListA, place, path) == 0) return {};
    return join(beforeNul(path.view()), u"\\");
}

Bstr Cls_Windows::GET_DossierWindows() {
    return folderFrom(platform_, &SystemFacts::GetWindowsDirectoryA);
}

Bstr Cls_Windows::GET_DossierSysteme() {
    return folderFrom(platform_, &SystemFacts::GetSystemDirectoryA);
}

}  // namespace tovera
