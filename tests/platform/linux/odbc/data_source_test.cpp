#include <gtest/gtest.h>

#include "platform/odbc32.h"
#include "support/user_home.h"

namespace tovera::testing {
namespace {

const std::string sourcesKey = "Software\\ODBC\\ODBC.INI\\";

/// Data sources in the registry, and in the file of unixODBC.
struct DataSources : UserHomeWithStore {
    DataSources() { setenv("ODBCINI", odbcFile.c_str(), 1); }
    ~DataSources() override { unsetenv("ODBCINI"); }

    const std::string odbcFile = files.onC("odbc.ini");
    const std::string database = files.onC("a.mdb");
    Odbc32& odbc = homeOdbc32();

    I4 write(const std::string& source, const std::string& name, const std::string& text,
             I4 type = valueTypes::text) {
        return user.write(sourcesKey + source, name, text, type);
    }
    std::vector<std::string> sources() {
        std::vector<std::string> found;
        I4 environment = 0;
        EXPECT_EQ(odbc.SQLAllocHandle(1, 0, environment), 0);
        EXPECT_EQ(odbc.SQLSetEnvAttr(environment, 200, 3, -6), 0);
        AnsiText name{std::string(32, ' ')};
        AnsiText driver{std::string(128, ' ')};
        auto next = [&, ignored = I2{0}]() mutable {
            return odbc.SQLDataSources(environment, 1, name, ignored, driver, ignored);
        };
        for (I4 status = next(); status == 0 || status == 1; status = next())
            found.push_back(std::string(name.terminated()) + ": " + std::string(driver.terminated()) +
                            (status == 1 ? " (cut)" : ""));
        EXPECT_EQ(odbc.SQLFreeHandle(1, environment), 0);
        return found;
    }
};

TEST_F(DataSources, reachTheFileInItsOwnWords) {
    const std::string other = "; mine\n[Other]\nDriver = SQLite\n";
    files.makeFile("odbc.ini", other);
    files.makeFile("a.mdb");
    std::filesystem::current_path(files.onC(""));
    ASSERT_EQ(user.create(sourcesKey + "Caf\xE9"), 0);
    const std::pair<std::string, std::string> values[] = {{"DBQ", "A.MDB"},
                                                          {"Driver", "C:\\WINDOWS\\SYSTEM32\\odbcjt32.dll"},
                                                          {"Description", "Caf\xE9\r\n[Other]"},
                                                          {"a=b", "no name for the file"}};
    for (const auto& [name, text] : values) EXPECT_EQ(write("CAF\xC9", name, text), 0);
    EXPECT_EQ(write("CAF\xC9", "Number", {"\x19\0\0\0", 4}, valueTypes::dword), 0);
    EXPECT_EQ(write("ODBC Data Sources", "Caf\xE9", "Microsoft Access Driver (*.mdb)"), 0);
    EXPECT_EQ(contentOf(odbcFile), other + "[Café]\nDatabase=" + database +
                                       "\nDriver=MDBTools\nDescription=Café  [Other]\nNumber=25\n"
                                       "[ODBC Data Sources]\nCafé=MDBTools\n");
    EXPECT_TRUE(user.reads(sourcesKey + "Caf\xE9", "DBQ", "A.MDB"));
    EXPECT_EQ(user.remove(sourcesKey + "Caf\xE9"), 0);
    EXPECT_EQ(contentOf(odbcFile), other + "[ODBC Data Sources]\n");

    std::filesystem::remove(odbcFile);
    ASSERT_EQ(user.create(sourcesKey + "Base") | write("Base", "UID", "x"), 0);
    EXPECT_EQ(contentOf(odbcFile), "[ODBC Data Sources]\n[Base]\nUID=x\n");
    std::filesystem::remove(odbcFile);
    std::filesystem::create_directory(odbcFile);
    EXPECT_NE(write("Base", "UID", "y"), 0);
    EXPECT_TRUE(user.reads(sourcesKey + "Base", "UID", "x")) << "refused by the file, kept in the registry";
}

/// What ODBC's file can't keep as it is stays out of it, and away from what is there.
TEST_F(DataSources, areWholeInTheFileOrNotThereAtAll) {
    const std::string other = "[Other]\nDriver=SQLite\n[ODBC Data Sources]\nOther=SQLite\n";
    files.makeFile("odbc.ini", other);
    const std::string database = "C:\\a.mdb";
    const auto declare = [&](const std::string& name, const std::string& file) {
        write("ODBC Data Sources", name, "Microsoft Access Driver (*.mdb)");
        EXPECT_EQ(user.create(sourcesKey + name), 0);
        write(name, "DBQ", file);
        write(name, "UID", "x");
    };
    ::testing::internal::CaptureStderr();
    for (const auto* name : {"", " ", " Other", "Other ", "Other]x", "[Other", "a=b", ";a", "#a", "a\nb",
                             "Other\r", "\r\n[Other]\r\nDriver=X"})
        EXPECT_FALSE(odbc.canKeepSource({name}, {database})) << name;
    EXPECT_FALSE(odbc.canKeepSource({"a"}, {"C:\\a\nb.mdb"}));
    EXPECT_FALSE(odbc.canKeepSource({"a"}, {"C:\\a.mdb "}));
    EXPECT_FALSE(odbc.canKeepSource({"a"}, {"C:\\" + std::string(1000, 'x')}));
    EXPECT_THAT(::testing::internal::GetCapturedStderr(), ::testing::HasSubstr("Invalid DSN: Other]x ("));
    for (const auto* name : {"Other]x", "Other\r\n", "a=b", ";a"}) declare(name, database);
    EXPECT_EQ(contentOf(odbcFile), other);

    for (const auto* name : {"a\\b", "A b; c's (2)"}) {
        EXPECT_TRUE(odbc.canKeepSource({name}, {database}));
        declare(name, database);
    }
    user.create(sourcesKey + "a\\b\\Engines");
    write("a\\b\\Engines", "Threads", "3");
    const auto values = "]\nDatabase=" + files.onC("a.mdb") + "\nUID=x\n";
    const std::string list = "a\\b=MDBTools\nA b; c's (2)=MDBTools\n";
    EXPECT_EQ(contentOf(odbcFile), other + list + "[a\\b" + values + "[A b; c's (2)" + values);
    user.remove(sourcesKey + "a\\b\\Engines");
    EXPECT_EQ(user.remove(sourcesKey + "a\\b"), 0);
    EXPECT_EQ(contentOf(odbcFile), other + "A b; c's (2)=MDBTools\n[A b; c's (2)" + values);
}

TEST_F(DataSources, areListedAsOdbcProgramsSeeThem) {
    if (std::system("odbcinst -q -d -n MDBTools >/dev/null 2>&1") != 0)
        GTEST_SKIP() << "the Access driver isn't registered";
    const std::string given = "MS Access Database: Microsoft Access Driver (*.mdb)";
    EXPECT_EQ(sources(), std::vector{given});
    files.makeFile("odbc.ini", "[Été]\nDriver=mdbtools\n[A name of more than thirty-one bytes]\nDriver=X\n");
    EXPECT_EQ(sources(), (std::vector<std::string>{"\xC9t\xE9: Microsoft Access Driver (*.mdb)",
                                                   "A name of more than thirty-one : X (cut)", given}));
}

}  // namespace
}  // namespace tovera::testing
