#include "platform/profiles.h"
#include "platform/system_facts.h"
#include "registry/cls_initreg.h"

namespace tovera {
namespace {

constexpr std::size_t bufferLength = 255;
constexpr auto readFailure = static_cast<ReturnCode>(static_cast<I4>(0x80040000U + 65000U));
constexpr std::u16string_view readFailureSource = u".clsInit!IniLire";

/// The part of a buffer that an entry point says it filled.
Bstr filled(const FixedText<bufferLength>& buffer, I4 count) {
    return left(buffer.view(), static_cast<std::size_t>(count));
}

Bstr folderFrom(const Platform& platform, I4 (SystemFacts::*entryPoint)(AnsiText&)) {
    FixedText<bufferLength> buffer;
    const auto count = platform.call(entryPoint, buffer);
    return filled(buffer, count);
}

}  // namespace

I4 Cls_InitREG::IniEcrire(Bstr& strSection, Bstr& strRubrique, Bstr& strChaîneAEcrire, Bstr& strFich) {
    return platform_.call(&Profiles::WritePrivateProfileStringA, strSection, strRubrique, strChaîneAEcrire,
                          strFich);
}

Bstr Cls_InitREG::IniLire(Bstr& strSection, Bstr& strRubrique, Bstr& strChaîneDéf, Bstr& strFich) {
    Bstr result;
    const auto handler = [](const CurrentError&) {
        throw AutomationError(readFailure, u"", join(componentTitle, readFailureSource));
    };
    onFailure(handler, [&] {
        FixedText<bufferLength> buffer;
        const auto count = platform_.call(&Profiles::GetPrivateProfileStringA, strSection, strRubrique,
                                          strChaîneDéf, buffer, strFich);
        result = filled(buffer, count);
    });
    return result;
}

I4 Cls_InitREG::WinIniEcrire(Bstr& strSection, Bstr& strRubrique, Bstr& strChaîne) {
    return platform_.call(&Profiles::WriteProfileStringA, strSection, strRubrique, strChaîne);
}

Bstr Cls_InitREG::WinIniLire(Bstr& strSection, Bstr& strRubrique, Bstr& strChaîneDéf) {
    FixedText<bufferLength> buffer;
    const auto count =
        platform_.call(&Profiles::GetProfileStringA, strSection, strRubrique, strChaîneDéf, buffer);
    return filled(buffer, count);
}

Bstr Cls_InitREG::RetourneCheminSystem() {
    return folderFrom(platform_, &SystemFacts::GetSystemDirectoryA);
}

Bstr Cls_InitREG::RetourneCheminWindows() {
    return folderFrom(platform_, &SystemFacts::GetWindowsDirectoryA);
}

}  // namespace tovera
