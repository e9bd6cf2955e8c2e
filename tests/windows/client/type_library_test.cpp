#include <algorithm>
#include <cstring>
#include <fstream>
#include <iterator>
#include <regex>
#include <tuple>

#include "client/library.h"

// The embedded type library against the reference pages, and what these don't tell: identities and flags.
namespace tovera::client {
namespace {

TEST(TypeLibrary, Facts) {
    const Library library;
    Value name, help;
    library->GetDocumentation(-1, name.textOut(), help.textOut(), nullptr, nullptr);
    EXPECT_EQ(name, Value(L"KADRELDLL"));
    EXPECT_EQ(help, Value(L"KADREL..INI REG WINDOWS WAIT"));
    const auto& attributes = library.attributes();
    EXPECT_TRUE(attributes.wMajorVerNum == 1 && attributes.wMinorVerNum == 0);
    EXPECT_EQ(attributes.lcid, 0U);
    EXPECT_EQ(attributes.syskind, sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32);

    // The resource's own fields: signature, and the locale that no interface tells.
    const HMODULE module = Component::loaded().module();
    const HRSRC resource = FindResourceW(module, MAKEINTRESOURCEW(1), L"TYPELIB");
    ASSERT_NE(resource, nullptr);
    DWORD header[5]{};
    std::memcpy(header, LockResource(LoadResource(module, resource)), sizeof header);
    EXPECT_EQ(header[0], 0x5446534DU);
    EXPECT_EQ(header[3], 1033U);
    EXPECT_EQ(header[4], 0U);
}

void expectInterface(ITypeInfo* info) {
    constexpr WORD flags =
        TYPEFLAG_FDUAL | TYPEFLAG_FNONEXTENSIBLE | TYPEFLAG_FHIDDEN | TYPEFLAG_FDISPATCHABLE;
    EXPECT_EQ(attributesOf(info).typekind, TKIND_DISPATCH);
    EXPECT_EQ(attributesOf(info).wTypeFlags & ~TYPEFLAG_FOLEAUTOMATION, flags);
    EXPECT_EQ(attributesOf(dualSide(info).get()).wTypeFlags, flags | TYPEFLAG_FOLEAUTOMATION);
}

void expectClass(ITypeInfo* info, const std::string& name) {
    EXPECT_EQ(attributesOf(info).typekind, TKIND_COCLASS);
    EXPECT_EQ(attributesOf(info).wTypeFlags, TYPEFLAG_FCANCREATE);
    ASSERT_EQ(attributesOf(info).cImplTypes, 1);
    int kind = 0;
    HREFTYPE reference = 0;
    Pointer<ITypeInfo> implemented;
    info->GetImplTypeFlags(0, &kind);
    EXPECT_EQ(kind, IMPLTYPEFLAG_FDEFAULT);
    info->GetRefTypeOfImplType(0, &reference);
    info->GetRefTypeInfo(reference, implemented.out());
    EXPECT_EQ(documentationOf(implemented.get()).name, "_" + name);
    EXPECT_EQ(documentationOf(implemented.get()).help, documentationOf(info).help);
}

/// What a reference page says that the type library tells as well: the class, the signatures of its members
/// and behind them, between stars, the help strings.
std::string pageOf(const std::string& name) {
    std::ifstream file(TOVERA_ROOT "/docs/reference/" + name + ".md", std::ios::binary);
    std::string page;
    bool isTranscript = false, isHelp = false, helpMayFollow = false;
    for (std::string line; std::getline(file, line);) {
        isTranscript ^= line.starts_with("```");
        const bool isSignature = line.starts_with("- `");
        const bool isHead = line.starts_with("#") || line.starts_with("ProgID ");
        isHelp = isHelp || (helpMayFollow && line.starts_with("*"));
        if (!isTranscript && (isSignature || isHead || isHelp)) page += line + "\n";
        if (!line.empty()) helpMayFollow = isSignature;
        isHelp = isHelp && !line.ends_with("*");
    }
    return std::regex_replace(page, std::regex(" = \\w+: "), " = : ");
}

std::string signatureOf(const Member& member) {
    std::string list;
    for (const auto& parameter : member.parameters) {
        list += (list.empty() ? "" : "; ") + parameter.name + ": " + typeName(parameter.type);
        list += std::string(parameter.byReference ? " by reference" : "") +
                (parameter.optional ? ", optional" : "");
    }
    const auto result = member.result ? ": " + typeName(member.result) : "";
    switch (member.kind) {
        case INVOKE_PROPERTYGET:
            return member.name + result + ", read";
        case INVOKE_PROPERTYPUT:
            return member.name + " = " + list + ", write";
        case INVOKE_PROPERTYPUTREF:
            return member.name + " = " + list + ", assign by reference";
        default:
            return member.name + "(" + list + ")" + result;
    }
}

std::string inStars(const std::string& help) {
    const auto text = std::regex_replace(help, std::regex("^\\s+|\\s+$"), "");
    return "*" + text + "*";
}

/// The same as the type library tells it. The slots of a property share one help string.
std::string toldOf(ITypeInfo* coclass, ITypeInfo* slots) {
    const auto [name, help] = documentationOf(coclass);
    auto page =
        "# " + name + "\nProgID `KADRELDLL." + name + "`" + (help.empty() ? "" : ": " + inStars(help)) + "\n";
    std::string last, helpOfLast;
    const auto endLast = [&] { page += helpOfLast.empty() ? "" : inStars(helpOfLast) + "\n"; };
    for (const auto& member : membersOf(slots)) {
        if (member.name != last) {
            endLast();
            page += "## " + member.name + "\n";
            last = member.name;
            helpOfLast.clear();
        }
        page += "- `" + signatureOf(member) + "`\n";
        if (helpOfLast.empty()) helpOfLast = member.help;
    }
    endLast();
    return page;
}

TEST(TypeLibrary, ClassesAreThoseOfTheReference) {
    const Library library;
    for (unsigned i = 0; i < publishedNames.size(); ++i) {
        const auto& name = publishedNames[i];
        SCOPED_TRACE(name);
        const auto info = library.at(i + 1);
        ASSERT_TRUE(info);
        if (name.starts_with("_")) expectInterface(info.get());
        if (!name.starts_with("Cls_")) continue;
        expectClass(info.get(), name);
        EXPECT_EQ(pageOf(name), toldOf(info.get(), dualSide(library.at(i).get()).get()));
    }
}

TEST(TypeLibrary, HoldsExactlyWhatIsPublished) {
    const Library library;
    EXPECT_EQ(library->GetTypeInfoCount(), 27U);
    ASSERT_EQ(publishedNames.size(), 27U);
    std::vector<std::string> names;
    for (unsigned distance = 1; const auto info = library.at(distance); ++distance)
        names.push_back(documentationOf(info.get()).name);
    EXPECT_EQ(names, publishedNames) << "28 identities in a row, with the library's own";
    const std::tuple<const char*, std::size_t, const char*> classes[] = {
        {"_Cls_InitREG", 22,
         "Ecrire/Lire dans le Registre, dans les fichiers INI, obtenir les répertoires Windows\\System"},
        {"_Cls_Windows", 50, "Affichage des objets du panneau de controle Windows, Wait..."},
        {"_Cls_Traduction", 5, "Sauvegarde et chargement des paramètres de la langue dans un fichier"},
        {"_Cls_Internet", 14, "Adresse IP, nom d'hote, téléchargement de fichiers..."},
        {"_Cls_Date", 8, ""},
        {"_Cls_SQL", 2, ""},
        {"_Cls_Cryptage", 12, ""},
        {"_Cls_Conversion", 7, ""},
        {"_Cls_Multimedia", 18, ""},
        {"_Cls_Math", 5, ""},
        {"_Cls_SourisClv", 11, ""}};
    std::size_t members = 0;
    for (const auto& [name, count, help] : classes) {
        const auto place = std::ranges::find(names, name) - names.begin();
        const auto info = library.at(static_cast<unsigned>(place) + 1);
        ASSERT_TRUE(info) << name;
        EXPECT_EQ(documentationOf(info.get()).help, help);
        EXPECT_EQ(membersOf(dualSide(info.get()).get()).size(), count) << name;
        members += count;
    }
    EXPECT_EQ(members, 154U);
}

/// A record as its size and its fields with their offsets.
std::string layoutOf(ITypeInfo* info) {
    const auto attributes = attributesOf(info);
    EXPECT_EQ(attributes.typekind, TKIND_RECORD);
    auto layout = std::to_string(attributes.cbSizeInstance) + " bytes";
    for (UINT i = 0; i < attributes.cVars; ++i) {
        VARDESC* field = nullptr;
        EXPECT_EQ(info->GetVarDesc(i, &field), S_OK);
        const auto& type = field->elemdescVar.tdesc;
        Pointer<ITypeInfo> record;
        if (type.vt == VT_USERDEFINED) info->GetRefTypeInfo(type.hreftype, record.out());
        layout += ", " + std::to_string(field->oInst) + " " + documentationOf(info, field->memid).name + " " +
                  (record ? documentationOf(record.get()).name : typeName(typeOf(type)));
        info->ReleaseVarDesc(field);
    }
    return layout;
}

TEST(TypeLibrary, Records) {
    // A text takes the width of a reference.
    const std::string layoutsOf32[] = {
        "32 bytes, 0 hOwner I4, 4 pidlRoot I4, 8 pszDisplayName BSTR, 12 lpszTitle BSTR, 16 ulFlags I4, "
        "20 lpfn I4, 24 lParam I4, 28 iImage I4",
        "8 bytes, 0 x I4, 4 y I4",
        "8 bytes, 0 cb I4, 4 abID UI1",
        "8 bytes, 0 mkid SHITEMID",
        "28 bytes, 0 hwnd I4, 4 wFunc I4, 8 pFrom BSTR, 12 pTo BSTR, 16 fFlags I2, "
        "18 fAnyOperationsAborted VARIANT_BOOL, 20 hNameMappings I4, 24 lpszProgressTitle BSTR",
    };
    const std::string layoutsOf64[] = {
        "40 bytes, 0 hOwner I4, 4 pidlRoot I4, 8 pszDisplayName BSTR, 16 lpszTitle BSTR, 24 ulFlags I4, "
        "28 lpfn I4, 32 lParam I4, 36 iImage I4",
        layoutsOf32[1],
        layoutsOf32[2],
        layoutsOf32[3],
        "40 bytes, 0 hwnd I4, 4 wFunc I4, 8 pFrom BSTR, 16 pTo BSTR, 24 fFlags I2, "
        "26 fAnyOperationsAborted VARIANT_BOOL, 28 hNameMappings I4, 32 lpszProgressTitle BSTR",
    };
    const auto& layouts = sizeof(void*) == 8 ? layoutsOf64 : layoutsOf32;
    const Library library;
    const auto* const help = "Affichage des objets du panneau de controle Windows, Wait...";
    for (unsigned distance = 5; const auto& layout : layouts) {
        const auto info = library.at(distance++);
        ASSERT_TRUE(info);
        EXPECT_EQ(layoutOf(info.get()), layout);
        EXPECT_EQ(documentationOf(info.get()).help, help);
    }
}

}  // namespace
}  // namespace tovera::client
