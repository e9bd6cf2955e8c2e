#include <gtest/gtest.h>

#include "registry/class_table.h"
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

std::string textOf(std::span<const std::byte> data) {
    return {reinterpret_cast<const char*>(data.data()), data.size()};
}

struct RegistryAccess : ::testing::Test {
    TestPlatform test;
    Cls_InitREG registry{test.platform};
    MockAdvapi32& port = test.advapi32;
    InSequence inOrder;

    void expectOpen(I4 access, I4 status = 0, const std::string& path = "A\\B") {
        EXPECT_CALL(port, RegOpenKeyExA(rootKeys::currentUser, named(path), 0, access, _))
            .WillOnce(DoAll(SetArgReferee<4>(handle), Return(status)));
    }
    void expectClose() { EXPECT_CALL(port, RegCloseKey(handle)).WillOnce(Return(0)); }
    void expectWrite(I4 type, const std::string& data) {
        EXPECT_CALL(port, RegSetValueExA(handle, named("v"), 0, type, _))
            .WillOnce([data](I4, const AnsiText&, I4, I4, std::span<const std::byte> bytes) {
                EXPECT_EQ(textOf(bytes), data);
                return 5;  // nobody is told
            });
    }
    /// A query that meets a stored value of these bytes.
    void expectRead(I4 type, I4 room, const std::string& stored, I4 status = 0) {
        EXPECT_CALL(port, RegQueryValueExA(handle, named("v"), type, _, room))
            .WillOnce([=](I4, const AnsiText&, I4&, std::span<std::byte> data, I4& size) {
                EXPECT_EQ(data.size(), static_cast<std::size_t>(room));
                size = static_cast<I4>(stored.size());
                if (status == 0) std::ranges::copy(std::as_bytes(std::span(stored)), data.begin());
                return status;
            });
    }

    Bstr path = u"HKEY_CURRENT_USER\\A\\B";
    Bstr entry = u"v";
};

TEST_F(RegistryAccess, writesOpenActAndCloseAndCutThePath) {
    expectOpen(keyAccess::write);
    expectWrite(valueTypes::dword, "\x2A\x01\x01\x01");
    expectClose();
    EXPECT_EQ(registry.EcrireREG_DWORD(path, entry, 0x0101012A), Variant());
    EXPECT_EQ(path, Bstr(u"A\\B"));

    path = u"HKEY_CURRENT_USER\\A\\B";
    Bstr text = u"caf\u00E9\u4E2D";
    expectOpen(keyAccess::write);
    expectWrite(valueTypes::text, "caf\xE9?");
    expectClose();
    EXPECT_EQ(registry.EcrireREG_STRING(path, entry, text), Variant());
    EXPECT_EQ(text, Bstr(u"caf\u00E9?"));

    path = u"HKEY_CURRENT_USER\\A\\B";
    expectOpen(keyAccess::write);
    expectWrite(valueTypes::binary, std::string("\0\xFF", 2));
    expectClose();
    EXPECT_EQ(registry.EcrireREG_BINARY(path, entry, Bstr(std::u16string(u"\0\u00FF", 2))), Variant());

    path = u"HKEY_CURRENT_USER\\A\\B";
    expectOpen(keyAccess::write);
    EXPECT_CALL(port, RegDeleteKeyA(rootKeys::currentUser, named("A\\B"))).WillOnce(Return(5));
    expectClose();
    EXPECT_EQ(registry.EffaceREG_CLE(path), Variant());

    path = u"HKEY_CURRENT_USER\\A\\B";
    EXPECT_CALL(port, RegCreateKeyA(rootKeys::currentUser, named("A\\B"), _))
        .WillOnce(DoAll(SetArgReferee<2>(handle), Return(0)));
    expectClose();
    EXPECT_EQ(registry.CreerREG_Cle(path), Variant());

    path = u"HKEY_CURRENT_USER\\A\\B";
    EXPECT_CALL(port, RegCreateKeyA).WillOnce(Return(5));
    EXPECT_EQ(registry.CreerREG_Cle(path), Variant());
}

TEST_F(RegistryAccess, theRootItselfIsOpenedButNeverDeleted) {
    path = u"HKEY_CURRENT_USER";
    expectOpen(keyAccess::write, 0, "");
    expectClose();
    EXPECT_EQ(registry.EffaceREG_CLE(path), Variant());
    EXPECT_EQ(path, Bstr(u""));
}

TEST_F(RegistryAccess, aKeyThatCannotBeOpened) {
    const auto refuse = [&](I4 access) {
        path = u"HKEY_CURRENT_USER\\A\\B";
        expectOpen(access, 2);
    };
    Bstr text = u"x";
    const Variant failed = u"Error";
    refuse(keyAccess::write);
    EXPECT_EQ(registry.EcrireREG_DWORD(path, entry, 1), Variant());
    refuse(keyAccess::write);
    EXPECT_EQ(registry.EcrireREG_STRING(path, entry, text), Variant());
    refuse(keyAccess::write);
    EXPECT_EQ(registry.EcrireREG_BINARY(path, entry, u""), Variant());
    refuse(keyAccess::write);
    EXPECT_EQ(registry.EffaceREG_CLE(path), Variant());
    refuse(keyAccess::read);
    EXPECT_EQ(registry.LireREG_DWORD(path, entry), failed);
    refuse(keyAccess::read);
    EXPECT_EQ(registry.LireREG_STRING(path, entry), failed);
    refuse(keyAccess::read);
    EXPECT_EQ(registry.LireREG_BINARY(path, entry), failed);
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
    path = u"HKEY_CURRENT_USER\\A\\B";
    expectOpen(keyAccess::write);
    expectClose();
    EXPECT_EQ(errorOf([&] { japanese.EcrireREG_BINARY(path, entry, u"a\u3042"); }), 6);
}

TEST_F(RegistryAccess, numbersOverlayTheLastOnes) {
    struct Case {
        std::string stored;
        I4 status;
        Variant expected;
    };
    const Case cases[] = {
        {"\xFF\xFF\xFF\xFF", 0, I4{-1}},
        {std::string("\x01\x02", 2), 0, static_cast<I4>(0xFFFF0201U)},
        {"", 0, static_cast<I4>(0xFFFF0201U)},
        {"12345", 234, u"Error"},
        {"", 2, u"Error"},
    };
    for (const auto& c : cases) {
        path = u"HKEY_CURRENT_USER\\A\\B";
        expectOpen(keyAccess::read);
        expectRead(valueTypes::dword, 4, c.stored, c.status);
        expectClose();
        EXPECT_EQ(registry.LireREG_DWORD(path, entry), c.expected);
    }
}

TEST_F(RegistryAccess, textsLoseTheirLeadingBlanksAndTheirNul) {
    struct Case {
        std::string stored;  // with the NUL that the platform adds
        I4 status;
        Bstr expected;
    };
    const Case cases[] = {
        {std::string("  deux  \0", 9), 0, u"deux  "},
        {std::string("a\0b\0", 4), 0, Bstr(std::u16string(u"a\0b", 3))},
        {std::string(254, 'x') + '\0', 0, std::u16string(254, u'x')},
        {std::string(255, 'x'), 0, std::u16string(254, u'x')},
        {std::string(256, 'x'), 234, u"Error"},
        {"", 2, u"Error"},
    };
    for (const auto& c : cases) {
        path = u"HKEY_CURRENT_USER\\A\\B";
        expectOpen(keyAccess::read);
        expectRead(valueTypes::text, 255, c.stored, c.status);
        expectClose();
        EXPECT_EQ(registry.LireREG_STRING(path, entry), Variant(c.expected));
    }
    path = u"HKEY_CURRENT_USER\\A\\B";
    expectOpen(keyAccess::read);
    expectRead(valueTypes::text, 255, "");
    expectClose();
    EXPECT_EQ(errorOf([&] { registry.LireREG_STRING(path, entry); }), 5);
}

TEST_F(RegistryAccess, bytesAreAskedForTheirSizeFirst) {
    struct Case {
        std::string stored;
        I4 status;
        Variant expected;
    };
    const Case cases[] = {
        {std::string("\0\x80 \0", 4), 0, Bstr(std::u16string(u"\0\u0080 \0", 4))},
        {"", 0, u""},
        {"", 2, u"Error"},
    };
    for (const auto& c : cases) {
        path = u"HKEY_CURRENT_USER\\A\\B";
        const auto size = static_cast<I4>(c.stored.size());
        expectOpen(keyAccess::read);
        expectRead(valueTypes::binary, 1, c.stored, size > 1 ? 234 : c.status);
        expectRead(valueTypes::binary, size, c.stored, c.status);
        expectClose();
        EXPECT_EQ(registry.LireREG_BINARY(path, entry), c.expected);
    }
}

TEST_F(RegistryAccess, malformedPathsBringABoxAndTouchNothing) {
    for (const auto& used : {false, true}) {
        if (used) {
            expectOpen(keyAccess::read, 2);
            registry.LireREG_DWORD(path, entry);
        }
        for (const auto* malformed : {u"", u"hkey_current_user\\A", u"HKEY_CURRENT_USER\\", u"A\\B"}) {
            test.services.boxes.clear();
            Bstr rejected = malformed;
            Bstr text = u"x";
            EXPECT_EQ(registry.LireREG_STRING(rejected, entry), Variant());
            EXPECT_EQ(registry.EcrireREG_STRING(rejected, entry, text), Variant());
            EXPECT_EQ(registry.CreerREG_Cle(rejected), Variant());
            EXPECT_EQ(registry.EffaceREG_CLE(rejected), Variant());
            EXPECT_EQ(rejected, Bstr(malformed));
            const ShownBox box{join(u"Incorrect Format:\n\n", std::u16string_view(malformed)), 0, u"HoldDLL"};
            EXPECT_EQ(test.services.boxes, std::vector<ShownBox>(4, box));
        }
    }
}

TEST_F(RegistryAccess, anUnknownRootGivesEmptyWithoutABox) {
    for (const auto* unknown : {u"HKEY_NONE\\A\\B", u"HKEY_current_user\\A\\B", u"HKEY_\\A\\B"}) {
        Bstr cut = unknown;
        EXPECT_EQ(registry.LireREG_DWORD(cut, entry), Variant());
        EXPECT_EQ(cut, Bstr(u"A\\B"));
    }
    EXPECT_TRUE(test.services.boxes.empty());
}

TEST_F(RegistryAccess, callsByName) {
    const auto object = objectOn<Cls_InitREG>(test.platform);
    const std::pair<I4, const char16_t*> messages[] = {
        {0, u"Code d'Erreur indefini:   0"},
        {2, u"Mauvais nom de cle"},
        {3, u"Code d'Erreur indefini:   3"},
        {-3, u"Code d'Erreur indefini:  -3"},
        {4, u"Ne peut lire la cle"},
        {5, u"L'access a cette cle ne peut se faire"},
        {8, u"Pas assez de memoire"},
        {14, u"Pas assez de memoire"},
        {87, u"Parametre Invalide"},
        {234, u"Il y a plus de donnees que le buffer ne peut en supporter."},
        {1009, u"La base de Registre est corrompu!"},
        {1010, u"Mauvais nom de cle"},
        {1011, u"Ne peut ouvrir la cle"},
        {1012, u"Ne peut lire la cle"},
        {1013, u"Ne peut ecrire la cle"},
        {1014, u"Code d'Erreur indefini:   1014"},
        {1015, u"La base de Registre est corrompu!"},
    };
    for (const auto& [code, message] : messages) expectCall(object, {u"ErrorMsg", {code}, message});
    const char16_t* const roots[] = {
        u"HKEY_CLASSES_ROOT",     u"HKEY_CURRENT_USER",   u"HKEY_LOCAL_MACHINE", u"HKEY_USERS",
        u"HKEY_PERFORMANCE_DATA", u"HKEY_CURRENT_CONFIG", u"HKEY_DYN_DATA",
    };
    for (I4 root = rootKeys::classesRoot; const auto* name : roots) {
        expectCall(object, {u"LireREG_ClePrincipale", {name}, root++});
    }
    const Variant unknown = u"HKEY_NONE\\A";
    for (const auto* read : {u"LireREG_DWORD", u"LireREG_STRING", u"LireREG_BINARY"}) {
        expectCall(object, {read, {unknown, u"v"}, Empty()});
    }
    for (const auto* write : {u"EcrireREG_STRING", u"EcrireREG_BINARY"}) {
        expectCall(object, {write, {unknown, u"v", u"x"}, Empty()});
    }
    expectCall(object, {u"EcrireREG_DWORD", {unknown, u"v", I4{1}}, Empty()});
    for (const auto* change : {u"CreerREG_Cle", u"EffaceREG_CLE"}) {
        expectCall(object, {change, {unknown}, Empty()});
    }

    EXPECT_CALL(port, RegCreateKeyA(rootKeys::currentUser, named("Software\\Prod"), _)).WillOnce(Return(5));
    expectOpen(keyAccess::write, 2, "Software\\Prod");
    expectCall(object, {u"EcritureREG_Software_RepInstall",
                        {u"Prod", u"C:\\Prod"},
                        u"Ecriture dans HKEY_CURRENT_USER\\Software\\Prod"});
    expectCall(object, {u"EcritureREG_Software_RepInstall",
                        {u"Prod\\", u"C:\\Prod"},
                        u"Ecriture dans HKEY_CURRENT_USER\\Software\\Prod\\"});
    EXPECT_EQ(test.services.boxes.size(), 2U);
}

}  // namespace
}  // namespace tovera::testing
