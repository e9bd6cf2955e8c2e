#include <gtest/gtest.h>

#include "database/class_table.h"
#include "frame/utf8.h"
#include "platform/odbc32.h"
#include "support/named_calls.h"
#include "support/user_home.h"

namespace tovera::testing {
namespace {

using Source = std::pair<std::string, std::string>;  // a name, and the description of its driver
const Source access{"MS Access Database", "Microsoft Access Driver (*.mdb)"};
const Source excel{"Excel", "Microsoft Excel Driver (*.xls)"};
const Variant noMdac = u"MDAC non installé.";

/// An ODBC of one environment that lists these sources.
struct ListOfSources : Odbc32 {
    I4 SQLAllocHandle(I4 type, I4 parent, I4& handle) override {
        EXPECT_EQ(std::tuple(type, parent), std::tuple(1, 0));
        handle = 3;
        used += allocation == 0 ? 1 : 0;
        return allocation;
    }
    I4 SQLSetEnvAttr(I4 environment, I4 attribute, I4 value, I4 length) override {
        EXPECT_EQ(std::tuple(environment, attribute, value, length), std::tuple(3, 200, 3, -6));
        return setting;
    }
    I4 SQLDataSources(I4 environment, I4 direction, AnsiText& name, I2& nameLength, AnsiText& description,
                      I2& descriptionLength) override {
        EXPECT_EQ(std::tuple(environment, direction), std::tuple(3, 1));
        if (end == 453) raise(ErrorNumber::EntryPointNotFound);
        if (sources.empty()) return end;
        const auto fill = [](AnsiText& buffer, std::size_t size, const std::string& with) {
            EXPECT_EQ(buffer.bytes, std::string(size, ' '));
            buffer.bytes.replace(0, with.size() + 1, with + '\0');
            return static_cast<I2>(with.size());
        };
        nameLength = fill(name, 32, sources[0].first);
        descriptionLength = fill(description, 128, sources[0].second);
        sources.erase(sources.begin());
        return 0;
    }
    I4 SQLFreeHandle(I4 type, I4 handle) override {
        EXPECT_EQ(std::tuple(type, handle), std::tuple(1, 3));
        --used;
        return -1;
    }

    bool canKeepSource(const AnsiText& name, const AnsiText& file) override {
        EXPECT_EQ(std::tuple(name.bytes, file.bytes), std::tuple("Base", "C:\\a.mdb"));
        return keeps;
    }

    std::vector<Source> sources;
    bool keeps = true;
    I4 allocation = 0, setting = 0, end = 100;
    int used = 0;  ///< handles
};

/// A registry that writes down what is done in it: a line for each key that is made, and for each that is
/// written to.
struct RecordedRegistry : Registry {
    static std::string nameOf(const AnsiText& path) {
        const std::string sources = "Software\\ODBC\\ODBC.INI\\";
        EXPECT_TRUE(path.bytes.starts_with(sources)) << path.bytes;
        return path.bytes.substr(sources.size());
    }
    I4 RegOpenKeyExA(I4, const AnsiText& path, I4, I4, I4&) override {
        if (std::exchange(key, path.bytes) != path.bytes) done += "\n" + nameOf(path) + ": ";
        return 0;
    }
    I4 RegCreateKeyA(I4, const AnsiText& path, I4&) override {
        done += "\n+" + nameOf(path);
        return 0;
    }
    I4 RegSetValueExA(I4, const AnsiText& name, I4, I4 type, std::span<const std::byte> data) override {
        std::string text(reinterpret_cast<const char*>(data.data()), data.size());
        if (type == valueTypes::dword)
            text = '#' + std::to_string(std::to_integer<int>(data[1]) * 256 + std::to_integer<int>(data[0]));
        done += name.bytes + '=' + text + ", ";
        return 5;  // nobody is told
    }
    I4 RegCloseKey(I4) override { return 0; }

    std::string key, done;
};

struct Sql : UserHome {
    Variant declare() {
        Bstr file = u"C:\\a.mdb";
        Bstr name = u"Base";
        return Cls_SQL(ours).Creer_ODBC_Access(file, name);
    }

    ListOfSources odbc;
    RecordedRegistry registry;
    Platform ours = home().with(services).with(registry).with(odbc);
};

TEST_F(Sql, declaringWritesEverythingInItsOrder) {
    files.makeFile("a.mdb");
    odbc.sources = {excel, access, {"BASE", "SQL Server"}};
    const auto driver = toUtf8(systemFolder) + "\\odbcjt32.dll";
    EXPECT_EQ(declare(), Variant(u"Creation OK"));
    EXPECT_EQ(odbc.used, 0);
    EXPECT_EQ(files.textOf("WINDOWS/ODBC.INI"),
              "[ODBC 32 bit Data Sources]\r\nBase=Microsoft Access Driver (*.mdb) (32 bit)\r\n"
              "[Base]\r\nDriver32=" +
                  driver + "\r\n");
    EXPECT_EQ(registry.done,
              "\nODBC Data Sources: Base=Microsoft Access Driver (*.mdb), "
              "\n+Base\n+Base\\Engines\n+Base\\Engines\\Jet"
              "\nBase: DBQ=C:\\a.mdb, Description=Base, Driver=" +
                  driver +
                  ", "
                  "FIL=MS Access;, UID=, SafeTransactions=#0, DriverId=#25, "
                  "\nBase\\Engines\\Jet: ImplicitCommitSync=, UserCommitSync=Yes, MaxBufferSize=#2048, "
                  "PageTimeout=#5, Threads=#3, ");
}

TEST_F(Sql, whatStandsInTheWay) {
    const Variant duplicate = u"Lien ODBC déjà existant.";
    const std::tuple<std::vector<Source>, Variant, I4, I4, I4> rows[] = {
        {{}, noMdac, 100, 0, 0},
        {{excel}, noMdac, 100, 0, 0},
        {{{"Other", "microsoft access driver (*.mdb)"}}, noMdac, 1, 0, 0},
        {{{"Base", "Microsoft Excel Driver (*.xls)"}, access}, duplicate, 100, 0, 0},
        {{access, {"Base", "x"}}, duplicate, 100, 0, 0},
        {{access}, noMdac, 100, -1, 0},
        {{access}, noMdac, 100, 0, -1},
        {{access}, {}, 453, 0, 0}};
    EXPECT_EQ(declare(), Variant(u"Fichier inexistant."));
    files.makeFile("a.mdb");
    for (const auto& row : rows) {
        Variant expected, result;
        std::tie(odbc.sources, expected, odbc.end, odbc.allocation, odbc.setting) = row;
        EXPECT_EQ(errorOf([&] { result = declare(); }), odbc.end == 453 ? 453 : 0);
        EXPECT_EQ(result, expected);
        EXPECT_EQ(odbc.used, 0) << "an environment was kept";
    }
    odbc = {};
    odbc.sources = {access};
    odbc.keeps = false;
    EXPECT_EQ(declare(), noMdac);
    EXPECT_TRUE(registry.done.empty() && files.textOf("WINDOWS/ODBC.INI").empty());
}

TEST_F(Sql, callsByName) {
    EXPECT_CALL(services, createObject).WillOnce([](auto) -> ObjectRef {
        raise(ErrorNumber::CannotCreateObject);
    });
    expectCallsOfEveryMethod<Cls_SQL>(
        ours, {gives(u"l''été", u"RepAPOS", u"l'été"), gives(u"''''", u"RepAPOS", u"''"),
               gives(u"", u"RepAPOS", u""), fails(429, u"Creer_ODBC_Access", u"C:\\a.mdb", u"Base")});
}

}  // namespace
}  // namespace tovera::testing
