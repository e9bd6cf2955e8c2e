#pragma once

#include <string>

namespace tovera {

/// Calls a method of a service of the session by its names; false where there is no such service. One that
/// refuses, or doesn't answer, raises error 53: nobody else is asked then.
bool callSession(const std::string& name, const std::string& path, const std::string& method);

/// Asks the log-on manager to restart or switch off (`Reboot`, `PowerOff`): only in an active, local,
/// graphical session on a seat, with the user asked for leave where that is needed, and never past a refusal.
bool askLogOnManager(const std::string& method);

}  // namespace tovera
