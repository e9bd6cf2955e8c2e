// Writes a module of LibreOffice Basic that does what the program does with the same arguments: basic_steps
// CLASS STEP..., or CLASS - for steps on standard input. Its helpers (Show, Told and others) are in the
// module of tests/libreoffice/transcripts. Exit status 3: a step that can't be said in Basic.

#include <iostream>
#include <vector>

#include "basic_steps/basic_text.h"
#include "cli/expression.h"
#include "frame/utf8.h"

namespace {

struct Steps {
    const char* kind = "step";
    std::vector<std::string> texts;
};

Steps stepsOf(std::vector<std::string> arguments) {
    if (arguments.size() != 1 || arguments[0] != "-") return {"step", std::move(arguments)};
    Steps steps{"line", {}};
    for (std::string line; std::getline(std::cin, line);) steps.texts.push_back(line);
    return steps;
}

}  // namespace

int main(int count, char** values) {
    const std::vector<std::string> arguments(values + 1, values + count);
    const auto* const entry = arguments.empty() ? nullptr : tovera::findClass(arguments[0]);
    if (!entry) {
        std::cerr << "usage: basic_steps CLASS STEP...\n";
        return 2;
    }
    try {
        const auto steps = stepsOf({arguments.begin() + 1, arguments.end()});
        tovera::basic::Translator translator(entry->description());
        std::string module =
            "Sub Main\nDim o, r, place As String\nOn Error Goto Failed\n"
            "o = CreateUnoService(\"" +
            entry->description().progId + "\")\n";
        for (std::size_t i = 0; i < steps.texts.size(); ++i) {
            const auto place = std::string(steps.kind) + ' ' + std::to_string(i + 1) + ": " + steps.texts[i];
            module += "place = " + tovera::basic::Translator::quoted(tovera::fromUtf8(place)) + '\n';
            module += translator.statementsOf(steps.texts[i]);
        }
        std::cout << module << "Exit Sub\nFailed:\nTold Err, Error$, place\nEnd Sub\n";
        return 0;
    } catch (const tovera::basic::NoSuchThing& lacking) {
        std::cerr << "basic_steps: Basic has no " << lacking.what << '\n';
        return 3;
    } catch (const tovera::cli::CommandLineError& error) {
        std::cerr << "basic_steps: " << error.what() << '\n';
        return 2;
    }
}
