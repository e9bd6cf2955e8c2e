#include <gtest/gtest.h>

#include "database/cls_sql.h"
#include "frame/utf8.h"
#include "platform/linux/odbc32.h"
#include "platform/linux/registry_user.h"
#include "platform/linux/user_folder.h"
#include "platform/platform.h"
#include "registry/cls_initreg.h"

namespace tovera::testing {
namespace {

const std::string sourcesKey = "Software\\ODBC\\ODBC.INI\\";

/// The Linux home with a registry and an `odbc.ini` of the test's own.
struct DataSources : ::testing::Test {
    UserFolder files;
    TemporaryFolder folder;
    const std::string iniFile = folder / "odbc.ini";
    const std::string database = files.onC("a.mdb");
    LinuxAdvapi32 registry{folder / "registry"};
    RegistryUser user{registry};
    LinuxOdbc32 odbc;
    Platform platform{home().services, home().user32, home().kernel32, home().files, registry, odbc};

    DataSources() {
        setenv("ODBCINI", iniFile.c_str(), 1);
        files.makeFile("a.mdb");
    }
    ~DataSources() override { unsetenv("ODBCINI"); }
    void SetUp() override {
        if (!hasStore()) GTEST_SKIP() << "LMDB isn't installed";
    }

    I4 write(const std::string& source, const std::string& name, const std::string& text) {
        return user.write(sourcesKey + source, name, text, valueTypes::text);
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
    std::vector<std::string> sources() {
        std::vector<std::string> found;
        I4 environment = 0;
        EXPECT_EQ(odbc.SQLAllocHandle(1, 0, environment), 0);
        EXPECT_EQ(odbc.SQLSetEnvAttr(environment, 200, 3, -6), 0);
        for (I4 status = 0; status == 0 || status == 1;) {
            AnsiText name{std::string(32, ' ')};
            AnsiText description{std::string(128, ' ')};
            I2 nameLength = 0;
            I2 length = 0;
            status = odbc.SQLDataSources(environment, 1, name, nameLength, description, length);
            found.push_back(std::string(name.terminated()) + ": " + std::string(description.terminated()) +
                            (status == 1 ? " (cut)" : ""));
        }
        found.pop_back();
        EXPECT_EQ(odbc.SQLFreeHandle(1, environment), 0);
        return found;
    }
};

TEST_F(DataSources, whatIsWrittenReachesTheFileInItsOwnWords) {
    std::ofstream(iniFile) << "; mine\n[Other]\nDriver = SQLite\n";
    ASSERT_EQ(user.create(sourcesKey + "Caf\xE9"), 0);
    EXPECT_EQ(write("CAF\xC9", "DBQ", "c:\\A.mdb"), 0);
    EXPECT_EQ(write("CAF\xC9", "Driver", "C:\\WINDOWS\\SYSTEM32\\odbcjt32.dll"), 0);
    EXPECT_EQ(write("CAF\xC9", "Description", "Caf\xE9\r\n[Other]"), 0);
    EXPECT_EQ(write("ODBC Data Sources", "Caf\xE9", "Microsoft Access Driver (*.mdb)"), 0);
    const std::string other = "; mine\n[Other]\nDriver = SQLite\n";
    EXPECT_EQ(contentOf(iniFile), other + "[Café]\nDatabase=" + database +
                                      "\nDriver=MDBTools\nDescription=Café  [Other]\n"
                                      "[ODBC Data Sources]\nCafé=MDBTools\n");
    std::string stored;
    EXPECT_EQ(user.read(sourcesKey + "Caf\xE9", "DBQ", stored), 0);
    EXPECT_EQ(stored, "c:\\A.mdb");
    EXPECT_EQ(user.remove(sourcesKey + "Caf\xE9"), 0);
    EXPECT_EQ(contentOf(iniFile), other + "[ODBC Data Sources]\n");

    std::filesystem::current_path(files.onC(""));
    ASSERT_EQ(user.create(sourcesKey + "Ici") | write("Ici", "DBQ", "A.MDB"), 0);
    EXPECT_NE(contentOf(iniFile).find("[Ici]\nDatabase=" + database + "\n"), std::string::npos);
}

TEST_F(DataSources, aFileThatCannotBeWrittenRefusesTheValue) {
    ASSERT_EQ(user.create(sourcesKey + "Base"), 0);
    std::filesystem::create_directory(iniFile);
    EXPECT_NE(write("Base", "UID", "x"), 0);
    std::string stored;
    EXPECT_EQ(user.read(sourcesKey + "Base", "UID", stored), registryStatus::notFound);
}

TEST_F(DataSources, theListIsThatOfOdbcPrograms) {
    if (!hasAccessDriver()) GTEST_SKIP() << "the Access driver isn't registered";
    const std::string given = "MS Access Database: Microsoft Access Driver (*.mdb)";
    EXPECT_EQ(sources(), std::vector{given});
    std::ofstream(iniFile) << "[Été]\nDriver=mdbtools\n[A name of more than thirty-one bytes]\nDriver=X\n";
    const std::vector<std::string> expected = {"\xC9t\xE9: Microsoft Access Driver (*.mdb)",
                                               "A name of more than thirty-one : X (cut)", given};
    EXPECT_EQ(sources(), expected);
}

TEST_F(DataSources, declaredOnceAndThenTaken) {
    if (!hasAccessDriver()) GTEST_SKIP() << "the Access driver isn't registered";
    const auto declare = [&](Bstr name) {
        Bstr file = u"C:\\a.mdb";
        return Cls_SQL(platform).Creer_ODBC_Access(file, name);
    };
    EXPECT_EQ(declare(u"Base é"), Variant(u"Creation OK"));
    EXPECT_NE(contentOf(iniFile).find("[Base é]\nDatabase=" + database + "\n"), std::string::npos);
    EXPECT_EQ(declare(u"Base é"), Variant(u"Lien ODBC déjà existant."));
    EXPECT_EQ(declare(u"MS Access Database"), Variant(u"Lien ODBC déjà existant."));
    const std::pair<const char16_t*, const char16_t*> values[] = {
        {u"ODBC Data Sources", u"Base é"}, {u"Base é", u"DBQ"}, {u"Base é\\Engines\\Jet", u"UserCommitSync"}};
    std::vector<Variant> read;
    for (const auto& [key, name] : values) {
        auto path = join(u"HKEY_CURRENT_USER\\Software\\ODBC\\ODBC.INI\\", std::u16string_view(key));
        Bstr entry = name;
        read.push_back(Cls_InitREG(platform).LireREG_STRING(path, entry));
    }
    EXPECT_EQ(read, (std::vector<Variant>{u"Microsoft Access Driver (*.mdb)", u"C:\\a.mdb", u"Yes"}));
}

}  // namespace
}  // namespace tovera::testing
