#include "cli/program.h"

#include <ostream>

#include "catalogue/catalogue.h"
#include "catalogue/signature.h"
#include "cli/session.h"
#include "cli/usage.h"
#include "frame/error.h"

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

}  // namespace

int runProgram(std::span<const std::string> arguments, Console console) {
    auto& [in, out, err] = console;
    if (arguments.empty()) return refuse(err, "a class is missing");
    const auto& first = arguments.front();
    const bool alone = arguments.size() == 1;
    if (first == "--help" || first == "-h" || first == "--version") {
        if (!alone) return refuse(err, first + " stands alone");
        if (first == "--version")
            out << "tovera 1.0.0\n";
        else
            out << usage << help;
        return success;
    }
    if (first == "list") return list(arguments.subspan(1), out, err);
    if (first.starts_with('-')) return refuse(err, "unknown option " + first);
    const auto* const entry = findClass(first);
    if (!entry) return unknownClass(err, first);
    if (alone) return refuse(err, "a step is missing");
    try {
        const bool fromInput = arguments.size() == 2 && arguments[1] == "-";
        Session session(*entry, console);
        return fromInput ? session.runInput() : session.runAll(arguments.subspan(1));
    } catch (const CommandLineError& error) {
        return refuse(err, error.what());
    }
}

}  // namespace tovera::cli
