#include <cstring>
#include <gtest/gtest.h>

#include "database/class_table.h"
#include "support/file_system_double.h"
#include "support/named_calls.h"

namespace tovera::testing {
namespace {

using ::testing::_;
using ::testing::DoAll;
using ::testing::Return;
using ::testing::SetArgReferee;

constexpr I4 environment = 3;
const Variant noMdac = u"MDAC non installé.";

struct Source {
    std::string name, description;
};
const Source access{"MS Access Database", "Microsoft Access Driver (*.mdb)"};

struct Sql : ::testing::Test {
    TestPlatform test;
    MockOdbc32& odbc = test.odbc32;
    std::vector<std::string> done;  // in the order of the calls
    std::vector<std::string> keys;  // by their handles, from 1 on

    Variant declare() {
        EXPECT_CALL(test.services, createObject(std::u16string_view(u"Scripting.FileSystemObject")))
            .WillOnce([](auto) { return makeObject<FileSystemDouble>(u"C:\\a.mdb"); });
        Bstr file = u"C:\\a.mdb";
        Bstr name = u"Base";
        return Cls_SQL(test.platform).Creer_ODBC_Access(file, name);
    }

    void haveEnvironment(I4 attributeStatus = 0) {
        EXPECT_CALL(odbc, SQLAllocHandle(1, 0, _)).WillOnce(DoAll(SetArgReferee<2>(environment), Return(0)));
        EXPECT_CALL(odbc, SQLSetEnvAttr(environment, 200, 3, -6)).WillOnce(Return(attributeStatus));
    }
    void expectFree() { EXPECT_CALL(odbc, SQLFreeHandle(1, environment)).WillOnce(Return(-1)); }
    /// An ODBC that lists these sources and then ends the list with this code.
    void haveSources(const std::vector<Source>& sources, I4 end) {
        ::testing::InSequence inOrder;
        haveEnvironment();
        for (const auto& source : sources) {
            const auto fill = [](AnsiText& buffer, std::size_t size, const std::string& with) {
                EXPECT_EQ(buffer.bytes, std::string(size, ' '));
                buffer.bytes.replace(0, with.size() + 1, with + '\0');
                return static_cast<I2>(with.size());
            };
            EXPECT_CALL(odbc, SQLDataSources(environment, 1, _, _, _, _))
                .WillOnce([=](auto, auto, auto& name, I2& nameLength, auto& description, I2& length) {
                    nameLength = fill(name, 32, source.name);
                    length = fill(description, 128, source.description);
                    return 0;
                });
        }
        if (end != 0) EXPECT_CALL(odbc, SQLDataSources(environment, 1, _, _, _, _)).WillOnce(Return(end));
        expectFree();
    }

    void haveFolders() {
        const auto give = [](std::string folder) {
            return DoAll(SetArgReferee<0>(AnsiText{folder}), Return(6));
        };
        EXPECT_CALL(test.kernel32, GetWindowsDirectoryA).WillRepeatedly(give("W:\\WIN"));
        EXPECT_CALL(test.kernel32, GetSystemDirectoryA).WillRepeatedly(give("W:\\SYS"));
    }
    /// Records each write; an open key is known by its path.
    void recordWrites() {
        EXPECT_CALL(test.kernel32, WritePrivateProfileStringA)
            .WillRepeatedly([this](auto& section, auto& key, auto& value, auto& file) {
                done.push_back(file.bytes + "|" + section.bytes + "|" + key.bytes + "=" + value.bytes);
                return 0;
            });
        auto& registry = test.advapi32;
        const auto open = [this](const AnsiText& path, I4& opened) {
            keys.push_back(path.bytes);
            opened = static_cast<I4>(keys.size());
            return path.bytes.ends_with("Data Sources") ? 2 : 0;  // an account without the list
        };
        EXPECT_CALL(registry, RegOpenKeyExA(rootKeys::currentUser, _, 0, keyAccess::write, _))
            .WillRepeatedly([=](auto, auto& path, auto, auto, I4& opened) { return open(path, opened); });
        EXPECT_CALL(registry, RegCreateKeyA(rootKeys::currentUser, _, _))
            .WillRepeatedly([=, this](auto, auto& path, I4& created) {
                done.push_back("+" + path.bytes);
                return open(path, created);
            });
        EXPECT_CALL(registry, RegSetValueExA)
            .WillRepeatedly([this](I4 key, auto& name, auto, I4 type, std::span<const std::byte> data) {
                I4 number = 0;
                std::string text(reinterpret_cast<const char*>(data.data()), data.size());
                if (type == valueTypes::dword) {
                    std::memcpy(&number, data.data(), data.size());
                    text = "#" + std::to_string(number);
                }
                done.push_back(keys.at(static_cast<std::size_t>(key - 1)) + "|" + name.bytes + "=" + text);
                return 0;
            });
        EXPECT_CALL(registry, RegCloseKey).WillRepeatedly(Return(0));
    }
};

TEST_F(Sql, declaringWritesEverythingInItsOrder) {
    haveSources({{"Excel", "Microsoft Excel Driver (*.xls)"}, access, {"BASE", "SQL Server"}}, 100);
    haveFolders();
    recordWrites();
    EXPECT_EQ(declare(), Variant(u"Creation OK"));
    const std::string key = "Software\\ODBC\\ODBC.INI\\Base";
    const std::string jet = key + "\\Engines\\Jet";
    const std::vector<std::string> expected = {
        "W:\\WIN\\ODBC.INI|ODBC 32 bit Data Sources|Base=Microsoft Access Driver (*.mdb) (32 bit)",
        "W:\\WIN\\ODBC.INI|Base|Driver32=W:\\SYS\\odbcjt32.dll",
        "+" + key,
        "+" + key + "\\Engines",
        "+" + jet,
        key + "|DBQ=asked: C:\\a.mdb",  // as the file system object left it
        key + "|Description=Base",
        key + "|Driver=W:\\SYS\\odbcjt32.dll",
        key + "|FIL=MS Access;",
        key + "|UID=",
        key + "|SafeTransactions=#0",
        key + "|DriverId=#25",
        jet + "|ImplicitCommitSync=",
        jet + "|UserCommitSync=Yes",
        jet + "|MaxBufferSize=#2048",
        jet + "|PageTimeout=#5",
        jet + "|Threads=#3",
    };
    EXPECT_EQ(done, expected);
}

TEST_F(Sql, whatStandsInTheWay) {
    const Variant duplicate = u"Lien ODBC déjà existant.";
    const struct {
        std::vector<Source> sources;
        I4 end;  // 0 when the list isn't walked to its end
        Variant expected;
    } rows[] = {{{}, 100, noMdac},
                {{}, -1, noMdac},
                {{{"Excel", "Microsoft Excel Driver (*.xls)"}}, 100, noMdac},
                {{{"Other", "microsoft access driver (*.mdb)"}}, 1, noMdac},
                {{{"Base", "Microsoft Excel Driver (*.xls)"}}, 0, duplicate},
                {{access, {"Base", "x"}}, 0, duplicate}};
    for (const auto& row : rows) {
        haveSources(row.sources, row.end);
        EXPECT_EQ(declare(), row.expected);
    }
}

TEST_F(Sql, anOdbcThatFails) {
    EXPECT_CALL(odbc, SQLAllocHandle).WillOnce(Return(-1));
    EXPECT_EQ(declare(), noMdac);
    haveEnvironment(-1);
    expectFree();
    EXPECT_EQ(declare(), noMdac);
    haveEnvironment();
    expectFree();
    const auto missing = [](auto&&...) -> I4 { raise(ErrorNumber::EntryPointNotFound); };
    EXPECT_CALL(odbc, SQLDataSources).WillOnce(missing);
    EXPECT_EQ(errorOf([&] { declare(); }), 453);
    haveEnvironment(-1);
    EXPECT_CALL(odbc, SQLFreeHandle).WillOnce(missing);
    EXPECT_EQ(errorOf([&] { declare(); }), 453);
}

TEST_F(Sql, callsByName) {
    EXPECT_CALL(test.services, createObject)
        .WillOnce([](auto) { return makeObject<FileSystemDouble>(u""); })
        .WillOnce([](auto) -> ObjectRef { raise(ErrorNumber::CannotCreateObject); });
    expectCallsOfEveryMethod<Cls_SQL>(
        test.platform, {
                           gives(u"l''été", u"RepAPOS", u"l'été"),
                           gives(u"''''", u"RepAPOS", u"''"),
                           gives(u"sans", u"RepAPOS", u"sans"),
                           gives(u"", u"RepAPOS", u""),
                           gives(u"Fichier inexistant.", u"Creer_ODBC_Access", u"C:\\a.mdb", u"Base"),
                           fails(429, u"Creer_ODBC_Access", u"C:\\a.mdb", u"Base"),
                       });
}

}  // namespace
}  // namespace tovera::testing
