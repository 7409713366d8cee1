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

RunningProgram::RunningProgram(pid_t startedChild, Descriptor inputPipe, ProgramOutput outputPipe,
                               ProgramOutput errorPipe, const std::string& inputBytes)
    : child(startedChild), input(std::move(inputPipe)), output(std::move(outputPipe)),
      errors(std::move(errorPipe)), endNotice(noticeOfEnd(startedChild)), bytes(inputBytes) {
    fcntl(input.get(), F_SETFL, O_NONBLOCK);
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
    end.outputText = output.finish();
    end.errorText = errors.finish();
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
    std::array<pollfd, 4> places{
        pollfd{input.get(), POLLOUT, 0}, pollfd{output.readingEnd(), POLLIN, 0},
        pollfd{errors.readingEnd(), POLLIN, 0}, pollfd{endNotice.get(), POLLIN, 0}};
    const auto longest = std::min(timeLeft, endNotice.get() < 0 ? unannouncedEnd : longestPoll);
    if (poll(places.data(), places.size(), static_cast<int>(longest.count())) <= 0) {
        return;
    }
    if (places[0].revents != 0) {
        writeInput();
    }
    if (places[1].revents != 0) {
        output.read();
    }
    if (places[2].revents != 0) {
        errors.read();
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

} // namespace turnpost
