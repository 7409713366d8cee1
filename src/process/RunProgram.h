#pragma once

#include <chrono>
#include <string>
#include <vector>

namespace turnpost {

/// How a program ended.
struct ProgramEnd {
    enum class Kind { NotStarted, Exited, Signalled, TimedOut };

    Kind kind = Kind::NotStarted;
    /// NotStarted: the system's error number. Exited: the exit status. Signalled: the signal.
    int number = 0;
    /// The last 64 KiB of what it wrote to standard error and to standard output.
    std::string errorText;
    std::string outputText;
};

/// Runs the program at this path, with these arguments and without a shell, and waits for its end.
/// `input` becomes its standard input; the program may leave any part of it unread. It runs in a
/// session of its own, without a terminal, so that it fails instead of waiting for an answer to a
/// question there. A program that takes longer than `timeout` is killed, together with the programs
/// that it has started. Programs that it leaves running when it ends are neither waited for nor
/// harmed: they can go on writing to their standard output and standard error. Failures are in the
/// result, never thrown.
ProgramEnd runProgram(const std::string& program, const std::vector<std::string>& arguments,
                      const std::string& input, std::chrono::milliseconds timeout);

} // namespace turnpost
