#include "platform/RunningProgram.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <sys/syscall.h>
#include <sys/wait.h>

namespace turnpost {

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr size_t keptErrorText = 65536;
constexpr milliseconds longestKill{5000};
constexpr milliseconds longestPoll{60000};
// How often an end is looked for where the system can't announce it.
constexpr milliseconds unannouncedEnd{20};

Descriptor noticeOfEnd([[maybe_unused]] pid_t child) {
#ifdef SYS_pidfd_open
    return Descriptor(static_cast<int>(syscall(SYS_pidfd_open, child, 0)));
#else
    return Descriptor();
#endif
}

} // namespace

RunningProgram::RunningProgram(pid_t startedChild, Descriptor inputPipe, Descriptor errorPipe,
                               const std::string& inputBytes)
    : child(startedChild), input(std::move(inputPipe)), errors(std::move(errorPipe)),
      endNotice(noticeOfEnd(startedChild)), bytes(inputBytes) {
    fcntl(input.get(), F_SETFL, O_NONBLOCK);
    fcntl(errors.get(), F_SETFL, O_NONBLOCK);
}

ProgramEnd RunningProgram::wait(milliseconds longest) {
    auto deadline = Clock::now() + longest;
    bool killed = false;
    while (!hasEnded()) {
        const auto now = Clock::now();
        if (now < deadline) {
            exchange(std::chrono::ceil<milliseconds>(deadline - now));
        } else if (!killed) {
            kill(-child, SIGKILL);
            killed = true;
            deadline = now + longestKill;
        } else {
            break;
        }
    }
    // What it wrote last. A program that it left behind may go on writing.
    while (end.errorText.size() < keptErrorText && readErrors()) {
    }
    if (killed && end.kind != ProgramEnd::Kind::Exited) {
        end.kind = ProgramEnd::Kind::TimedOut;
    }
    return end;
}

bool RunningProgram::hasEnded() {
    int status = 0;
    const pid_t ended = waitpid(child, &status, WNOHANG);
    if (ended < 0) {
        end.number = errno;
    } else if (ended > 0) {
        const bool exited = WIFEXITED(status);
        end.kind = exited ? ProgramEnd::Kind::Exited : ProgramEnd::Kind::Signalled;
        end.number = exited ? WEXITSTATUS(status) : WTERMSIG(status);
    }
    return ended != 0;
}

void RunningProgram::exchange(milliseconds timeLeft) {
    std::array<pollfd, 3> places{pollfd{input.get(), POLLOUT, 0}, pollfd{errors.get(), POLLIN, 0},
                                 pollfd{endNotice.get(), POLLIN, 0}};
    const auto longest = std::min(timeLeft, endNotice.get() < 0 ? unannouncedEnd : longestPoll);
    if (poll(places.data(), places.size(), static_cast<int>(longest.count())) <= 0) {
        return;
    }
    if (places[0].revents != 0) {
        writeInput();
    }
    if (places[1].revents != 0) {
        readErrors();
    }
}

void RunningProgram::writeInput() {
    const ssize_t count = write(input.get(), bytes.data() + written, bytes.size() - written);
    if (count > 0) {
        written += static_cast<size_t>(count);
    }
    const bool refused = count < 0 && errno != EAGAIN && errno != EINTR;
    if (refused || written == bytes.size()) {
        input.close();
    }
}

// True when there may be more.
bool RunningProgram::readErrors() {
    std::array<char, 4096> buffer{};
    const ssize_t count = read(errors.get(), buffer.data(), buffer.size());
    if (count > 0) {
        const size_t room = keptErrorText - end.errorText.size();
        end.errorText.append(buffer.data(), std::min(room, static_cast<size_t>(count)));
    } else if (count == 0) {
        errors.close();
    }
    return count > 0 || (count < 0 && errno == EINTR);
}

} // namespace turnpost
