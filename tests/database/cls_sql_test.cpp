#include <cstring>
#include <gtest/gtest.h>
#include <set>

#include "database/class_table.h"
#include "support/named_calls.h"

namespace tovera::testing {
namespace {

using ::testing::_;

using ::testing::DoAll;
using ::testing::Return;
using ::testing::SetArgReferee;

constexpr I4 environment = 3;

/// Answers `FileExists`, and nothing else.
class FileSystemDouble : public Counted<> {
  public:
    explicit FileSystemDouble(bool exists) : exists_(exists) {}
    std::optional<MemberId> memberNamed(std::u16string_view name) override {
        return name == u"FileExists" ? std::optional<MemberId>(1) : std::nullopt;
    }
    ReturnCode invoke(MemberId, CallKind, std::span<Variant> arguments, Variant& result,
                      ErrorRecord&) noexcept override {
        result = VariantBool(exists_ && dereferenced(arguments[0]) == Variant(u"C:\\a.mdb"));
        return ReturnCode::Success;
    }

  private:
    bool exists_;
};

struct Source {
    std::string name;
    std::string description;
};

struct Sql : ::testing::Test {
    TestPlatform test;
    Cls_SQL sql{test.platform};
    std::vector<std::string> done;  // in the order of the calls

    void haveFile(bool exists) {
        EXPECT_CALL(test.services, createObject(std::u16string_view(u"Scripting.FileSystemObject")))
            .WillOnce([exists](std::u16string_view) { return makeObject<FileSystemDouble>(exists); });
    }

    /// An ODBC that lists these sources and then ends the list with this code.
    void haveSources(const std::vector<Source>& sources, I4 end = 100) {
        auto& odbc = test.odbc32;
        ::testing::InSequence inOrder;
        EXPECT_CALL(odbc, SQLAllocHandle(1, 0, _)).WillOnce(DoAll(SetArgReferee<2>(environment), Return(0)));
        EXPECT_CALL(odbc, SQLSetEnvAttr(environment, 200, 3, -6)).WillOnce(Return(0));
        for (const auto& source : sources) {
            EXPECT_CALL(odbc, SQLDataSources(environment, 1, _, _, _, _))
                .WillOnce([source](I4, I4, AnsiText& name, I2& nameLength, AnsiText& description,
                                   I2& descriptionLength) {
                    EXPECT_EQ(name.bytes, std::string(32, ' '));
                    EXPECT_EQ(description.bytes, std::string(128, ' '));
                    name.bytes.replace(0, source.name.size() + 1, source.name + '\0');
                    description.bytes.replace(0, source.description.size() + 1, source.description + '\0');
                    nameLength = static_cast<I2>(source.name.size());
                    descriptionLength = static_cast<I2>(source.description.size());
                    return 0;
                });
        }
        if (end != 0) EXPECT_CALL(odbc, SQLDataSources(environment, 1, _, _, _, _)).WillOnce(Return(end));
        EXPECT_CALL(odbc, SQLFreeHandle(1, environment)).WillOnce(Return(0));
    }

    void haveFolders() {
        const auto fill = [](const std::string& path) {
            return [path](AnsiText& buffer) {
                buffer.bytes.replace(0, path.size(), path);
                return static_cast<I4>(path.size());
            };
        };
        EXPECT_CALL(test.kernel32, GetWindowsDirectoryA).WillRepeatedly(fill("W:\\WIN"));
        EXPECT_CALL(test.kernel32, GetSystemDirectoryA).WillRepeatedly(fill("W:\\SYS"));
    }

    /// Records each write; an open key is known by its path.
    void recordWrites() {
        EXPECT_CALL(test.kernel32, WritePrivateProfileStringA)
            .WillRepeatedly([this](const AnsiText& section, const AnsiText& key, const AnsiText& value,
                                   const AnsiText& file) {
                done.push_back(file.bytes + "|" + section.bytes + "|" + key.bytes + "=" + value.bytes);
                return 0;
            });
        auto& registry = test.advapi32;
        EXPECT_CALL(registry, RegOpenKeyExA(rootKeys::currentUser, _, 0, keyAccess::write, _))
            .WillRepeatedly([this](I4, const AnsiText& path, I4, I4, I4& opened) {
                if (path.bytes.ends_with("Data Sources")) return 2;  // an account without the list
                opened = openKey(path.bytes);
                return 0;
            });
        EXPECT_CALL(registry, RegCreateKeyA(rootKeys::currentUser, _, _))
            .WillRepeatedly([this](I4, const AnsiText& path, I4& created) {
                done.push_back("+" + path.bytes);
                created = openKey(path.bytes);
                return 0;
            });
        EXPECT_CALL(registry, RegSetValueExA)
            .WillRepeatedly([this](I4 key, const AnsiText& name, I4, I4 type,
                                   std::span<const std::byte> data) {
                I4 number = 0;
                std::string text(reinterpret_cast<const char*>(data.data()), data.size());
                if (type == valueTypes::dword) {
                    std::memcpy(&number, data.data(), data.size());
                    text = "#" + std::to_string(number);
                }
                done.push_back(keys.at(static_cast<std::size_t>(key - 1)) + "|" + name.bytes + "=" + text);
                return 0;
            });
        EXPECT_CALL(registry, RegCloseKey).WillRepeatedly([this](I4 key) {
            EXPECT_EQ(open.erase(key), 1U);
            return 0;
        });
    }

    std::vector<std::string> keys;
    std::set<I4> open;
    I4 openKey(const std::string& path) {
        keys.push_back(path);
        const auto key = static_cast<I4>(keys.size());
        open.insert(key);
        return key;
    }
};

const Source access{"MS Access Database", "Microsoft Access Driver (*.mdb)"};

TEST_F(Sql, declaringWritesEverythingInItsOrder) {
    haveFile(true);
    haveSources({{"Excel", "Microsoft Excel Driver (*.xls)"}, access, {"BASE", "SQL Server"}});
    haveFolders();
    recordWrites();
    Bstr file = u"C:\\a.mdb";
    Bstr name = u"Base";
    EXPECT_EQ(sql.Creer_ODBC_Access(file, name), Variant(u"Creation OK"));
    const std::string key = "Software\\ODBC\\ODBC.INI\\Base";
    const std::string jet = key + "\\Engines\\Jet";
    const std::vector<std::string> expected = {
        "W:\\WIN\\ODBC.INI|ODBC 32 bit Data Sources|Base=Microsoft Access Driver (*.mdb) (32 bit)",
        "W:\\WIN\\ODBC.INI|Base|Driver32=W:\\SYS\\odbcjt32.dll",
        "+" + key,
        "+" + key + "\\Engines",
        "+" + jet,
        key + "|DBQ=C:\\a.mdb",
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
    EXPECT_TRUE(open.empty());
}

TEST_F(Sql, whatStandsInTheWay) {
    const Variant noMdac = u"MDAC non installé.";
    const Variant duplicate = u"Lien ODBC déjà existant.";
    struct Case {
        std::vector<Source> sources;
        I4 end;  // 0 when the list isn't walked to its end
        Variant expected;
    };
    const Case cases[] = {
        {{}, 100, noMdac},
        {{}, -1, noMdac},
        {{{"Excel", "Microsoft Excel Driver (*.xls)"}}, 100, noMdac},
        {{{"Other", "microsoft access driver (*.mdb)"}}, 1, noMdac},
        {{{"Base", "Microsoft Excel Driver (*.xls)"}}, 0, duplicate},
        {{access, {"Base", "x"}}, 0, duplicate},
    };
    for (const auto& c : cases) {
        haveFile(true);
        haveSources(c.sources, c.end);
        Bstr file = u"C:\\a.mdb";
        Bstr name = u"Base";
        EXPECT_EQ(sql.Creer_ODBC_Access(file, name), c.expected);
    }
}

TEST_F(Sql, anOdbcThatCannotBeSetUp) {
    Bstr file = u"C:\\a.mdb";
    Bstr name = u"Base";
    haveFile(true);
    EXPECT_CALL(test.odbc32, SQLAllocHandle).WillOnce(Return(-1));
    EXPECT_EQ(sql.Creer_ODBC_Access(file, name), Variant(u"MDAC non installé."));
    haveFile(true);
    EXPECT_CALL(test.odbc32, SQLAllocHandle).WillOnce(DoAll(SetArgReferee<2>(environment), Return(0)));
    EXPECT_CALL(test.odbc32, SQLSetEnvAttr).WillOnce(Return(-1));
    EXPECT_CALL(test.odbc32, SQLFreeHandle(1, environment)).WillOnce(Return(0));
    EXPECT_EQ(sql.Creer_ODBC_Access(file, name), Variant(u"MDAC non installé."));
}

TEST_F(Sql, callsByName) {
    haveFile(false);
    expectCallsOfEveryMethod<Cls_SQL>(
        test.platform, {
                           {u"RepAPOS", {u"l'été"}, u"l''été"},
                           {u"RepAPOS", {u"''"}, u"''''"},
                           {u"RepAPOS", {u"sans"}, u"sans"},
                           {u"RepAPOS", {u""}, u""},
                           {u"Creer_ODBC_Access", {u"C:\\a.mdb", u"Base"}, u"Fichier inexistant."},
                       });
    EXPECT_CALL(test.services, createObject).WillOnce([](std::u16string_view) -> ObjectRef {
        raise(ErrorNumber::CannotCreateObject);
    });
    expectCall(objectOn<Cls_SQL>(test.platform),
               {u"Creer_ODBC_Access", {u"C:\\a.mdb", u"Base"}, Empty(), 429});
}

}  // namespace
}  // namespace tovera::testing
