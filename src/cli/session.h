#pragma once

#include <span>
#include <string>

#include "catalogue/catalogue.h"
#include "cli/console.h"
#include "cli/known_names.h"
#include "cli/program_services.h"
#include "cli/runner.h"
#include "platform/sound_with_boxes.h"

namespace tovera::cli {

/// One object of a class, and the steps that run on it. A failing step, or a result that can't be written,
/// ends the session.
class Session {
  public:
    Session(const CatalogueEntry& entry, Console console);

    /// Runs the steps of a command line and gives the exit status. All are read before the first one runs:
    /// one that can't be understood raises `CommandLineError`, and nothing has been called.
    int runAll(std::span<const std::string> texts);

    /// Runs the steps of the input, one a line, each as soon as it is there. Blank lines are passed over.
    int runInput();

  private:
    /// Where a step stands, for messages.
    struct Place {
        const char* kind;
        std::size_t number;
        std::string_view text;
    };

    Step read(const Place& place);
    bool run(Runner& runner, const Step& step, const Place& place);
    int fail(const AutomationError& error);
    template <class Body>
    int withObject(Body body);

    const CatalogueEntry& entry_;
    Console console_;
    ProgramServices services_;
    SoundWithBoxes sound_;
    Platform platform_;
    KnownNames names_;
};

}  // namespace tovera::cli
