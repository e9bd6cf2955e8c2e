#include "cli/program.h"

#include <gtest/gtest.h>
#include <sstream>

#include "cli/usage.h"

namespace tovera::cli {
namespace {

/// The program on its arguments and input: its exit status, and what it writes.
struct Outcome {
    explicit Outcome(const std::vector<std::string>& arguments, const std::string& input = {})
        : in(input), status(runProgram(arguments, {in, out, err})) {}
    std::istringstream in;
    std::ostringstream out, err;
    int status;
};

TEST(Program, RunsStepsAndPrintsTheirResults) {
    const std::pair<std::vector<std::string>, std::string> rows[] = {
        // clang-format off
        {{"Cls_Conversion", "IntituleMonnaie=euro", "ConvertirNombreEnLettre(12, True)", "IntituleMonnaie"}, "douze euros\neuro\n"},
        {{"kadreldll.cls_math", "mesureprincipale(a=10)", "a"}, "-2.56\n-2.56\n"},
        {{"Cls_Math", "Hypothenuse(x=0, y = 0, 3, \"4\")", "Hypothenuse(x, y, -6E+0, 8)", "x"}, "5\n10\n0\n"},
        {{"Cls_Date", "Paques(2002)", "HeureEnSeconde(#2002-05-06 12:00:01#)"}, "2002-03-31\n43201\n"},
        {{"Cls_Date", "DateFRtoUS(\"a\"\"b\")"}, "\"b/a\"/\"b\n"},
        {{"Cls_Conversion", "IntituleMonnaie=5 b, \"c", "IntituleMonnaie"}, "5 b, \"c\n"},
        {{"Cls_Conversion", "IntituleMonnaie=[1E999..2]", "IntituleMonnaie"}, "[1E999..2]\n"},
        {{"Cls_Conversion", "ConvertirOemAnsi(\"ab\", b=\"xx\")", "IntituleMonnaie=b", "IntituleMonnaie"}, "1\nab\n"},
        {{"Cls_Date", "NBJoursOuvrables(d=#2002-05-06 18:00#, d)", "d"}, "1\n2002-05-06 18:00:00\n"},
        {{"Cls_Date", "NBJoursOuvrables(d=#2002-05-06#, d)", "NBJoursOuvrables(d=#2002-05-06 07:08#, d)", "d"}, "1\n1\n2002-05-06 07:08:00\n"},
        {{"Cls_Math", "MesurePrincipale(été=10)", "été", "MesurePrincipale(x=Empty)", "x"}, "-2.56\n-2.56\n0\nEmpty\n"},
        {{"Cls_Conversion", "IntituleMonnaie=007", "IntituleMonnaie", "IntituleMonnaie=  1.50", "IntituleMonnaie", "IntituleMonnaie=#2002-05-06#", "IntituleMonnaie"}, "007\n  1.50\n#2002-05-06#\n"},
        {{"Cls_Conversion", "IntituleMonnaie=  franc ", "IntitulePetiteMonnaie=intituleMONNAIE", "IntitulePetiteMonnaie"}, "  franc \n"},
        {{"Cls_Conversion", "IntituleMonnaie=euro", "ConvertirNombreEnLettre(2, tRUE)", "ConvertirNombreEnLettre(3, false)"}, "deux euros\ntrois\n"},
        {{"Cls_Traduction", "Charger_TousLesMessages(\"/nowhere\", m=[])", "m", "Charger_TousLesMessages(\"/nowhere\", m=[3..4] \"a\", null)", "m"}, "[1..1] Null\n[1..1] Null\n"},
        // clang-format on
    };
    for (const auto& [arguments, out] : rows) {
        const Outcome run(arguments);
        EXPECT_EQ(run.out.str(), out) << arguments[1];
        EXPECT_EQ(run.status, success) << run.err.str();
    }
}

TEST(Program, TellsFailuresAndBadCommandLinesApart) {
    const std::string usageText(usage);
    const auto badStep = [&](const std::string& number, const std::string& step, const std::string& why) {
        return "tovera: step " + number + " (" + step + "), character " + why + "\n" + usageText;
    };
    const auto inStep = [](const std::string& number, const std::string& step) {
        return "tovera: in step " + number + ": " + step + "\n";
    };
    const std::tuple<std::vector<std::string>, int, std::string, std::string> rows[] = {
        // clang-format off
        {{"Cls_Conversion", "ConvertirNombreEnLettre(0.996, False)"}, 1, "", "error 9: Indice hors des limites\n" + inStep("1", "ConvertirNombreEnLettre(0.996, False)")},
        {{"Cls_Date", "Chrono(1, 3)", "Paques(Null)", "Chrono(1, 4)"}, 1, "2\n", "error 94: Utilisation incorrecte de Null\n" + inStep("2", "Paques(Null)")},
        {{"Cls_Conversion", "Ctrl_SaiseNombre(\"x\")"}, 0, "\n", "[Erreur] Vous ne pouvez saisir que des chiffres, si vous voulez que la conversion fonctionne.\n"},
        {{"Cls_Conversion", "ConvertirNombreEnLettre(, True)"}, 1, "", "error 449: Argument obligatoire manquant\n" + inStep("1", "ConvertirNombreEnLettre(, True)")},
        {{"Cls_Conversion", "Ctrl_SaiseNombre=1"}, 1, "", "error 438: L'objet n'a pas cette propriété ou méthode\n" + inStep("1", "Ctrl_SaiseNombre=1")},
        {{"Cls_Rien", "Paques(2002)"}, 1, "", "error 429: Création de l'objet impossible\ntovera: no class \"Cls_Rien\"; \"tovera list\" names them\n"},
        {{"list", "Cls_Rien"}, 1, "", "error 429: Création de l'objet impossible\ntovera: no class \"Cls_Rien\"; \"tovera list\" names them\n"},
        {{}, 2, "", "tovera: a class is missing\n" + usageText},
        {{"Cls_Date"}, 2, "", "tovera: a step is missing\n" + usageText},
        {{"--frobnicate"}, 2, "", "tovera: unknown option --frobnicate\n" + usageText},
        {{"--version", "2"}, 2, "", "tovera: --version stands alone\n" + usageText},
        {{"list", "Cls_Date", "Cls_Math"}, 2, "", "tovera: list takes one class at most\n" + usageText},
        {{"Cls_Date", "Paques(2002)", "Paques(2002"}, 2, "", badStep("2", "Paques(2002", "12: the closing parenthesis is missing")},
        {{"Cls_Date", "Paques(2002 3)"}, 2, "", badStep("1", "Paques(2002 3)", "13: a comma or the closing parenthesis is expected")},
        {{"Cls_Date", "Paques(\"2002)"}, 2, "", badStep("1", "Paques(\"2002)", "8: a text without its closing quote")},
        {{"Cls_Date", "Paques(#hier#)"}, 2, "", badStep("1", "Paques(#hier#)", "8: not a date; write #2002-05-06# or #2002-05-06 12:00:00#")},
        {{"Cls_Date", "Paques(1x)"}, 2, "", badStep("1", "Paques(1x)", "8: not a number")},
        {{"Cls_Date", "Paques(1E+999)"}, 2, "", badStep("1", "Paques(1E+999)", "8: a number out of range")},
        {{"Cls_Date", "Paques(a=)"}, 2, "", badStep("1", "Paques(a=)", "10: a value for the variable \"a\"")},
        {{"Cls_Date", "Paques([1..2] \"x\")"}, 2, "", badStep("1", "Paques([1..2] \"x\")", "18: an array has as many texts as its bounds say")},
        {{"Cls_Date", "Paques([1E999..2])"}, 2, "", badStep("1", "Paques([1E999..2])", "9: an array begins with its bounds: [1..3]")},
        {{"Cls_Date", "Paques(a=2002)", "Paques(b)"}, 2, "", badStep("2", "Paques(b)", "8: \"b\" is neither a variable made before nor a property")},
        {{"Cls_Date", "Chrono(1, a)", "Paques(a=2002)"}, 2, "", badStep("1", "Chrono(1, a)", "11: \"a\" is neither a variable made before nor a property")},
        {{"Cls_Date", "Paques(2002) encore"}, 2, "", badStep("1", "Paques(2002) encore", "14: nothing may follow here: encore")},
        {{"Cls_Date", "(2002)"}, 2, "", badStep("1", "(2002)", "1: a step begins with the name of a member or variable")},
        // clang-format on
    };
    for (const auto& [arguments, status, out, err] : rows) {
        const Outcome run(arguments);
        EXPECT_EQ(run.status, status) << err;
        EXPECT_EQ(run.err.str(), err);
        EXPECT_EQ(run.out.str(), out);
    }
}

TEST(Program, RunsTheStepsOfItsInputLineByLine) {
    const std::string easter = "2002-03-31\n";
    const std::tuple<std::string, int, std::string, std::string> rows[] = {
        {"", 0, "", ""},
        {"Paques(2002)", 0, easter, ""},
        {"\xEF\xBB\xBF"
         "Paques(a=2002)\r\n\n \t\r\na\n",
         0, easter + "2002\n", ""},
        {"Paques(2002)\nPaques(Null)\nPaques(2002)\n", 1, easter,
         "error 94: Utilisation incorrecte de Null\ntovera: in line 2: Paques(Null)\n"},
        {"Paques(2002)\n\nPaques(a)\n", 2, easter,
         "tovera: line 3 (Paques(a)), character 8: \"a\" is neither a variable made before nor a property\n" +
             std::string(usage)},
    };
    for (const auto& [input, status, out, err] : rows) {
        const Outcome run({"Cls_Date", "-"}, input);
        EXPECT_EQ(run.status, status) << input;
        EXPECT_EQ(run.out.str(), out);
        EXPECT_EQ(run.err.str(), err);
    }
}

/// Output that takes so many characters and no more.
class FullDisk : public std::stringbuf {
  public:
    explicit FullDisk(std::size_t room) : room_(room) {}

  protected:
    std::streamsize xsputn(const char* text, std::streamsize count) override {
        return view().size() + static_cast<std::size_t>(count) > room_ ? 0
                                                                       : std::stringbuf::xsputn(text, count);
    }
    int_type overflow(int_type) override { return traits_type::eof(); }

  private:
    std::size_t room_;
};

TEST(Program, CallsNothingMoreWhenResultsGetLost) {
    for (const bool fromInput : {false, true}) {
        FullDisk disk(11);
        std::istringstream in("Paques(2002)\nPaques(2002)\nPaques(Null)\n");
        std::ostringstream err;
        std::ostream out(&disk);
        std::vector<std::string> arguments{"Cls_Date", "Paques(2002)", "Paques(2002)", "Paques(Null)"};
        if (fromInput) arguments = {"Cls_Date", "-"};
        EXPECT_EQ(runProgram(arguments, {in, out, err}), automationError);
        EXPECT_EQ(err.str(), "");
    }
}

TEST(Program, ListsClassesAndMembers) {
    const auto told = Outcome({"list"}).out.str() + Outcome({"list", "Cls_Conversion"}).out.str() +
                      Outcome({"list", "Cls_Math"}).out.str();
    for (const auto* line :
         {"KADRELDLL.Cls_Conversion\n", "\nIntituleMonnaie: BSTR, read\n",
          "\nIntituleMonnaie = strIntituleMonnaie: BSTR by reference, write\n",
          "\nConvertirNombreEnLettre(strNbSaisi: R8 by reference; Montant: VARIANT_BOOL by "
          "reference): BSTR\n    Renvoie un nombre en lettres.",
          "(Cx, Cy).\n    La mesure"})
        EXPECT_NE(told.find(line), std::string::npos) << line;
}

}  // namespace
}  // namespace tovera::cli
