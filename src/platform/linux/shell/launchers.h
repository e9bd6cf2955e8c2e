#pragma once

#include <string>
#include <string_view>
#include <vector>

// The table of what the desktops show for the command lines of the launchers (launchers.table).
namespace tovera {

/// A command of the table for one line: a program or a verb of the table, and its arguments.
using LauncherCommand = std::vector<std::string>;

/// The commands for a line, best first, for the desktops of these names; none when it is no launcher's.
/// The text joined on stands in for `%1`, as an absolute path of this system.
std::vector<LauncherCommand> launcherCommands(std::string_view line,
                                              const std::vector<std::string>& desktops);

/// The names of the desktop that runs, in capitals, best first.
std::vector<std::string> desktopNames();

/// What is wrong with the form of a table, one line a fault.
std::vector<std::string> faultsOf(std::string_view text);
std::string_view launcherTable();

}  // namespace tovera
