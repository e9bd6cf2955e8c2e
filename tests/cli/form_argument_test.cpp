#include "cli/form_argument.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <sys/stat.h>

#include "cli/program.h"
#include "platform/linux/temporary_folder.h"
#include "platform/platform.h"
#include "support/test_platform.h"

namespace tovera::cli {
namespace {

namespace fs = std::filesystem;
using testing::errorOf;

constexpr std::string_view formText =
    "VERSION 5.00\r\nBegin VB.Form Accueil \r\n   Caption         =   \"Bonjour\"\r\nEnd\r\n";

class FormArgumentTest : public ::testing::Test {
  protected:
    FormArgumentTest() { write(path, formText); }

    static void write(const fs::path& file, std::string_view bytes) {
        std::ofstream(file, std::ios::binary) << bytes;
    }
    static std::string bytesOf(const fs::path& file) {
        std::ifstream stream(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }
    int run(std::vector<std::string> steps) {
        steps.insert(steps.begin(), "Cls_Traduction");
        return runProgram(steps, out, err);
    }
    std::string step(const std::string& member) const {
        return member + "(form(\"" + path.string() + "\"), \"" + language.string() + "\")";
    }

    testing::TemporaryFolder temporary;
    fs::path folder = temporary.path();
    fs::path path = folder / "Accueil.frm";
    fs::path language = folder / "en.lng";
    std::string english =
        "VERSION 5.00\r\nBegin VB.Form Accueil \r\n   Caption         =   \"Hello\"\r\nEnd\r\n";
    std::ostringstream out;
    std::ostringstream err;
};

TEST_F(FormArgumentTest, TakesTheTextsOfALanguageFile) {
    EXPECT_EQ(run({step("Sauver_LangueFeuille")}), success) << err.str();
    EXPECT_EQ(bytesOf(language), "[Accueil]\r\nAccueil.Caption=Bonjour\r\n");
    EXPECT_EQ(bytesOf(path), formText);
    write(language, "[Accueil]\r\nAccueil.Caption=Hello\r\n");
    EXPECT_EQ(run({step("Charger_LangueFeuille")}), success) << err.str();
    EXPECT_EQ(bytesOf(path), english);
    EXPECT_EQ(out.str(), "\n\n");
}

TEST_F(FormArgumentTest, WritesNothingWhenAStepFails) {
    write(language, "[Accueil]\r\nAccueil.Caption=Hello\r\n");
    EXPECT_EQ(run({step("Charger_LangueFeuille"), "Inconnu()"}), automationError);
    EXPECT_EQ(bytesOf(path), formText);
}

struct BadForm {
    std::string argument;
    int status;
    std::string error;
};

TEST_F(FormArgumentTest, RefusesWhatIsNoFormFile) {
    write(folder / "cut.frm", formText.substr(0, formText.size() - 4));
    const BadForm forms[] = {
        {"form(\"" + (folder / "missing.frm").string() + "\")", automationError, "error 53:"},
        {"form(\"" + (folder / "missing" / "a.frm").string() + "\")", automationError, "error 53:"},
        {"form(\"\\\\machine\\part\\a.frm\")", automationError, "error 76:"},
        {"form(\"" + folder.string() + "\")", automationError, "error 7"},
        {"form(\"" + (folder / "cut.frm").string() + "\")", automationError, "error 321:"},
        {"form(5)", badCommandLine, "tovera:"},
        {"form(\"a.frm\"", badCommandLine, "tovera:"},
    };
    for (const auto& form : forms) {
        err.str("");
        const auto argument = "Sauver_LangueFeuille(" + form.argument + ", \"" + language.string() + "\")";
        EXPECT_EQ(run({argument}), form.status) << argument;
        EXPECT_EQ(err.str().substr(0, form.error.size()), form.error) << argument << err.str();
        EXPECT_FALSE(fs::exists(language));
    }
}

class FormsTest : public FormArgumentTest {
  protected:
    void translate(Forms& forms, const fs::path& file) {
        writeMember(forms.open(file.u16string()), u"Caption", u"Hello");
    }
    Forms forms{home().services};
};

TEST_F(FormsTest, GivesAllWhoNameAFileTheSameForm) {
    fs::create_symlink(path, folder / "link.frm");
    EXPECT_EQ(forms.open(path.u16string()), forms.open((folder / "ACCUEIL.FRM").u16string()));
    EXPECT_EQ(forms.open(path.u16string()), forms.open((folder / "link.frm").u16string()));
}

TEST_F(FormsTest, KeepsTheModeAndTheLinkOfAFileThatItReplaces) {
    fs::create_symlink(path, folder / "link.frm");
    chmod(path.c_str(), 0640);
    translate(forms, folder / "link.frm");
    forms.save();
    EXPECT_EQ(bytesOf(path), english);
    EXPECT_TRUE(fs::is_symlink(folder / "link.frm"));
    EXPECT_EQ(static_cast<unsigned>(fs::status(path).permissions()), 0640U);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), 2);
}

TEST_F(FormsTest, LeavesAReadOnlyFileAndOneThatSomebodyElseChanged) {
    translate(forms, path);
    chmod(path.c_str(), 0444);
    EXPECT_EQ(errorOf([&] { forms.save(); }), 70);
    chmod(path.c_str(), 0644);
    EXPECT_EQ(bytesOf(path), formText);
    write(path, "somebody else's");
    EXPECT_EQ(errorOf([&] { forms.save(); }), 75);
    EXPECT_EQ(bytesOf(path), "somebody else's");
}

TEST_F(FormsTest, DoesNotWriteAFileWithoutChanges) {
    struct stat before {};
    struct stat after {};
    stat(path.c_str(), &before);
    writeMember(forms.open(path.u16string()), u"Caption", u"Hello");
    writeMember(forms.open(path.u16string()), u"Caption", u"Bonjour");
    forms.save();
    stat(path.c_str(), &after);
    EXPECT_EQ(before.st_ino, after.st_ino);
}

}  // namespace
}  // namespace tovera::cli
