#include <gtest/gtest.h>

#include "registry/class_table.h"
#include "support/named_calls.h"
#include "support/scripted_object.h"
#include "support/user_home.h"

namespace tovera::testing {
namespace {

/// A member that works on the key of its first argument, and the arguments behind that.
struct Operation {
    std::u16string_view member;
    std::vector<Variant> further;
    Variant refused;  ///< its result for a key that can't be opened
};

const std::vector<Operation> operations{{u"CreerREG_Cle", {}, {}},
                                        {u"EcrireREG_DWORD", {u"v", I4{0x0101012A}}, {}},
                                        {u"EcrireREG_STRING", {u"v", u"caf\u00E9\u4E2D"}, {}},
                                        {u"EcrireREG_BINARY", {u"v", u"a\u00FF"}, {}},
                                        {u"LireREG_DWORD", {u"v"}, u"Error"},
                                        {u"LireREG_STRING", {u"v"}, u"Error"},
                                        {u"LireREG_BINARY", {u"v"}, u"Error"},
                                        {u"EffaceREG_CLE", {}, {}}};

struct RegistryAccess : UserHomeWithStore {
    ObjectRef registry = objectOn<Cls_InitREG>(platform);
    Bstr path;

    Variant run(const Operation& operation, std::u16string_view on = u"HKEY_CURRENT_USER\\A\\B") {
        path = on;
        std::vector<Variant> arguments{Reference(&path)};
        std::ranges::copy(operation.further, std::back_inserter(arguments));
        return invokeMember(registry, operation.member, CallKind::Method, arguments);
    }
    void TearDown() override { EXPECT_EQ(user.registry.leftOpen, 0); }
};

TEST_F(RegistryAccess, writesCutThePathAndLeaveTheKeyClosed) {
    const std::pair<I4, std::string> written[] = {{0, ""},
                                                  {valueTypes::dword, "\x2A\x01\x01\x01"},
                                                  {valueTypes::text, "caf\xE9?"},
                                                  {valueTypes::binary, "a\xFF"}};
    for (std::size_t i = 0; i < std::size(written); ++i) {
        EXPECT_EQ(run(operations[i]), Variant());
        EXPECT_EQ(path, Bstr(u"A\\B"));
        if (i == 0) continue;
        EXPECT_EQ(user.read("A\\B", "v"), 0);
        EXPECT_STREQ(user.data.c_str(), written[i].second.c_str());  // Windows ends a text with a NUL
        EXPECT_EQ(user.type, written[i].first);
    }
    run(operations.back());
    EXPECT_FALSE(user.has("A\\B"));
    for (const auto& operation : operations) {
        const bool makes = operation.member == u"CreerREG_Cle";
        EXPECT_EQ(run(operation, makes ? u"HKEY_CURRENT_USER\\\\A" : u"HKEY_CURRENT_USER\\A\\B"),
                  operation.refused);
        EXPECT_FALSE(user.has("A\\B"));
    }
    const auto deletions = user.registry.deletions;
    run(operations.back(), u"HKEY_CURRENT_USER");  // the root is opened, and never deleted
    EXPECT_EQ(user.registry.deletions, deletions);
    EXPECT_EQ(path, Bstr(u""));
}

TEST_F(RegistryAccess, pathsThatLeadNowhereTouchNothing) {
    const std::tuple<std::u16string_view, const char16_t*, bool> rows[] = {
        {u"", u"", true},
        {u"hkey_current_user\\A", u"hkey_current_user\\A", true},
        {u"HKEY_CURRENT_USER\\", u"HKEY_CURRENT_USER\\", true},
        {u"HKEY_NONE\\A\\B", u"A\\B", false},
        {u"HKEY_current_user\\A\\B", u"A\\B", false},
        {u"HKEY_", u"", false}};
    for (const auto& operation : operations) {
        run(operations.back());  // from then on the object has accepted a path
        for (const auto& [nowhere, after, isMalformed] : rows) {
            EXPECT_EQ(run(operation, nowhere), Variant());
            EXPECT_EQ(path, Bstr(after));
            const ShownBox box{join(u"Incorrect Format:\n\n", nowhere), 0, u"HoldDLL"};
            EXPECT_EQ(std::exchange(services.boxes, {}), std::vector(isMalformed ? 1U : 0U, box));
        }
        EXPECT_FALSE(user.has("A\\B"));
    }
}

TEST_F(RegistryAccess, binaryValuesThatCannotBeWritten) {
    user.create("A\\B");
    EXPECT_EQ(errorOf([&] { run({u"EcrireREG_BINARY", {u"v", u""}, {}}); }), 9);
    EXPECT_EQ(errorOf([&] { run({u"EcrireREG_BINARY", {u"v", u"a\u3042"}, {}}); }), 6);
    EXPECT_EQ(user.read("A\\B", "v"), 2);
}

TEST_F(RegistryAccess, readsGiveWhatIsStored) {
    const auto *dword = u"LireREG_DWORD", *text = u"LireREG_STRING", *binary = u"LireREG_BINARY";
    const Variant none = u"Error";
    const std::tuple<const char16_t*, std::string, Variant, I4> rows[] = {
        {dword, "\xFF\xFF\xFF\xFF", I4{-1}, 0},
        {dword, "\x01\x02", static_cast<I4>(0xFFFF0201U), 0},  // the last one shines through
        {dword, "", static_cast<I4>(0xFFFF0201U), 0},
        {dword, "12345", none, 0},
        {text, "  deux  ", u"deux  ", 0},
        {text, {"a\0b", 3}, Bstr(std::u16string(u"a\0b", 3)), 0},
        {text, std::string(254, 'x'), Bstr(std::u16string(254, u'x')), 0},
        {text, std::string(255, 'x'), none, 0},
        {text, "", {}, 5},
        {binary, {"\0\x80 \0", 4}, Bstr(std::u16string(u"\0\u0080 \0", 4)), 0},
        {binary, "", u"", 0}};
    user.create("A\\B");
    for (const auto& [member, stored, expected, error] : rows) {
        user.write("A\\B", "v", stored, member == text ? valueTypes::text : valueTypes::binary);
        Variant result;
        EXPECT_EQ(errorOf([&] { result = run({member, {u"v"}, {}}); }), error) << stored;
        EXPECT_EQ(result, expected) << stored;
        EXPECT_EQ(run({member, {u"missing"}, {}}), none);
    }
    run({u"EcrireREG_STRING", {u"v", u"abc"}, {}});
    EXPECT_EQ(run({binary, {u"v"}, {}}), Variant(Bstr(std::u16string(u"abc\0", 4))));
}

TEST_F(RegistryAccess, callsByName) {
    EXPECT_CALL(services, createObject(std::u16string_view(u"Scripting.FileSystemObject"))).Times(3);
    const auto report = u"Ecriture dans HKEY_CURRENT_USER\\Software\\";
    std::vector<NamedCall> calls{
        gives(join(report, u"Prod"), u"EcritureREG_Software_RepInstall", u"Prod", u"C:\\"),
        gives(u"C:\\", u"LireREG_STRING", u"HKEY_CURRENT_USER\\Software\\Prod", u"RepInstall"),
        gives(join(report, u"P\\"), u"EcritureREG_Software_RepInstall", u"P\\", u"C:\\"),
        gives(1, u"IniEcrire", u"s", u"k", u"v", u"C:\\un long nom"),
        gives(u"v", u"IniLire", u"s", u"k", u"d", u"C:\\un long nom"),
        gives(1, u"WinIniEcrire", u"s", u"k", u"v"),
        gives(u"v", u"WinIniLire", u"s", u"k", u"d"),
        gives(windowsFolder, u"RetourneCheminWindows"),
        gives(systemFolder, u"RetourneCheminSystem"),
        gives(True, u"FichierExiste", u"C:\\un long nom"),
        gives(False, u"DossierExiste", u"C:\\un long nom"),
        gives(True, u"DossierExiste", u"C:\\"),
        gives(shortName, u"GET_NomCourt", u"C:\\UN LONG nom"),
        gives(u"C:\\un long nom", u"GET_NomLong", shortName),
        gives(True, u"RenommerFichier", u"C:\\un long nom", u"C:\\f"),
        gives(u"", u"GET_NomLong", shortName)};
    for (const auto& operation : operations) {
        calls.push_back({operation.member, {u"HKEY_NONE\\A"}, {}});
        std::ranges::copy(operation.further, std::back_inserter(calls.back().arguments));
    }
    const auto tells = [&](I4 code, const char16_t* message) {
        calls.push_back(gives(message, u"ErrorMsg", code));
    };
    for (const I4 code : {2, 1010}) tells(code, u"Mauvais nom de cle");
    for (const I4 code : {4, 1012}) tells(code, u"Ne peut lire la cle");
    for (const I4 code : {8, 14}) tells(code, u"Pas assez de memoire");
    for (const I4 code : {1009, 1015}) tells(code, u"La base de Registre est corrompu!");
    tells(5, u"L'access a cette cle ne peut se faire");
    tells(87, u"Parametre Invalide");
    tells(234, u"Il y a plus de donnees que le buffer ne peut en supporter.");
    tells(1011, u"Ne peut ouvrir la cle");
    tells(1013, u"Ne peut ecrire la cle");
    for (const auto& [code, text] : {std::pair(0, u" 0"), {-3, u"-3"}, {1014, u" 1014"}})
        calls.push_back(gives(join(u"Code d'Erreur indefini:  ", text), u"ErrorMsg", I4{code}));
    const char16_t* const roots[] = {u"HKEY_CLASSES_ROOT", u"HKEY_CURRENT_USER",     u"HKEY_LOCAL_MACHINE",
                                     u"HKEY_USERS",        u"HKEY_PERFORMANCE_DATA", u"HKEY_CURRENT_CONFIG",
                                     u"HKEY_DYN_DATA"};
    for (I4 root = rootKeys::classesRoot; const auto* name : roots)
        calls.push_back(gives(root++, u"LireREG_ClePrincipale", name));
    expectCallsOfEveryMethod<Cls_InitREG>(platform, calls);
    EXPECT_EQ(services.boxes.size(), 2U);  // both for the path that ends in a backslash
}

struct IniFiles : UserHome {
    Cls_InitREG ini{platform};
    Bstr section = u"sec\u0142ion", key = u"cl\u00E9", value = u"d", file = u"C:\\f.ini", other = u"long",
         null;
};

TEST_F(IniFiles, TextsCrossAndComeBackThroughTheCodePage) {
    EXPECT_NE(ini.IniEcrire(section, key, value, file), 0);
    EXPECT_EQ(section, Bstr(u"sec?ion"));
    EXPECT_EQ(files.textOf("f.ini"), "[sec?ion]\r\ncl\xE9=d\r\n");
    EXPECT_NE(ini.IniEcrire(section, null, null, file), 0);
    EXPECT_TRUE(null.isNull());
    EXPECT_EQ(files.textOf("f.ini"), "");
}

TEST_F(IniFiles, ReadsGiveWhatTheCountSays) {
    files.makeFile("f.ini", "[sec?ion]\na= 1\ncl\xE9=' \x80 '\n");
    files.makeFile("WINDOWS/WIN.INI", "[sec?ion]\nlong=" + std::string(300, 'x'));
    EXPECT_EQ(ini.IniLire(section, key, value, file), Bstr(u" \u0080 "));
    EXPECT_EQ(ini.IniLire(section, null, value, file), Bstr(std::u16string(u"a\0cl\u00E9\0", 6)));
    EXPECT_EQ(ini.WinIniLire(section, other, value), Bstr(std::u16string(254, u'x')));
    EXPECT_EQ(ini.WinIniLire(section, key, other), Bstr(u"long"));
}

TEST_F(IniFiles, OnlyIniLireHasAFailureOfItsOwn) {
    TestPlatform empty;
    Cls_InitREG failing(empty.platform);
    try {
        failing.IniLire(section, key, value, file);
        FAIL();
    } catch (const AutomationError& error) {
        EXPECT_EQ(error.number(), -2147156504);
        EXPECT_EQ(error.source(), Bstr(u"HoldDLL.clsInit!IniLire"));
        EXPECT_TRUE(error.description().empty());
    }
    EXPECT_EQ(errorOf([&] { failing.WinIniLire(section, key, value); }), 453);
    EXPECT_EQ(failing.RenommerFichier(u"a", u"b"), False);
}

TEST_F(IniFiles, ExistenceIsAskedOfAFileSystemObject) {
    EXPECT_CALL(services, createObject)
        .WillOnce([](auto) {
            return makeObject<Scripted>(Scripted::Members{{u"FileExists", Variant(VariantBool::ofBits(1))}});
        })
        .WillOnce([](auto) -> ObjectRef { raise(ErrorNumber::CannotCreateObject); });
    EXPECT_EQ(ini.FichierExiste(file), True);
    EXPECT_EQ(file, Bstr(u"asked: C:\\f.ini"));
    EXPECT_EQ(errorOf([&] { ini.DossierExiste(file); }), 429);
}

}  // namespace
}  // namespace tovera::testing
