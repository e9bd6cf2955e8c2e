#include "platform/file_names.h"

#include "frame/file_system.h"
#include "platform/files.h"
#include "registry/cls_initreg.h"

namespace tovera {
namespace {

constexpr std::size_t bufferLength = 255;

/// The form of a name that an entry point gives.
Bstr formOf(const Platform& platform, Bstr& name, I4 (FileNames::*entryPoint)(const AnsiText&, AnsiText&)) {
    FixedText<bufferLength> buffer;
    const auto count = platform.call(entryPoint, name, buffer);
    return left(buffer.view(), static_cast<std::size_t>(count));
}

}  // namespace

VariantBool Cls_InitREG::FichierExiste(Bstr& strCheminFichier) {
    return VariantBool(FileSystem(platform_.services).fileExists(strCheminFichier));
}

VariantBool Cls_InitREG::DossierExiste(Bstr& strCheminDossier) {
    return VariantBool(FileSystem(platform_.services).folderExists(strCheminDossier));
}

Bstr Cls_InitREG::GET_NomLong(Bstr sShortFileName) {
    return formOf(platform_, sShortFileName, &FileNames::GetLongPathNameA);
}

Bstr Cls_InitREG::GET_NomCourt(Bstr sLongFileName) {
    return formOf(platform_, sLongFileName, &FileNames::GetShortPathNameA);
}

VariantBool Cls_InitREG::RenommerFichier(const Bstr& strPathFichierSRC, const Bstr& strPathFichierDEST) {
    VariantBool result;
    onFailure([&](const CurrentError&) { result = False; },
              [&] {
                  platform_.call(&Files::rename, strPathFichierSRC, strPathFichierDEST);
                  result = True;
              });
    return result;
}

}  // namespace tovera
