#include "cli/session.h"

#include <istream>
#include <ostream>

#include "cli/still_playing.h"
#include "frame/utf8.h"
#include "platform/download.h"

namespace tovera::cli {

Session::Session(const CatalogueEntry& entry, Console console)
    : entry_(entry),
      console_(console),
      services_(home().services, console.in, console.out, console.err),
      sound_(home().port<Sound>(), services_),
      platform_(home().with(services_).with(sound_)),
      names_(entry.description()) {}

Step Session::read(const Place& place) {
    try {
        auto step = parseStep(fromUtf8(place.text));
        names_.take(step);
        return step;
    } catch (const CommandLineError& error) {
        throw CommandLineError(std::string(place.kind) + ' ' + std::to_string(place.number) + " (" +
                               std::string(place.text) + "), " + error.what());
    }
}

int Session::fail(const AutomationError& error) {
    console_.out.flush();
    console_.err << "error " << error.number() << ": " << error.what() << '\n';
    return automationError;
}

/// False when the step fails, which has then been told.
bool Session::run(Runner& runner, const Step& step, const Place& place) {
    try {
        runner.run(step);
        return true;
    } catch (const AutomationError& error) {
        fail(error);
        console_.err << "tovera: in " << place.kind << ' ' << place.number << ": " << place.text << '\n';
        return false;
    }
}

template <class Body>
int Session::withObject(Body body) {
    platform_.port<Download>().showProgress();
    try {
        Runner runner(entry_.create(platform_), entry_.description(), services_, console_.out);
        if (!body(runner) || !console_.out.flush()) return automationError;
        runner.saveForms();
        waitForSound(platform_, console_.err);
        waitForDialogs(console_.err);
        return success;
    } catch (const AutomationError& error) {
        return fail(error);
    }
}

int Session::runAll(std::span<const std::string> texts) {
    std::vector<Step> steps;
    const auto placeOf = [&](std::size_t i) { return Place{"step", i + 1, texts[i]}; };
    for (std::size_t i = 0; i < texts.size(); ++i) steps.push_back(read(placeOf(i)));
    return withObject([&](Runner& runner) {
        for (std::size_t i = 0; i < steps.size(); ++i) {
            if (!run(runner, steps[i], placeOf(i)) || !console_.out.flush()) return false;
        }
        return true;
    });
}

int Session::runInput() {
    return withObject([&](Runner& runner) {
        std::string line;
        for (std::size_t number = 1; console_.out && std::getline(console_.in, line); ++number) {
            constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
            std::string_view text = line;
            if (number == 1 && text.starts_with(byteOrderMark)) text.remove_prefix(byteOrderMark.size());
            if (text.ends_with('\r')) text.remove_suffix(1);
            if (text.find_first_not_of(" \t") == text.npos) continue;
            const Place place{"line", number, text};
            if (!run(runner, read(place), place)) return false;
        }
        return true;
    });
}

}  // namespace tovera::cli
