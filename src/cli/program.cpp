#include "cli/program.h"

#include <ostream>
#include <vector>

#include "catalogue/catalogue.h"
#include "catalogue/signature.h"
#include "cli/known_names.h"
#include "cli/runner.h"
#include "cli/usage.h"
#include "frame/utf8.h"

namespace tovera::cli {
namespace {

int refuse(std::ostream& err, const std::string& why) {
    err << "tovera: " << why << '\n' << usage;
    return badCommandLine;
}

int unknownClass(std::ostream& err, const std::string& name) {
    const AutomationError error(ErrorNumber::CannotCreateObject);
    err << "error " << error.number() << ": " << error.what() << "\ntovera: no class \"" << name
        << "\"; \"tovera list\" names them\n";
    return automationError;
}

/// A help string can have several lines, which end as Windows ends them.
std::string indented(std::string_view help) {
    constexpr std::string_view indentation = "    ";
    std::string text(indentation);
    for (const char c : help) {
        if (c != '\r') text += c;
        if (c == '\n') text += indentation;
    }
    return text;
}

int list(std::span<const std::string> arguments, std::ostream& out, std::ostream& err) {
    if (arguments.size() > 1) return refuse(err, "list takes one class at most");
    if (arguments.empty()) {
        for (const auto& entry : catalogue()) out << entry.description().progId << '\n';
        return success;
    }
    const auto* const entry = findClass(arguments[0]);
    if (!entry) return unknownClass(err, arguments[0]);
    for (const auto& member : entry->description().members) {
        if (!member.published) continue;
        out << signatureOf(member) << '\n';
        if (!member.help.empty()) out << indented(member.help) << '\n';
    }
    return success;
}

/// All steps are read before the first one runs, so that a bad command line changes nothing.
std::vector<Step> parseSteps(const ClassDescription& description, std::span<const std::string> texts) {
    std::vector<Step> steps;
    KnownNames names(description);
    for (const auto& text : texts) {
        try {
            auto step = parseStep(fromUtf8(text));
            names.take(step);
            steps.push_back(std::move(step));
        } catch (const CommandLineError& error) {
            const auto place = "step " + std::to_string(steps.size() + 1) + " (" + text + "), ";
            throw CommandLineError(place + error.what());
        }
    }
    return steps;
}

int runSteps(const CatalogueEntry& entry, std::span<const std::string> texts, std::ostream& out,
             std::ostream& err) {
    const auto steps = parseSteps(entry.description(), texts);
    std::size_t running = 0;
    try {
        Runner runner(entry.create(home()), entry.description(), home().services, out);
        for (; running < steps.size(); ++running) runner.run(steps[running]);
        runner.saveForms();
        return success;
    } catch (const AutomationError& error) {
        out.flush();
        err << "error " << error.number() << ": " << error.what() << '\n';
        if (running < texts.size())
            err << "tovera: in step " << running + 1 << ": " << texts[running] << '\n';
        return automationError;
    }
}

}  // namespace

int runProgram(std::span<const std::string> arguments, std::ostream& out, std::ostream& err) {
    if (arguments.empty()) return refuse(err, "a class is missing");
    const auto& first = arguments.front();
    if (first == "--help" || first == "-h") {
        out << usage << help;
        return success;
    }
    if (first == "--version") {
        out << "tovera 1.0.0\n";
        return success;
    }
    if (first == "list") return list(arguments.subspan(1), out, err);
    if (first.starts_with('-')) return refuse(err, "unknown option " + first);
    const auto* const entry = findClass(first);
    if (!entry) return unknownClass(err, first);
    if (arguments.size() == 1) return refuse(err, "a step is missing");
    try {
        return runSteps(*entry, arguments.subspan(1), out, err);
    } catch (const CommandLineError& error) {
        return refuse(err, error.what());
    }
}

}  // namespace tovera::cli
