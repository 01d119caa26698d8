#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace vistrel::tool {

/// How a program ended.
struct ProcessEnd {
    /// Whether it was killed because its time was up.
    bool isOverdue = false;
    /// Its exit code, or nullopt when a signal ended it.
    std::optional<int> code = {};
    /// The number of that signal.
    int signal = 0;
};

/// Runs the program at the path `command[0]`, in a session of its own and with all that it says
/// going to the file `log`, until it ends or `limit` is over; then it is killed. nullopt when it
/// could not be started.
std::optional<ProcessEnd> runBounded(const std::vector<std::string>& command,
                                     const std::string& log, std::chrono::milliseconds limit);

} // namespace vistrel::tool
