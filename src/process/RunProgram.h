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
    /// What it wrote to standard error and to standard output: the last 64 KiB of each.
    std::string errorText;
    std::string outputText;
};

/// Runs the program at this path, with these arguments and without a shell, and waits for its end.
/// `input` becomes its standard input; the program may leave any part of it unread. It runs in a
/// session of its own, without a terminal: where it would ask a question there, it fails instead of
/// waiting for an answer. A program that takes longer than `timeout` is killed, with those it has
/// started. Programs that it leaves running when it ends are neither waited for nor harmed: they
/// can go on writing to their standard output and standard error. Never throws for what the program
/// does.
ProgramEnd runProgram(const std::string& program, const std::vector<std::string>& arguments,
                      const std::string& input, std::chrono::milliseconds timeout);

} // namespace turnpost
