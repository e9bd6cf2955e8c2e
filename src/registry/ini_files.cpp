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

Bstr folderFrom(const Platform& platform, I4 (Kernel32::*entryPoint)(AnsiText&)) {
    FixedText<bufferLength> buffer;
    const auto ask = [&](AnsiText& folder) { return (platform.kernel32.*entryPoint)(folder); };
    const auto count = StringCrossing(platform.services).call(ask, buffer.buffer());
    return filled(buffer, count);
}

}  // namespace

I4 Cls_InitREG::IniEcrire(Bstr& strSection, Bstr& strRubrique, Bstr& strChaîneAEcrire, Bstr& strFich) {
    const auto write = [&](AnsiText& section, AnsiText& key, AnsiText& value, AnsiText& file) {
        return platform_.kernel32.WritePrivateProfileStringA(section, key, value, file);
    };
    return StringCrossing(platform_.services).call(write, strSection, strRubrique, strChaîneAEcrire, strFich);
}

Bstr Cls_InitREG::IniLire(Bstr& strSection, Bstr& strRubrique, Bstr& strChaîneDéf, Bstr& strFich) {
    Bstr result;
    const auto handler = [](const CurrentError&) {
        throw AutomationError(readFailure, u"", join(componentTitle, readFailureSource));
    };
    onFailure(handler, [&] {
        FixedText<bufferLength> buffer;
        const auto read = [&](AnsiText& section, AnsiText& key, AnsiText& defaultValue, AnsiText& filledIn,
                              AnsiText& file) {
            return platform_.kernel32.GetPrivateProfileStringA(section, key, defaultValue, filledIn, file);
        };
        const auto count = StringCrossing(platform_.services)
                               .call(read, strSection, strRubrique, strChaîneDéf, buffer.buffer(), strFich);
        result = filled(buffer, count);
    });
    return result;
}

I4 Cls_InitREG::WinIniEcrire(Bstr& strSection, Bstr& strRubrique, Bstr& strChaîne) {
    const auto write = [&](AnsiText& section, AnsiText& key, AnsiText& value) {
        return platform_.kernel32.WriteProfileStringA(section, key, value);
    };
    return StringCrossing(platform_.services).call(write, strSection, strRubrique, strChaîne);
}

Bstr Cls_InitREG::WinIniLire(Bstr& strSection, Bstr& strRubrique, Bstr& strChaîneDéf) {
    FixedText<bufferLength> buffer;
    const auto read = [&](AnsiText& section, AnsiText& key, AnsiText& defaultValue, AnsiText& filledIn) {
        return platform_.kernel32.GetProfileStringA(section, key, defaultValue, filledIn);
    };
    const auto count =
        StringCrossing(platform_.services).call(read, strSection, strRubrique, strChaîneDéf, buffer.buffer());
    return filled(buffer, count);
}

Bstr Cls_InitREG::RetourneCheminSystem() {
    return folderFrom(platform_, &Kernel32::GetSystemDirectoryA);
}

Bstr Cls_InitREG::RetourneCheminWindows() {
    return folderFrom(platform_, &Kernel32::GetWindowsDirectoryA);
}

}  // namespace tovera
