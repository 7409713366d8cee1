#pragma once

#include <chrono>
#include <string>
#include <vector>

namespace turnpost {

/// How a program came to its end.
struct ProgramEnd {
    enum class Kind { NotStarted, Exited, Signalled, TimedOut };

    Kind kind = Kind::NotStarted;
    /// NotStarted: the system's error number. Exited: the exit status. Signalled: the signal.
    int number = 0;
    /// What it wrote to standard error and to standard output: the last 64 KiB of each.
    std::string errorText;
    std::string outputText;
};

/// Runs the program at this path, with these arguments and without a shell, and waits for its end.
/// `input` becomes its standard input; it may leave that unread. It runs in a session of its own,
/// without a terminal: where it would ask somebody something, it fails instead of waiting for an
/// answer. A program that takes longer than `longest` is killed, with those it has started.
/// Programs that it leaves running at its own end are neither waited for nor harmed: they can go on
/// writing to their standard output and standard error. Never throws for what the program does.
ProgramEnd runProgram(const std::string& program, const std::vector<std::string>& arguments,
                      const std::string& input, std::chrono::milliseconds longest);

} // namespace turnpost
