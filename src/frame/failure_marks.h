#pragma once

#include <utility>

#include "frame/error.h"
#include "frame/last_error.h"

namespace tovera {

/// The last raised error of a routine: number 0 and an empty description when there is none.
struct CurrentError {
    I4 number = 0;
    Bstr description;

    void clear() { *this = {}; }
    void take(const ErrorRecord& record) {
        number = numberOf(record.code);
        description = record.description;
    }
};

/// The mark "a failure in this step is ignored and the next step runs". Each step is a call; one that fails
/// is recorded as the current error, and what it was to produce stays as it was:
///
///     FailuresIgnored step;
///     step([&] { fileSystem = services.createObject(u"Scripting.FileSystemObject"); });
///     step([&] { folder = ... });
///     if (step.error.number == 76) ...
class FailuresIgnored {
  public:
    CurrentError error;

    /// Runs a step; true when it came to its end.
    template <class Step>
    bool operator()(Step&& step) {
        try {
            std::forward<Step>(step)();
            return true;
        } catch (const AutomationError& raised) {
            error = {raised.number(), raised.description()};
            return false;
        } catch (...) {
            error.take(recordOfCurrentException());
            return false;
        }
    }
};

/// The mark "a failure goes to the routine's handler": the logic runs until it ends or fails, and the
/// handler gets the current error. The routine then ends normally unless its handler raises.
template <class Logic, class Handler>
void onFailure(Handler&& handler, Logic&& logic) {
    CurrentError error;
    try {
        std::forward<Logic>(logic)();
        return;
    } catch (...) {
        error.take(recordOfCurrentException());
    }
    std::forward<Handler>(handler)(std::as_const(error));
}

/// The same mark with a handler that goes on behind the failed statement. Each statement is a call; one that
/// fails goes to the handler with the current error, and what it was to produce stays as it was.
template <class Handler>
class GoesOnBehindFailures {
  public:
    explicit GoesOnBehindFailures(Handler handler) : handler_(std::move(handler)) {}

    /// Runs a statement that tests a call's result: true when the call succeeded. Behind a raised failure
    /// stands the branch for one that was returned.
    template <class Test>
    bool test(Test&& test) {
        bool succeeded = false;
        onFailure(handler_, [&] { succeeded = std::forward<Test>(test)() != 0; });
        return succeeded;
    }
    template <class Statement>
    void run(Statement&& statement) {
        onFailure(handler_, std::forward<Statement>(statement));
    }

  private:
    Handler handler_;
};

}  // namespace tovera
