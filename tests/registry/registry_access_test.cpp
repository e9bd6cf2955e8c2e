#include <functional>
#include <gtest/gtest.h>

#include "registry/class_table.h"
#include "support/file_system_double.h"
#include "support/named_calls.h"

namespace tovera::testing {
namespace {

using ::testing::_;
using ::testing::DoAll;
using ::testing::Field;
using ::testing::InSequence;
using ::testing::Return;
using ::testing::SetArgReferee;

constexpr I4 handle = 77;

auto named(const std::string& bytes) {
    return Field(&AnsiText::bytes, bytes);
}

struct RegistryAccess : ::testing::Test {
    TestPlatform test;
    Cls_InitREG registry{test.platform};
    MockAdvapi32& port = test.advapi32;
    InSequence inOrder;
    Bstr path;
    Bstr entry = u"v";
    Bstr text = u"x";

    struct Operation {
        I4 access;  // 0 without the common opening
        std::function<Variant()> run;
        Variant refused;
    };
    const std::vector<Operation> operations{
        {keyAccess::write, [&] { return registry.EcrireREG_DWORD(path, entry, 1); }, {}},
        {keyAccess::write, [&] { return registry.EcrireREG_STRING(path, entry, text); }, {}},
        {keyAccess::write, [&] { return registry.EcrireREG_BINARY(path, entry, u""); }, {}},
        {keyAccess::write, [&] { return registry.EffaceREG_CLE(path); }, {}},
        {keyAccess::read, [&] { return registry.LireREG_DWORD(path, entry); }, u"Error"},
        {keyAccess::read, [&] { return registry.LireREG_STRING(path, entry); }, u"Error"},
        {keyAccess::read, [&] { return registry.LireREG_BINARY(path, entry); }, u"Error"},
        {0, [&] { return registry.CreerREG_Cle(path); }, {}}};

    void expectOpen(I4 access, I4 status = 0, const std::string& relativePath = "A\\B") {
        path = join(u"HKEY_CURRENT_USER", relativePath.empty() ? u"" : u"\\A\\B");
        EXPECT_CALL(port, RegOpenKeyExA(rootKeys::currentUser, named(relativePath), 0, access, _))
            .WillOnce(DoAll(SetArgReferee<4>(handle), Return(status)));
    }
    void expectClose() { EXPECT_CALL(port, RegCloseKey(handle)).WillOnce(Return(0)); }
    /// A query that meets a stored value of these bytes.
    void expectQuery(I4 type, I4 room, const std::string& stored, I4 status) {
        EXPECT_CALL(port, RegQueryValueExA(handle, named("v"), type, _, room))
            .WillOnce([=](I4, const AnsiText&, I4&, std::span<std::byte> data, I4& size) {
                EXPECT_EQ(data.size(), static_cast<std::size_t>(room));
                size = static_cast<I4>(stored.size());
                if (status == 0) std::ranges::copy(std::as_bytes(std::span(stored)), data.begin());
                return status;
            });
    }
    void expectWrite(I4 type, const std::string& data, const std::function<Variant()>& write) {
        expectOpen(keyAccess::write);
        EXPECT_CALL(port, RegSetValueExA(handle, named("v"), 0, type, _))
            .WillOnce([data](I4, const AnsiText&, I4, I4, std::span<const std::byte> bytes) {
                EXPECT_TRUE(std::ranges::equal(bytes, std::as_bytes(std::span(data))));
                return 5;  // nobody is told
            });
        expectClose();
        EXPECT_EQ(write(), Variant());
        EXPECT_EQ(path, Bstr(u"A\\B"));
    }
};

TEST_F(RegistryAccess, writesOpenActAndCloseAndCutThePath) {
    expectWrite(valueTypes::dword, "\x2A\x01\x01\x01",
                [&] { return registry.EcrireREG_DWORD(path, entry, 0x0101012A); });
    text = u"caf\u00E9\u4E2D";
    expectWrite(valueTypes::text, "caf\xE9?", [&] { return registry.EcrireREG_STRING(path, entry, text); });
    EXPECT_EQ(text, Bstr(u"caf\u00E9?"));
    text = std::u16string(u"\0\u00FF", 2);
    expectWrite(valueTypes::binary, {"\0\xFF", 2},
                [&] { return registry.EcrireREG_BINARY(path, entry, text); });

    expectOpen(keyAccess::write);
    EXPECT_CALL(port, RegDeleteKeyA(rootKeys::currentUser, named("A\\B"))).WillOnce(Return(5));
    expectClose();
    EXPECT_EQ(registry.EffaceREG_CLE(path), Variant());
    expectOpen(keyAccess::write, 0, "");  // the root itself is opened, and never deleted
    expectClose();
    EXPECT_EQ(registry.EffaceREG_CLE(path), Variant());
    EXPECT_EQ(path, Bstr(u""));

    for (const I4 status : {0, 5}) {
        path = u"HKEY_CURRENT_USER\\A\\B";
        EXPECT_CALL(port, RegCreateKeyA(rootKeys::currentUser, named("A\\B"), _))
            .WillOnce(DoAll(SetArgReferee<2>(handle), Return(status)));
        if (status == 0) expectClose();
        EXPECT_EQ(registry.CreerREG_Cle(path), Variant());
    }
}

TEST_F(RegistryAccess, pathsThatLeadNowhereTouchNothing) {
    const struct {
        const char16_t *path, *after;
        bool isMalformed;
    } rows[] = {{u"", u"", true},
                {u"hkey_current_user\\A", u"hkey_current_user\\A", true},
                {u"HKEY_CURRENT_USER\\", u"HKEY_CURRENT_USER\\", true},
                {u"A\\B", u"A\\B", true},
                {u"HKEY_NONE\\A\\B", u"A\\B", false},
                {u"HKEY_current_user\\A\\B", u"A\\B", false},
                {u"HKEY_", u"", false}};
    for (const auto& operation : operations) {
        for (const auto& row : rows) {
            path = row.path;
            EXPECT_EQ(operation.run(), Variant());
            EXPECT_EQ(path, Bstr(row.after));
            const ShownBox box{join(u"Incorrect Format:\n\n", std::u16string_view(row.path)), 0, u"HoldDLL"};
            EXPECT_EQ(std::exchange(test.services.boxes, {}), std::vector(row.isMalformed ? 1U : 0U, box));
        }
        if (operation.access == 0) continue;
        expectOpen(operation.access, 2);  // from then on the object has accepted a path
        EXPECT_EQ(operation.run(), operation.refused);
    }
}

TEST_F(RegistryAccess, binaryValuesThatCannotBeWrittenCloseTheKey) {
    expectOpen(keyAccess::write);
    expectClose();
    EXPECT_EQ(errorOf([&] { registry.EcrireREG_BINARY(path, entry, u""); }), 9);

    struct DoubleByteServices : TestServices {
        std::string toAnsi(std::u16string_view text) override {
            return text == u"\u3042" ? "\x82\xA0" : TestServices::toAnsi(text);
        }
    };
    ::testing::NiceMock<DoubleByteServices> services;
    auto platform = Platform{services, test.user32, test.kernel32, test.files, test.advapi32, test.odbc32};
    Cls_InitREG japanese(platform);
    expectOpen(keyAccess::write);
    expectClose();
    EXPECT_EQ(errorOf([&] { japanese.EcrireREG_BINARY(path, entry, u"a\u3042"); }), 6);
}

TEST_F(RegistryAccess, readsGiveWhatIsStored) {
    const Variant none = u"Error";
    const struct {
        I4 type;
        std::string stored;  // a text with the NUL that the platform adds
        I4 status;
        Variant expected;
        I4 error = 0;
    } rows[] = {{valueTypes::dword, "\xFF\xFF\xFF\xFF", 0, I4{-1}},
                {valueTypes::dword, {"\x01\x02", 2}, 0, static_cast<I4>(0xFFFF0201U)},
                {valueTypes::dword, "", 0, static_cast<I4>(0xFFFF0201U)},
                {valueTypes::dword, "12345", 234, none},
                {valueTypes::dword, "", 2, none},
                {valueTypes::text, {"  deux  \0", 9}, 0, u"deux  "},
                {valueTypes::text, {"a\0b\0", 4}, 0, Bstr(std::u16string(u"a\0b", 3))},
                {valueTypes::text, std::string(254, 'x') + '\0', 0, Bstr(std::u16string(254, u'x'))},
                {valueTypes::text, std::string(255, 'x'), 0, Bstr(std::u16string(254, u'x'))},
                {valueTypes::text, std::string(256, 'x'), 234, none},
                {valueTypes::text, "", 2, none},
                {valueTypes::text, "", 0, {}, 5},
                {valueTypes::binary, {"\0\x80 \0", 4}, 0, Bstr(std::u16string(u"\0\u0080 \0", 4))},
                {valueTypes::binary, "", 0, u""},
                {valueTypes::binary, "", 2, none}};
    for (const auto& row : rows) {
        SCOPED_TRACE(std::to_string(row.type) + "/" + row.stored);
        expectOpen(keyAccess::read);
        const auto size = static_cast<I4>(row.stored.size());
        if (row.type == valueTypes::binary) expectQuery(row.type, 1, row.stored, size > 1 ? 234 : row.status);
        const auto room = row.type == valueTypes::dword ? 4 : row.type == valueTypes::text ? 255 : size;
        expectQuery(row.type, room, row.stored, row.status);
        expectClose();
        const auto read = row.type == valueTypes::dword  ? &Cls_InitREG::LireREG_DWORD
                          : row.type == valueTypes::text ? &Cls_InitREG::LireREG_STRING
                                                         : &Cls_InitREG::LireREG_BINARY;
        Variant result;
        EXPECT_EQ(errorOf([&] { result = (registry.*read)(path, entry); }), row.error);
        EXPECT_EQ(result, row.expected);
    }
}

TEST_F(RegistryAccess, callsByName) {
    ::testing::NiceMock<MockKernel32> kernel32;
    ::testing::NiceMock<MockFiles> files;
    Platform platform{test.services, test.user32, kernel32, files, port, test.odbc32};
    EXPECT_CALL(port, RegCreateKeyA(rootKeys::currentUser, named("Software\\Prod"), _)).WillOnce(Return(5));
    expectOpen(keyAccess::write, 2, "Software\\Prod");
    EXPECT_CALL(test.services, createObject).Times(2).WillRepeatedly([](auto) {
        return makeObject<FileSystemDouble>(u"f");
    });
    const Variant none = u"HKEY_NONE\\A";
    const auto report = u"Ecriture dans HKEY_CURRENT_USER\\Software\\";
    std::vector<NamedCall> calls{
        gives(join(report, u"Prod"), u"EcritureREG_Software_RepInstall", u"Prod", u"C:\\"),
        gives(join(report, u"P\\"), u"EcritureREG_Software_RepInstall", u"P\\", u"C:\\"),
        gives(0, u"IniEcrire", u"s", u"k", u"v", u"f"),
        gives(u"", u"IniLire", u"s", u"k", u"d", u"f"),
        gives(0, u"WinIniEcrire", u"s", u"k", u"v"),
        gives(u"", u"WinIniLire", u"s", u"k", u"d"),
        gives(True, u"FichierExiste", u"f"),
        gives(False, u"DossierExiste", u"f"),
        gives(u"", u"GET_NomLong", u"f"),
        gives(u"", u"GET_NomCourt", u"f"),
        gives(True, u"RenommerFichier", u"f", u"g"),
        gives(Empty(), u"EcrireREG_DWORD", none, u"v", I4{1}),
        gives(Empty(), u"EcrireREG_BINARY", none, u"v", u"x"),
        gives(Empty(), u"EcrireREG_STRING", none, u"v", u"x"),
    };
    const auto call = [&](auto... call) { calls.push_back(gives(call...)); };
    for (const auto* ask : {u"RetourneCheminSystem", u"RetourneCheminWindows"}) call(u"", ask);
    for (const auto* change : {u"CreerREG_Cle", u"EffaceREG_CLE"}) call(Empty(), change, none);
    for (const auto* read : {u"LireREG_DWORD", u"LireREG_STRING", u"LireREG_BINARY"}) {
        call(Empty(), read, none, u"v");
    }
    const std::pair<std::vector<I4>, const char16_t*> messages[] = {
        {{2, 1010}, u"Mauvais nom de cle"},
        {{4, 1012}, u"Ne peut lire la cle"},
        {{5}, u"L'access a cette cle ne peut se faire"},
        {{8, 14}, u"Pas assez de memoire"},
        {{87}, u"Parametre Invalide"},
        {{234}, u"Il y a plus de donnees que le buffer ne peut en supporter."},
        {{1009, 1015}, u"La base de Registre est corrompu!"},
        {{1011}, u"Ne peut ouvrir la cle"},
        {{1013}, u"Ne peut ecrire la cle"},
        {{0}, u"Code d'Erreur indefini:   0"},
        {{-3}, u"Code d'Erreur indefini:  -3"},
        {{1014}, u"Code d'Erreur indefini:   1014"},
    };
    for (const auto& [codes, message] : messages) {
        for (const auto code : codes) call(message, u"ErrorMsg", code);
    }
    const char16_t* const roots[] = {u"HKEY_CLASSES_ROOT", u"HKEY_CURRENT_USER",     u"HKEY_LOCAL_MACHINE",
                                     u"HKEY_USERS",        u"HKEY_PERFORMANCE_DATA", u"HKEY_CURRENT_CONFIG",
                                     u"HKEY_DYN_DATA"};
    for (I4 root = rootKeys::classesRoot; const auto* name : roots)
        call(root++, u"LireREG_ClePrincipale", name);
    expectCallsOfEveryMethod<Cls_InitREG>(platform, calls);
    EXPECT_EQ(test.services.boxes.size(), 2U);
}

}  // namespace
}  // namespace tovera::testing
