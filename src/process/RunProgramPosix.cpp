#include "process/ProgramOutput.h"
#include "process/RunProgram.h"

#include <csignal>
#include <poll.h>
#include <spawn.h>
#include <string_view>
#include <sys/syscall.h>
#include <sys/wait.h>

namespace turnpost {

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr milliseconds killTimeout{5000};
// Poll interval where pidfd_open is missing.
constexpr milliseconds pollInterval{20};

// The descriptors become the program's standard input, output and error. Throws std::system_error
// when the program cannot be started.
pid_t start(const std::string& program, const std::vector<std::string>& arguments,
            const std::array<int, 3>& descriptors) {
    std::vector<char*> words{const_cast<char*>(program.c_str())};
    for (const std::string& argument : arguments) {
        words.push_back(const_cast<char*>(argument.c_str()));
    }
    words.push_back(nullptr);

    posix_spawn_file_actions_t files;
    posix_spawnattr_t attributes;
    posix_spawn_file_actions_init(&files);
    posix_spawnattr_init(&attributes);
    int error = 0;
    // If this process itself has stdin, stdout or stderr closed, the input pipe (made first) may
    // have got one of their numbers; so it is moved first.
    for (int number = STDIN_FILENO; number <= STDERR_FILENO && error == 0; ++number) {
        error = posix_spawn_file_actions_adddup2(&files, descriptors.at(number), number);
    }
    // A session of its own has no terminal, and all its processes can be killed as one group.
    posix_spawnattr_setflags(&attributes,
                             POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
    sigset_t set;
    sigemptyset(&set);
    posix_spawnattr_setsigmask(&attributes, &set);
    sigaddset(&set, SIGPIPE);
    posix_spawnattr_setsigdefault(&attributes, &set);
    pid_t child = 0;
    if (error == 0) {
        error = posix_spawn(&child, program.c_str(), &files, &attributes, words.data(), environ);
    }
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&files);
    if (error != 0) {
        throw std::system_error(error, std::generic_category());
    }
    return child;
}

// A running program with our ends of the pipes to and from it.
class Process {
  public:
    // `inputBytes` must outlive this object. Throws std::system_error when the program cannot be
    // started.
    Process(const std::string& program, const std::vector<std::string>& arguments,
            const std::string& inputBytes)
        : unwritten_(inputBytes),
          child_(start(program, arguments,
                       {input_.reading.get(), output_.writingEnd(), errors_.writingEnd()})) {
        endNotice_ = Descriptor(static_cast<int>(syscall(SYS_pidfd_open, child_, 0)));
        fcntl(input_.writing.get(), F_SETFL, O_NONBLOCK);
    }

    // Writes the input and reads the output until the program ends by itself or is killed.
    ProgramEnd wait(milliseconds timeout) {
        auto deadline = Clock::now() + timeout;
        bool killed = false;
        while (!hasEnded()) {
            if (Clock::now() < deadline) {
                exchange();
            } else if (!killed) {
                kill(-child_, SIGKILL);
                killed = true;
                deadline = Clock::now() + killTimeout;
            } else {
                break;
            }
        }
        end_.outputText = output_.finish();
        end_.errorText = errors_.finish();
        if (killed && end_.kind != ProgramEnd::Kind::Exited) {
            end_.kind = ProgramEnd::Kind::TimedOut;
        }
        return end_;
    }

  private:
    bool hasEnded() {
        int status = 0;
        const pid_t ended = waitpid(child_, &status, WNOHANG);
        if (ended < 0) {
            end_.number = errno;
        } else if (ended > 0) {
            const bool exited = WIFEXITED(status);
            end_.kind = exited ? ProgramEnd::Kind::Exited : ProgramEnd::Kind::Signalled;
            end_.number = exited ? WEXITSTATUS(status) : WTERMSIG(status);
        }
        return ended != 0;
    }

    void exchange() {
        std::array<pollfd, 4> polled{
            pollfd{input_.writing.get(), POLLOUT, 0}, pollfd{output_.readingEnd(), POLLIN, 0},
            pollfd{errors_.readingEnd(), POLLIN, 0}, pollfd{endNotice_.get(), POLLIN, 0}};
        poll(polled.data(), polled.size(), pollInterval.count());
        if (polled[0].revents != 0) {
            writeInput();
        }
        output_.read();
        errors_.read();
    }

    void writeInput() {
        const ssize_t count = write(input_.writing.get(), unwritten_.data(), unwritten_.size());
        unwritten_.remove_prefix(static_cast<size_t>(std::max<ssize_t>(count, 0)));
        if (unwritten_.empty()) {
            input_.writing.close();
        }
    }

    // We keep its reading end open too, so that we do not get SIGPIPE when the program closes its
    // input: writing then fails with EAGAIN once the pipe is full.
    Pipe input_;
    ProgramOutput output_;
    ProgramOutput errors_;
    std::string_view unwritten_;
    pid_t child_;
    Descriptor endNotice_;
    ProgramEnd end_;
};

} // namespace

ProgramEnd runProgram(const std::string& program, const std::vector<std::string>& arguments,
                      const std::string& input, milliseconds timeout) {
    // If this process was started with SIGCHLD ignored, the system keeps no exit status of a child.
    struct sigaction before {};
    sigaction(SIGCHLD, nullptr, &before);
    if (before.sa_handler == SIG_IGN || (before.sa_flags & SA_NOCLDWAIT) != 0) {
        std::signal(SIGCHLD, SIG_DFL);
    }
    ProgramEnd end;
    try {
        end = Process(program, arguments, input).wait(timeout);
    } catch (const std::system_error& error) {
        end.number = error.code().value();
    }
    sigaction(SIGCHLD, &before, nullptr);
    return end;
}

} // namespace turnpost
