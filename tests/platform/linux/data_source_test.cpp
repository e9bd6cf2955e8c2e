#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

#include "database/cls_sql.h"
#include "frame/utf8.h"
#include "platform/linux/advapi32.h"
#include "platform/linux/entry_point.h"
#include "platform/linux/odbc32.h"
#include "platform/linux/registry_user.h"
#include "platform/linux/temporary_folder.h"
#include "platform/platform.h"

namespace tovera::testing {
namespace {

/// The Linux home with a registry and an `odbc.ini` of the test's own.
struct DataSources : ::testing::Test {
    TemporaryFolder folder;
    const std::string iniFile = folder / "odbc.ini";
    LinuxAdvapi32 registry{folder / "registry"};
    LinuxOdbc32 odbc;
    Platform platform{home().services, home().user32, home().kernel32, home().files, registry, odbc};

    void SetUp() override {
        if (!hasStore()) GTEST_SKIP() << "LMDB isn't installed";
    }
    DataSources() {
        setenv("ODBCINI", iniFile.c_str(), 1);
        setenv("XDG_DATA_HOME", folder.path().c_str(), 1);
    }
    ~DataSources() override {
        unsetenv("ODBCINI");
        unsetenv("XDG_DATA_HOME");
    }

    static bool hasAccessDriver() {
        SharedLibrary installer("libodbcinst.so.2");
        if (!installer.isPresent()) return false;
        using GetProfile = int(const char*, const char*, const char*, char*, int, const char*);
        const EntryPoint<GetProfile> get(installer, "SQLGetPrivateProfileString");
        char driver[256] = "";
        get("MDBTools", "Driver", "", &driver[0], int{sizeof driver}, "odbcinst.ini");
        return driver[0] != '\0';
    }
    std::string ini() const {
        std::ostringstream text;
        text << std::ifstream(iniFile).rdbuf();
        return text.str();
    }
    std::vector<std::string> sources() {
        std::vector<std::string> found;
        I4 environment = 0;
        if (odbc.SQLAllocHandle(1, 0, environment) != 0) return found;
        odbc.SQLSetEnvAttr(environment, 200, 3, -6);
        while (true) {
            AnsiText name{std::string(32, ' ')};
            AnsiText description{std::string(128, ' ')};
            I2 nameLength = 0;
            I2 length = 0;
            const auto status = odbc.SQLDataSources(environment, 1, name, nameLength, description, length);
            if (status != 0 && status != 1) break;
            found.push_back(std::string(name.terminated()) + ": " + std::string(description.terminated()) +
                            (status == 1 ? " (cut)" : ""));
        }
        odbc.SQLFreeHandle(1, environment);
        return found;
    }
};

const std::string sourcesKey = "Software\\ODBC\\ODBC.INI\\";

TEST_F(DataSources, whatIsWrittenReachesTheFileInItsOwnWords) {
    std::ofstream(iniFile) << "; mine\n[Other]\nDriver = SQLite\n";
    std::ofstream(folder / "a.mdb") << "x";
    RegistryUser user(registry);
    const auto host = folder / "a.mdb";
    ASSERT_EQ(user.create(sourcesKey + "Caf\xE9"), 0);
    const auto write = [&](const std::string& name, const std::string& text) {
        EXPECT_EQ(user.write(sourcesKey + "CAF\xC9", name, text, valueTypes::text), 0);
    };
    write("DBQ", "Z:" + host);
    write("Driver", "C:\\WINDOWS\\SYSTEM32\\odbcjt32.dll");
    write("Description", "Caf\xE9\r\n[Other]");
    EXPECT_EQ(user.write(sourcesKey + "ODBC Data Sources", "Caf\xE9", "Microsoft Access Driver (*.mdb)",
                         valueTypes::text),
              0);
    EXPECT_EQ(ini(), "; mine\n[Other]\nDriver = SQLite\n[Café]\nDatabase=" + host +
                         "\nDriver=MDBTools\nDescription=Café  [Other]\n"
                         "[ODBC Data Sources]\nCafé=MDBTools\n");
    std::string stored;
    EXPECT_EQ(user.read(sourcesKey + "Caf\xE9", "DBQ", stored), 0);
    EXPECT_EQ(stored, "Z:" + host);

    EXPECT_EQ(user.remove(sourcesKey + "Caf\xE9"), 0);
    EXPECT_EQ(ini(), "; mine\n[Other]\nDriver = SQLite\n[ODBC Data Sources]\n");
}

TEST_F(DataSources, aFileThatCannotBeWrittenRefusesTheValue) {
    RegistryUser user(registry);
    ASSERT_EQ(user.create(sourcesKey + "Base"), 0);
    std::filesystem::create_directory(iniFile);
    EXPECT_NE(user.write(sourcesKey + "Base", "UID", "x", valueTypes::text), 0);
    std::string stored;
    EXPECT_EQ(user.read(sourcesKey + "Base", "UID", stored), registryStatus::notFound);
}

TEST_F(DataSources, theListIsThatOfOdbcPrograms) {
    if (!hasAccessDriver()) GTEST_SKIP() << "the Access driver isn't registered";
    const std::string given = "MS Access Database: Microsoft Access Driver (*.mdb)";
    EXPECT_EQ(sources(), std::vector<std::string>{given});
    std::ofstream(iniFile) << "[Été]\nDriver=mdbtools\n[A name of more than thirty-one bytes]\nDriver=X\n";
    const std::vector<std::string> expected = {"\xC9t\xE9: Microsoft Access Driver (*.mdb)",
                                               "A name of more than thirty-one : X (cut)", given};
    EXPECT_EQ(sources(), expected);
}

TEST_F(DataSources, declaredOnceAndThenTaken) {
    if (!hasAccessDriver()) GTEST_SKIP() << "the Access driver isn't registered";
    std::ofstream(folder / "a.mdb") << "x";
    Cls_SQL sql(platform);
    const auto declare = [&](const char16_t* as) {
        Bstr file(fromUtf8(folder / "a.mdb"));
        Bstr name = as;
        return sql.Creer_ODBC_Access(file, name);
    };
    EXPECT_EQ(declare(u"Base é"), Variant(u"Creation OK"));
    EXPECT_NE(ini().find("[Base é]\nDatabase=" + (folder / "a.mdb") + "\n"), std::string::npos) << ini();
    EXPECT_EQ(declare(u"Base é"), Variant(u"Lien ODBC déjà existant."));
    EXPECT_EQ(declare(u"MS Access Database"), Variant(u"Lien ODBC déjà existant."));
    std::string engine;
    EXPECT_EQ(RegistryUser(registry).read(sourcesKey + "Base \xE9\\Engines\\Jet", "UserCommitSync", engine),
              0);
    EXPECT_EQ(engine, "Yes");
}

}  // namespace
}  // namespace tovera::testing
