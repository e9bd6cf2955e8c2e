#include "cli/program.h"

#include <gtest/gtest.h>
#include <sstream>

namespace tovera::cli {
namespace {

/// The program on its arguments: its exit status, and what it writes.
struct Session {
    explicit Session(const std::vector<std::string>& arguments) : status(runProgram(arguments, out, err)) {}
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
        const Session run(arguments);
        EXPECT_EQ(run.out.str(), out) << arguments[1];
        EXPECT_EQ(run.status, success) << run.err.str();
    }
}

TEST(Program, TellsFailuresAndBadCommandLinesApart) {
    const std::tuple<int, std::vector<std::string>, std::string> rows[] = {
        // clang-format off
        {1, {"Cls_Conversion", "ConvertirNombreEnLettre(0.996, False)"}, "error 9: Indice hors des limites\n"},
        {1, {"Cls_Conversion", "ConvertirNombreEnLettre(, True)"}, "error 449: "},
        {1, {"Cls_Conversion", "Ctrl_SaiseNombre=1"}, "error 438: "},
        {1, {"Cls_Rien", "Paques(2002)"}, "error 429: "}, {1, {"list", "Cls_Rien"}, "error 429: "},
        {2, {}, "tovera: a class is missing\nusage: "},
        {2, {"Cls_Date"}, "tovera: a step is missing\nusage: "},
        {2, {"--frobnicate"}, "tovera: unknown option --frobnicate\n"},
        {2, {"Cls_Date", "Paques(2002)", "Paques(2002"}, "tovera: step 2 (Paques(2002), character 12: the c"},
        {2, {"Cls_Date", "Paques(\"2002)"}, "tovera: step 1 (Paques(\"2002)), character 8: a text"},
        {2, {"Cls_Date", "Paques(#hier#)"}, "tovera: step 1 (Paques(#hier#)), character 8: not a date"},
        {2, {"Cls_Date", "Paques(1x)"}, "tovera: step 1 (Paques(1x)), character 8: not a number"},
        {2, {"Cls_Date", "Paques(1E+999)"}, "tovera: step 1 (Paques(1E+999)), character 8: a number out"},
        {2, {"Cls_Date", "Paques(a=)"}, "tovera: step 1 (Paques(a=)), character 10: a value for"},
        {2, {"Cls_Date", "Paques([1..2] \"x\")"}, "tovera: step 1 "},
        {2, {"Cls_Date", "Paques([1E999..2])"}, "tovera: step 1 (Paques([1E999..2])), character 9: an array"},
        {2, {"Cls_Date", "Paques(2002) encore"}, "tovera: step 1 "},
        {2, {"Cls_Date", "Paques(a=2002)", "Paques(b)"}, "tovera: step 2 (Paques(b)), character 8: \"b\" is neither"},
        {2, {"Cls_Date", "Paques(a)", "Paques(a=2002)"}, "tovera: step 1 (Paques(a)), character 8: \"a\" is neither"},
        {2, {"Cls_Date", "(2002)"}, "tovera: step 1 ((2002)), character 1: a step begins"},
        // clang-format on
    };
    for (const auto& [status, arguments, errorBegins] : rows) {
        const Session run(arguments);
        EXPECT_EQ(run.status, status) << errorBegins;
        EXPECT_EQ(run.err.str().substr(0, errorBegins.size()), errorBegins);
        EXPECT_EQ(run.out.str(), "");
    }
}

TEST(Program, ListsClassesAndMembers) {
    const auto told = Session({"list"}).out.str() + Session({"list", "Cls_Conversion"}).out.str() +
                      Session({"list", "Cls_Math"}).out.str();
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
