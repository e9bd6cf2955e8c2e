#include "cli/form_argument.h"

#include <gtest/gtest.h>
#include <sstream>
#include <sys/stat.h>

#include "cli/program.h"
#include "platform/linux/temporary_folder.h"
#include "support/test_platform.h"

namespace tovera::cli {
namespace {

namespace fs = std::filesystem;
using testing::contentOf;
using testing::errorOf;

std::string formCalled(const std::string& caption) {
    return "VERSION 5.00\r\nBegin VB.Form Accueil \r\n   Caption         =   \"" + caption + "\"\r\nEnd\r\n";
}

class FormArgument : public ::testing::Test {
  protected:
    FormArgument() { write(path, formCalled("Bonjour")); }

    static void write(const std::string& file, std::string_view bytes) {
        std::ofstream(file, std::ios::binary) << bytes;
    }
    /// Runs a member on a form of a file and the language file, and then further steps; gives the status.
    int run(const std::string& member, const std::string& form,
            const std::vector<std::string>& further = {}) {
        std::vector<std::string> arguments{"Cls_Traduction", member + "(" + form + ", \"" + language + "\")"};
        arguments.insert(arguments.end(), further.begin(), further.end());
        err.str("");
        std::istringstream in;
        return runProgram(arguments, {in, out, err});
    }
    ObjectRef open(const std::string& file) { return forms.open(fs::path(file).u16string()); }

    testing::TemporaryFolder folder;
    std::string path = folder / "Accueil.frm", language = folder / "en.lng";
    std::ostringstream out, err;
    Forms forms{home().services};
};

TEST_F(FormArgument, TakesTheTextsOfALanguageFileWhenAllStepsAreDone) {
    const std::string form = "form(\"" + path + "\")";
    EXPECT_EQ(run("Sauver_LangueFeuille", form), success) << err.str();
    EXPECT_EQ(contentOf(language), "[Accueil]\r\nAccueil.Caption=Bonjour\r\n");
    EXPECT_EQ(contentOf(path), formCalled("Bonjour"));
    write(language, "[Accueil]\r\nAccueil.Caption=Hello\r\n");
    EXPECT_EQ(run("Charger_LangueFeuille", form, {"Inconnu()"}), automationError);
    EXPECT_EQ(contentOf(path), formCalled("Bonjour"));
    EXPECT_EQ(run("Charger_LangueFeuille", form), success) << err.str();
    EXPECT_EQ(contentOf(path), formCalled("Hello"));
    EXPECT_EQ(out.str(), "\n\n\n");
}

TEST_F(FormArgument, RefusesWhatIsNoFormFile) {
    write(folder / "cut.frm", formCalled("").substr(0, 40));
    const std::tuple<std::string, int, std::string> rows[] = {
        {"form(\"" + (folder / "missing.frm") + "\")", automationError, "error 53:"},
        {"form(\"\\\\machine\\part\\a.frm\")", automationError, "error 76:"},
        {"form(\"" + folder.path() + "\")", automationError, "error 7"},
        {"form(\"" + (folder / "cut.frm") + "\")", automationError, "error 321:"},
        {"form(5)", badCommandLine, "tovera:"},
        {"form(\"a.frm\"", badCommandLine, "tovera:"},
    };
    for (const auto& [argument, status, error] : rows) {
        EXPECT_EQ(run("Sauver_LangueFeuille", argument), status) << argument;
        EXPECT_TRUE(err.str().starts_with(error)) << argument << err.str();
        EXPECT_FALSE(fs::exists(language));
    }
}

TEST_F(FormArgument, KeepsTheModeAndTheLinkOfAFileThatItReplaces) {
    const auto link = folder / "link.frm";
    fs::create_symlink(path, link);
    EXPECT_EQ(open(path), open(folder / "ACCUEIL.FRM"));
    EXPECT_EQ(open(path), open(link));
    chmod(path.c_str(), 0640);
    writeMember(open(link), u"Caption", u"Hello");
    forms.save();
    EXPECT_EQ(contentOf(path), formCalled("Hello"));
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(static_cast<unsigned>(fs::status(path).permissions()), 0640U);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), {}), 2);
}

TEST_F(FormArgument, LeavesAFileThatIsReadOnlyOrChangedBySomebodyElseOrUnchanged) {
    writeMember(open(path), u"Caption", u"Hello");
    chmod(path.c_str(), 0444);
    EXPECT_EQ(errorOf([&] { forms.save(); }), 70);
    chmod(path.c_str(), 0644);
    write(path, "somebody else's");
    EXPECT_EQ(errorOf([&] { forms.save(); }), 75);
    EXPECT_EQ(contentOf(path), "somebody else's");
    writeMember(open(path), u"Caption", u"Bonjour");
    EXPECT_EQ(errorOf([&] { forms.save(); }), 0);  // what is as it was is not written
}

TEST_F(FormArgument, ChangesAllFormsOrNone) {
    const std::string files[] = {path, folder / "b.frm", folder / "c.frm"};
    for (const auto& file : files) {
        write(file, formCalled("Bonjour"));
        writeMember(open(file), u"Caption", u"Hello");
    }
    chmod(files[2].c_str(), 0444);
    EXPECT_EQ(errorOf([&] { forms.save(); }), 70);
    for (const auto& file : files) EXPECT_EQ(contentOf(file), formCalled("Bonjour"));
    chmod(files[2].c_str(), 0644);
    forms.save();
    for (const auto& file : files) EXPECT_EQ(contentOf(file), formCalled("Hello"));
}

}  // namespace
}  // namespace tovera::cli
