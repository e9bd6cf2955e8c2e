#include "registry/cls_initreg.h"

namespace tovera {
namespace {

constexpr std::size_t bufferLength = 255;

/// What a file system object that is made for this one question answers.
VariantBool askFileSystem(Services& services, std::u16string_view question, Bstr& path) {
    const auto fileSystem = services.createObject(u"Scripting.FileSystemObject");
    const auto answer = callMember(fileSystem, question, Reference(&path));
    return VariantBool(static_cast<bool>(Conversions(services).to<VariantBool>(answer)));
}

}  // namespace

VariantBool Cls_InitREG::FichierExiste(Bstr& strCheminFichier) {
    return askFileSystem(platform_.services, u"FileExists", strCheminFichier);
}

VariantBool Cls_InitREG::DossierExiste(Bstr& strCheminDossier) {
    return askFileSystem(platform_.services, u"FolderExists", strCheminDossier);
}

Bstr Cls_InitREG::GET_NomLong(Bstr sShortFileName) {
    FixedText<bufferLength> buffer;
    const auto ask = [&](AnsiText& name, AnsiText& longName) {
        return platform_.kernel32.GetLongPathNameA(name, longName);
    };
    const auto count = StringCrossing(platform_.services).call(ask, sShortFileName, buffer.buffer());
    return left(buffer.view(), static_cast<std::size_t>(count));
}

Bstr Cls_InitREG::GET_NomCourt(Bstr sLongFileName) {
    FixedText<bufferLength> buffer;
    const auto ask = [&](AnsiText& name, AnsiText& shortName) {
        return platform_.kernel32.GetShortPathNameA(name, shortName);
    };
    const auto count = StringCrossing(platform_.services).call(ask, sLongFileName, buffer.buffer());
    return left(buffer.view(), static_cast<std::size_t>(count));
}

VariantBool Cls_InitREG::RenommerFichier(const Bstr& strPathFichierSRC, const Bstr& strPathFichierDEST) {
    VariantBool result;
    onFailure([&](const CurrentError&) { result = False; },
              [&] {
                  platform_.files.rename(strPathFichierSRC, strPathFichierDEST);
                  result = True;
              });
    return result;
}

}  // namespace tovera
