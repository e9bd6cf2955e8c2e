#include <fstream>

#include "platform/files.h"
#include "platform/setup_kit.h"
#include "platform/shell32.h"
#include "platform/system_facts.h"
#include "shell/class_table.h"
#include "support/named_calls.h"
#include "support/scripted_object.h"
#include "support/user_home.h"

namespace tovera::testing {
namespace {

/// The shell and the version of the system as a test wants them.
struct KnownShell : Shell32 {
    I4 FindExecutableA(const AnsiText& file, const AnsiText& directory, AnsiText& result) override {
        asked.push_back(file.bytes + '|' + (directory.isNull ? "none" : directory.bytes));
        room = result.bytes;
        if (findCode >= 32) result.bytes.replace(0, program.size(), program);
        return findCode;
    }
    ItemIdList SHBrowseForFolderA(const BrowseInfo& info) override {
        asked.push_back(info.lpszTitle.bytes + '|' + std::to_string(info.hOwner) + '|' +
                        std::to_string(info.ulFlags));
        return chosen;
    }
    I4 SHGetPathFromIDListA(const ItemIdList& list, AnsiText& path) override {
        room = path.bytes;
        if (list.isNull() || list.bytes == "virtual") return 0;
        path.bytes.replace(0, list.bytes.size() + 1, list.bytes.c_str(), list.bytes.size() + 1);
        return 1;
    }
    I4 SHGetSpecialFolderLocation(I4 owner, I4 folder, ItemIdList& list) override {
        if (owner != 0 || folder < 0 || folder > 2) return -1;
        list.bytes = std::array{"C:\\\xC9t\xE9", "D:\\", "virtual"}.at(static_cast<std::size_t>(folder));
        return 0;
    }
    I4 SHFileOperationA(const ShFileOpStruct& operation) override {
        EXPECT_EQ(std::tuple(operation.hwnd, operation.wFunc, operation.fFlags, operation.pTo.isNull),
                  std::tuple(0, 3, I2{0x40}, true));
        asked.push_back(operation.pFrom.bytes);
        return 5;  // nobody is told
    }
    std::vector<std::string> asked;
    std::string room, program = "C:\\prog.exe" + std::string(1, '\0');
    ItemIdList chosen;
    I4 findCode = 33;
};

struct KnownFacts : SystemFacts {
    I4 GetVersionExA(OsVersionInfo& version) override {
        EXPECT_EQ(version.dwOSVersionInfoSize, 148);
        std::tie(version.dwPlatformId, version.dwMajorVersion, version.dwMinorVersion) = numbers;
        return answer;
    }
    I4 GetModuleFileNameA(I4 module, AnsiText& buffer) override {
        EXPECT_EQ(module, 42);
        EXPECT_EQ(buffer.bytes, std::string(255, '\0'));
        buffer.bytes.replace(0, name.size(), name);
        return static_cast<I4>(name.size());
    }
    std::tuple<I4, I4, I4> numbers;
    I4 answer = 1;
    std::string name;
};

/// The kit, which makes the link where it is told to, among others.
struct KnownKit : SetupKit {
    I4 fCreateShellLink(const AnsiText& folder, const AnsiText& name, const AnsiText& target,
                        const AnsiText& arguments) override {
        asked = folder.bytes + '|' + name.bytes + '|' + target.bytes + '|' + arguments.bytes;
        for (const auto& file : made) std::ofstream(file, std::ios::binary) << "link";
        return 0;
    }
    std::vector<std::string> made;
    std::string asked;
};

struct Shell : UserHome {
    Bstr call(std::u16string_view member, const Bstr& argument) {
        std::vector<Variant> arguments{argument};
        return *invokeMember(objectOn<Cls_Windows>(ours), member, CallKind::Method, arguments).as<Bstr>();
    }
    KnownShell shell;
    KnownFacts facts;
    KnownKit kit;
    Platform ours = platform.with(shell).with(facts).with(kit);
    Cls_Windows object{ours};
};

TEST_F(Shell, VersionsByTheirNumbers) {
    const std::tuple<std::tuple<I4, I4, I4>, const char16_t*> rows[] = {
        {{0, 9, 9}, u"32s"},     {{1, 4, 0}, u"95"},  {{1, 4, 90}, u"ME"},   {{1, 4, 10}, u"98"},
        {{1, 9, 77}, u"98"},     {{2, 3, 0}, u"NT3"}, {{2, 3, 1}, u"NT3.1"}, {{2, 3, 5}, u"NT3.5"},
        {{2, 3, 51}, u"NT3.51"}, {{2, 3, 9}, u""},    {{2, 4, 77}, u"NT 4"}, {{2, 5, 0}, u"Win2000"},
        {{2, 5, 1}, u"WinXP"},   {{2, 5, 2}, u""},    {{2, 6, 1}, u""},      {{3, 4, 0}, u""},
        {{-1, 4, 0}, u""}};
    for (const auto& [numbers, name] : rows) {
        facts.numbers = numbers;
        expectCall(objectOn<Cls_Windows>(ours), gives(Bstr(name), u"getWindowsVersion"));
    }
    facts.numbers = {1, 4, 0};
    facts.answer = 0;
    EXPECT_EQ(object.getWindowsVersion(), u"");
}

TEST_F(Shell, TheModuleOfTheDevelopmentEnvironment) {
    services.componentFacts.moduleHandle = 42;
    for (const auto& [name, expected] : {std::pair("C:\\VB\\vb6.Exe", True), std::pair("VB6.EXE", True),
                                         std::pair("B6.EXE", False), std::pair("C:\\TOVERA.dll", False)}) {
        facts.name = name;
        expectCall(objectOn<Cls_Windows>(ours), gives(expected, u"ModeDeveloppement"));
    }
}

TEST_F(Shell, DocumentsByTheirProgram) {
    const auto line = Variant(u"C:\\prog.exe C:\\D\u00E9p\u00F4t\\a b.txt");
    const Bstr document = u"C:\\D\u00E9p\u00F4t\\a b.txt";
    const std::tuple<I4, Variant> rows[] = {{31, u"no association"},
                                            {2, u"Fichier non trouv\u00E9"},
                                            {3, u"R\u00E9pertoire non trouv\u00E9"},
                                            {11, u"Mauvais format"},
                                            {5, Empty()},
                                            {-1, Empty()},
                                            {32, line},
                                            {33, line}};
    EXPECT_CALL(services, launch(*line.as<Bstr>(), WindowStyle::MinimizedFocus)).Times(2);
    for (const auto& [code, result] : rows) {
        shell.findCode = code;
        expectCall(objectOn<Cls_Windows>(ours), gives(result, u"ExecuteFichier", document));
    }
    EXPECT_EQ(shell.asked.back(), "a b.txt|C:\\D\xE9p\xF4t");
    EXPECT_EQ(shell.room, std::string(260, ' '));
    shell.program = "C:\\no end";
    expectCall(objectOn<Cls_Windows>(ours), gives(Empty(), u"ExecuteFichier", u"seul.txt"));
    EXPECT_EQ(shell.asked.back(), "seul.txt|");
    EXPECT_CALL(services, createObject).WillOnce([](auto) -> ObjectRef {
        raise(ErrorNumber::CannotCreateObject);
    });
    EXPECT_EQ(errorOf([&] { object.ExecuteFichier(u"a"); }), 429);
}

TEST_F(Shell, ProgramOfADocument) {
    for (const auto& [code, path] :
         {std::pair(33, u"C:\\prog.exe"), std::pair(32, u""), std::pair(31, u"")}) {
        shell.findCode = code;
        expectCall(objectOn<Cls_Windows>(ours), gives(Bstr(path), u"TrouveExecutable", u"a.txt"));
    }
    EXPECT_EQ(shell.asked.back(), std::string("a.txt\0|none", 11));
    EXPECT_EQ(shell.room, std::string(260, ' ') + '\0');
    shell.findCode = 40000;
    EXPECT_EQ(errorOf([&] { object.TrouveExecutable(u"a.txt"); }), 6);
}

TEST_F(Shell, PartsOfAPath) {
    struct Row {
        std::u16string_view path, drive, folder, name, extension;
    };
    const Row rows[] = {
        {u"C:\\Temp\\Sous\\fichier.txt", u"C:", u"\\Temp\\Sous\\", u"fichier", u".TXT"},
        {u"C:\\fichier.txt", u"C:", u"\\", u"fichier", u".TXT"},
        {u"fichier.txt", u"", u"", u"fichier", u".TXT"},
        {u"C:\\dossier\\", u"C:", u"\\dossier\\", u"", u""},
        {u"C:\\Docs.old\\a.tar.gz", u"C:", u"\\Docs.old\\", u"a", u".TAR.GZ"},
        {u"C:\\Docs.old\\lisezmoi", u"C:", u"\\Docs.old\\", u"lisezmoi", u""},
        {u"abc\\def", u"ab", u"\\", u"def", u""},
        {u"2\\x", u"2\\", u"\\", u"x", u""},
        {u"\\", u"\\", u"\\", u"", u""},
        {u"\\\\poste\\partage\\doc.txt", u"\\\\", u"\\\\poste\\partage\\", u"doc", u".TXT"},
        {u"C:fichier.txt", u"", u"", u"fichier", u".TXT"},
        {u"a:b:c.\u00E9\u0153\u00FF\u00DF\u00F7\u017E", u"", u"", u"b:c",
         u".\u00C9\u0152\u0178\u00DF\u00F7\u017D"},
        {u"", u"", u"", u"", u""},
    };
    for (const auto& [path, drive, folder, name, extension] : rows) {
        for (I2 mask = 0; mask < 32; ++mask) {
            const auto part = [mask](int bit, std::u16string_view text) {
                return (mask & bit) != 0 ? text : std::u16string_view();
            };
            EXPECT_EQ(object.GET_NomFichier(path, mask),
                      join(part(1, drive), part(2, folder), part(4, name), part(8, extension)));
        }
        EXPECT_EQ(call(u"GET_ExtentionFichier", path), Bstr(extension));
    }
    expectCall(objectOn<Cls_Windows>(ours), gives(u"a.TXT", u"GET_NomFichier", u"C:\\a.txt", I2{12}));
    const std::u16string most(20, u'\\');
    const auto partsOf = [&](const std::u16string& path) { object.GET_NomFichier(path, 15); };
    EXPECT_EQ(errorOf([&] { partsOf(most); }), 0);
    EXPECT_EQ(errorOf([&] { partsOf(most + u'\\'); }), 9);
    EXPECT_EQ(errorOf([&] { partsOf(std::u16string(32766, u'x') + u"\\" + most.substr(1)); }), 6);
    EXPECT_EQ(errorOf([&] { partsOf(std::u16string(32766, u'x') + u"\\y"); }), 0);
}

TEST_F(Shell, NameBehindTheLastBackslash) {
    for (const auto& [path, name] : {std::pair(u"C:\\a\\b.txt", u"b.txt"), std::pair(u"b.txt", u""),
                                     std::pair(u"C:\\dossier\\", u""), std::pair(u"", u"")}) {
        for (const auto withExtension : {True, False})
            expectCall(objectOn<Cls_Windows>(ours),
                       gives(Bstr(name), u"GetNomFichier_DuChemin", path, withExtension));
        EXPECT_EQ(call(u"GetNomFichier_DuChemin", path), Bstr(name));
    }
    const auto nameOf = [&](std::size_t length) {
        object.GetNomFichier_DuChemin(std::u16string(length, u'x'), {});
    };
    EXPECT_EQ(errorOf([&] { nameOf(32767); }), 0);
    EXPECT_EQ(errorOf([&] { nameOf(32768); }), 6);
}

TEST_F(Shell, FolderThatTheUserChooses) {
    const auto form = makeObject<Scripted>(Scripted::Members{{u"hWnd", Variant(u"77")}});
    expectCall(objectOn<Cls_Windows>(ours), gives(u"", u"ParcourirDossier", form, u"\u00C9t\u00E9 ?"));
    EXPECT_EQ(shell.asked.back(), "\xC9t\xE9 ?|77|1");
    EXPECT_EQ(shell.room, std::string(512, ' '));
    shell.chosen.bytes = "C:\\un dossier";
    expectCall(objectOn<Cls_Windows>(ours), gives(u"C:\\un dossier", u"ParcourirDossier", form, u""));
    const auto control = makeObject<Scripted>(Scripted::Members{});
    expectCall(objectOn<Cls_Windows>(ours), fails(438, u"ParcourirDossier", control, u""));
    expectCall(objectOn<Cls_Windows>(ours), fails(91, u"ParcourirDossier", ObjectRef(), u""));
}

TEST_F(Shell, SpecialFoldersEndInABackslash) {
    const std::pair<I4, const char16_t*> rows[] = {
        {0, u"C:\\\u00C9t\u00E9\\"}, {1, u"D:\\\\"}, {2, u""}, {3, u""}, {-1, u""}};
    for (const auto& [number, path] : rows)
        expectCall(objectOn<Cls_Windows>(ours), gives(Bstr(path), u"GET_DossierSpecial", number));
    EXPECT_EQ(shell.room, std::string(260, ' '));
    auto real = home().with(services);
    expectCall(objectOn<Cls_Windows>(real), gives(Bstr(windowsFolder), u"GET_DossierWindows"));
    expectCall(objectOn<Cls_Windows>(real), gives(Bstr(systemFolder), u"GET_DossierSysteme"));
}

TEST_F(Shell, WhatExistsGoesToTheBin) {
    files.makeFile("dossier/un fichier");
    for (const auto* path : {u"", u"C:\\aucun", u"C:\\dossier\\un fichier", u"C:\\dossier"})
        expectCall(objectOn<Cls_Windows>(ours), gives(Empty(), u"Effacer_FichierDossier", path));
    EXPECT_EQ(shell.asked,
              (std::vector{std::string("C:\\dossier\\un fichier\0", 22), std::string("C:\\dossier\0", 11)}))
        << "the entry point's own NUL comes behind";
    ON_CALL(services, createObject).WillByDefault([](auto) -> ObjectRef {
        raise(ErrorNumber::CannotCreateObject);
    });
    EXPECT_EQ(errorOf([&] { object.Effacer_FichierDossier(u""); }), 429);
}

TEST_F(Shell, LinesAreAddedToAFile) {
    files.makeFile("dossier/x");
    const std::pair<const char16_t*, const char16_t*> lines[] = {
        {u"C:\\neuf.txt", u""},          {u"C:\\neuf.txt", u"\u00C9t\u00E9 \u0416"},
        {u"C:\\neuf.txt", u"a\rb"},      {u"", u"perdu"},
        {u"C:\\aucun\\x.txt", u"perdu"}, {u"C:\\dossier", u"perdu"}};
    for (const auto& [path, text] : lines)
        expectCall(objectOn<Cls_Windows>(ours), gives(Empty(), u"EcritAjoutDansFichier", path, text));
    EXPECT_EQ(files.textOf("neuf.txt"), "\r\n\xC9t\xE9 J\r\na\rb\r\n");
}

struct Shortcut : Shell {
    Shortcut() {
        files.makeFile("place/x");
        files.makeFile("composant/x");
        services.componentFacts.folder = u"C:\\composant";
        kit.made = {"x.txt", "Autre.lnk", "xMON lien.LNK"};
        ON_CALL(services, pumpMessages).WillByDefault([this] { ++pumps; });
    }
    int pumps = 0;
};

TEST_F(Shortcut, IsMadeInTheComponentsFolderAndMoved) {
    Bstr place = u"C:\\place";
    Bstr arguments = u"/a \u00E9";
    Bstr name = u"Mon lien";
    Bstr target = u"C:\\prog.exe";
    object.CreationRaccourci(name, target, arguments, place);
    EXPECT_EQ(kit.asked, "|Mon lien|C:\\prog.exe|/a \xE9");
    EXPECT_EQ(place, u"C:\\place\\");
    EXPECT_EQ(files.textOf("place/Mon lien.lnk"), "link");
    EXPECT_TRUE(services.boxes.empty());
    const auto exists = [&](const char* name) { return std::filesystem::exists(files.onC(name)); };
    EXPECT_TRUE(exists("composant/Autre.lnk"));
    EXPECT_FALSE(exists("composant/xMON lien.LNK"));
    EXPECT_EQ(std::filesystem::current_path(), std::filesystem::path(files.onC("composant")));
    files.makeFile("place/Mon lien.lnk", "an older one");
    object.CreationRaccourci(name, target, {}, place);
    EXPECT_EQ(files.textOf("place/Mon lien.lnk"), "link");
    EXPECT_EQ(place, u"C:\\place\\");
    EXPECT_LE(pumps, 2);
}

TEST_F(Shortcut, FailuresAreShownAndNotRaised) {
    Bstr place;
    Bstr arguments;
    const auto make = [&](const char16_t* name) {
        expectCall(objectOn<Cls_Windows>(ours), gives(Empty(), u"CreationRaccourci", name, u"C:\\prog.exe",
                                                      Reference(&arguments), Reference(&place)));
        return std::exchange(services.boxes, {});
    };
    const auto boxOf = [](ErrorNumber error) {
        const auto number = static_cast<I4>(error);
        return std::vector{ShownBox{
            join(fromUtf8(std::to_string(number)), u"\r\n\r\n\r\n", descriptionOf(number)), 0, u"HoldDLL"}};
    };
    EXPECT_EQ(make(u"absent"), boxOf(ErrorNumber::PathAccess)) << "nothing to copy";
    EXPECT_EQ(place, u"\\") << "no Startup folder here";
    place = u"C:\\aucune";
    EXPECT_EQ(make(u"Mon lien"), boxOf(ErrorNumber::PathNotFound));
    EXPECT_EQ(place, u"C:\\aucune\\");
    services.componentFacts.folder = u"C:\\aucun composant";
    EXPECT_EQ(make(u"Mon lien"), boxOf(ErrorNumber::PathNotFound));
}

TEST_F(Shell, TableNamesEveryMember) {
    EXPECT_EQ(describe<Cls_Windows>().members.size(), 50U);
}

}  // namespace
}  // namespace tovera::testing
