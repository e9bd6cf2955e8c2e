#include "cli/program.h"

#include <gtest/gtest.h>
#include <sstream>

namespace tovera::cli {
namespace {

struct Outcome {
    int status;
    std::string out;
    std::string err;
};

Outcome runWith(const std::vector<std::string>& arguments) {
    std::ostringstream out;
    std::ostringstream err;
    const int status = runProgram(arguments, out, err);
    return {status, out.str(), err.str()};
}

struct Session {
    std::vector<std::string> arguments;
    std::string out;
};

TEST(Program, RunsStepsAndPrintsTheirResults) {
    const Session sessions[] = {
        {{"Cls_Conversion", "IntituleMonnaie=euro", "IntitulePetiteMonnaie=\"centime\"",
          "ConvertirNombreEnLettre(1234567.89, True)", "IntituleMonnaie"},
         "un million deux cent trente-quatre mille cinq cent soixante-sept euros et quatre-vingt-neuf "
         "centimes\n"
         "euro\n"},
        {{"kadreldll.cls_math", "mesureprincipale(a=10)", "a"}, "-2.56\n-2.56\n"},
        {{"Cls_Math", "Hypothenuse(x=0, y = 0, 3, \"4\")", "Hypothenuse(x, y, -6, 8)", "x"}, "5\n10\n0\n"},
        {{"Cls_Date", "Paques(2002)", "HeureEnSeconde(#2002-05-06 12:00:01#)", "SecondeEnHeure(-1)"},
         "2002-03-31\n43201\n0-1:59:59\n"},
        {{"Cls_Date", "DateFRtoUS(\"a\"\"b\")"}, "\"b/a\"/\"b\n"},
        {{"Cls_Conversion", "IntituleMonnaie=a b, \"c", "IntituleMonnaie"}, "a b, \"c\n"},
        {{"Cls_Conversion", "ConvertirOemAnsi(\"ab\", b=\"xx\")", "b", "IntituleMonnaie=b",
          "IntituleMonnaie"},
         "1\nab\nab\n"},
        {{"Cls_Conversion", "Ctrl_SaiseNombre(\" 1 2,5\")"}, "12,5\n"},
        {{"Cls_Date", "NBJoursOuvrables(d=#2002-05-06#, d)", "d"}, "1\n2002-05-06\n"},
    };
    for (const auto& session : sessions) {
        const auto outcome = runWith(session.arguments);
        EXPECT_EQ(outcome.out, session.out) << session.arguments[1];
        EXPECT_EQ(outcome.status, success) << outcome.err;
    }
}

struct Failure {
    std::vector<std::string> arguments;
    int status;
    std::string err;  ///< how standard error begins
};

TEST(Program, TellsFailuresAndBadCommandLinesApart) {
    const Failure failures[] = {
        {{"Cls_Conversion", "ConvertirNombreEnLettre(0.996, False)"}, automationError, "error 9: "},
        {{"Cls_Conversion", "ConvertirNombreEnLettre(\"abc\", False)"}, automationError, "error 13: "},
        {{"Cls_Conversion", "ConvertirNombreEnLettre(Null, False)"}, automationError, "error 94: "},
        {{"Cls_Conversion", "ConvertirNombreEnLettre(1)"}, automationError, "error 449: "},
        {{"Cls_Conversion", "ConvertirNombreEnLettre(, True)"}, automationError, "error 449: "},
        {{"Cls_Conversion", "ConvertirNombreEnLettre(1, True, 2)"}, automationError, "error 450: "},
        {{"Cls_Conversion", "ConvertirNombre(1)"}, automationError, "error 438: "},
        {{"Cls_Conversion", "Ctrl_SaiseNombre=1"}, automationError, "error 438: "},
        {{"Cls_Date", "Paques(10000)"}, automationError, "error 5: "},
        {{"Cls_Date", "Chrono(0, 2147483648)"}, automationError, "error 6: "},
        {{"Cls_Rien", "Paques(2002)"}, automationError, "error 429: "},
        {{"list", "Cls_Rien"}, automationError, "error 429: "},
        {{}, badCommandLine, "tovera: a class is missing\nusage: "},
        {{"Cls_Date"}, badCommandLine, "tovera: a step is missing\nusage: "},
        {{"--frobnicate"}, badCommandLine, "tovera: unknown option --frobnicate\n"},
        {{"Cls_Date", "Paques(2002)", "Paques(2002"},
         badCommandLine,
         "tovera: step 2 (Paques(2002), character 12: the closing parenthesis is missing\n"},
        {{"Cls_Date", "Paques(\"2002)"},
         badCommandLine,
         "tovera: step 1 (Paques(\"2002)), character 8: a text"},
        {{"Cls_Date", "Paques(#hier#)"},
         badCommandLine,
         "tovera: step 1 (Paques(#hier#)), character 8: not a date"},
        {{"Cls_Date", "Paques(1x)"},
         badCommandLine,
         "tovera: step 1 (Paques(1x)), character 8: not a number"},
        {{"Cls_Date", "Paques(1E+999)"},
         badCommandLine,
         "tovera: step 1 (Paques(1E+999)), character 8: a number out"},
        {{"Cls_Date", "Paques(a=)"},
         badCommandLine,
         "tovera: step 1 (Paques(a=)), character 10: a value for"},
        {{"Cls_Date", "Paques(a=[1..2] \"x\")"}, badCommandLine, "tovera: step 1 "},
        {{"Cls_Date", "Paques(2002) encore"}, badCommandLine, "tovera: step 1 "},
        {{"Cls_Date", "(2002)"}, badCommandLine, "tovera: step 1 ((2002)), character 1: a step begins"},
    };
    for (const auto& failure : failures) {
        const auto outcome = runWith(failure.arguments);
        EXPECT_EQ(outcome.status, failure.status) << failure.err;
        EXPECT_EQ(outcome.err.substr(0, failure.err.size()), failure.err);
        EXPECT_EQ(outcome.out, "");
    }
}

TEST(Program, ListsClassesAndMembers) {
    EXPECT_NE(runWith({"list"}).out.find("KADRELDLL.Cls_Conversion\n"), std::string::npos);
    const auto members = runWith({"list", "Cls_Conversion"}).out;
    EXPECT_NE(members.find("IntituleMonnaie: BSTR, read\n"), std::string::npos);
    EXPECT_NE(members.find("IntituleMonnaie = strIntituleMonnaie: BSTR by reference, write\n"),
              std::string::npos);
    EXPECT_NE(members.find("ConvertirNombreEnLettre(strNbSaisi: R8 by reference; Montant: VARIANT_BOOL by "
                           "reference): BSTR\n    Renvoie un nombre en lettres."),
              std::string::npos);
}

}  // namespace
}  // namespace tovera::cli
