#include "platform/RunProgram.h"
#include "platform/RunningProgram.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <unistd.h>

namespace turnpost {

namespace {

// While it lives, a write to a program that has closed its input fails instead of ending this
// process, and an ended program can be asked for its status whatever this process inherited.
class Signals {
  public:
    Signals() {
        sigset_t pending;
        sigemptyset(&brokenPipe);
        sigaddset(&brokenPipe, SIGPIPE);
        sigpending(&pending);
        wasPending = sigismember(&pending, SIGPIPE) == 1;
        pthread_sigmask(SIG_BLOCK, &brokenPipe, &mask);
        sigaction(SIGCHLD, nullptr, &childEnd);
        if (childEnd.sa_handler == SIG_IGN || (childEnd.sa_flags & SA_NOCLDWAIT) != 0) {
            struct sigaction usual {};
            usual.sa_handler = SIG_DFL;
            sigaction(SIGCHLD, &usual, nullptr);
        }
    }
    Signals(const Signals&) = delete;
    Signals& operator=(const Signals&) = delete;
    ~Signals() {
        const timespec now{};
        if (!wasPending) {
            sigtimedwait(&brokenPipe, nullptr, &now);
        }
        sigaction(SIGCHLD, &childEnd, nullptr);
        pthread_sigmask(SIG_SETMASK, &mask, nullptr);
    }

  private:
    sigset_t brokenPipe{};
    sigset_t mask{};
    struct sigaction childEnd {};
    bool wasPending = false;
};

// Gives an error number, 0 when the program runs.
int start(const std::string& program, const std::vector<std::string>& arguments, int input,
          int output, int errors, pid_t& child) {
    std::vector<char*> words{const_cast<char*>(program.c_str())};
    for (const std::string& argument : arguments) {
        words.push_back(const_cast<char*>(argument.c_str()));
    }
    words.push_back(nullptr);

    posix_spawn_file_actions_t files;
    posix_spawnattr_t attributes;
    posix_spawn_file_actions_init(&files);
    posix_spawnattr_init(&attributes);
    // The order matters where this process has none of the three itself: the pipes then have their
    // numbers, and the input's is the only one that can be among them.
    int error = posix_spawn_file_actions_adddup2(&files, input, STDIN_FILENO);
    if (error == 0) {
        error = posix_spawn_file_actions_adddup2(&files, output, STDOUT_FILENO);
    }
    if (error == 0) {
        error = posix_spawn_file_actions_adddup2(&files, errors, STDERR_FILENO);
    }
    // A session of its own has no terminal, and is a group of its own that can be killed as one.
    posix_spawnattr_setflags(&attributes,
                             POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
    sigset_t set;
    sigemptyset(&set);
    posix_spawnattr_setsigmask(&attributes, &set);
    sigaddset(&set, SIGPIPE);
    posix_spawnattr_setsigdefault(&attributes, &set);
    if (error == 0) {
        error = posix_spawn(&child, program.c_str(), &files, &attributes, words.data(), environ);
    }
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&files);
    return error;
}

} // namespace

ProgramEnd runProgram(const std::string& program, const std::vector<std::string>& arguments,
                      const std::string& input, std::chrono::milliseconds longest) {
    const Signals signals;
    ProgramEnd notStarted;
    std::array<int, 2> ends{-1, -1};
    // First, so that no other pipe gets a number below its own.
    const bool opened = pipe2(ends.data(), O_CLOEXEC) == 0;
    Descriptor inputReading(ends[0]);
    Descriptor inputWriting(ends[1]);
    ProgramOutput output;
    ProgramOutput errors;
    if (!opened || !output.open() || !errors.open()) {
        notStarted.number = errno;
        return notStarted;
    }
    pid_t child = 0;
    notStarted.number = start(program, arguments, inputReading.get(), output.writingEnd(),
                              errors.writingEnd(), child);
    if (notStarted.number != 0) {
        return notStarted;
    }
    inputReading.close();
    return RunningProgram(child, std::move(inputWriting), std::move(output), std::move(errors),
                          input)
        .wait(longest);
}

} // namespace turnpost
