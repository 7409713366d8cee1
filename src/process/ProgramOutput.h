#pragma once

#include "process/Pipe.h"

#include <algorithm>
#include <string>
#include <sys/ioctl.h>

namespace turnpost {

/// Our end of the pipe to which a program writes its standard output or standard error.
///
/// A pipe and not a file, because a program that is left running may write without end, and a pipe
/// holds only 64 KiB. The program's end is also open for reading. So the pipe has a reader as long
/// as any process can write to it, and no process gets SIGPIPE when our end is closed.
class ProgramOutput {
  public:
    /// Throws std::system_error when no pipe can be made.
    ProgramOutput() {
        fcntl(pipe_.reading.get(), F_SETFL, O_NONBLOCK);
        const std::string name = "/proc/self/fd/" + std::to_string(pipe_.writing.get());
        if (Descriptor both(open(name.c_str(), O_RDWR | O_CLOEXEC)); both.get() >= 0) {
            pipe_.writing = std::move(both);
        }
    }

    /// The end for the program that is to be started.
    int writingEnd() const { return pipe_.writing.get(); }
    /// Descriptor to poll for input.
    int readingEnd() const { return pipe_.reading.get(); }

    /// Reads what the pipe holds at this moment and keeps the last 64 KiB of everything read. Never
    /// waits.
    void read() {
        constexpr size_t maxText = 65536;
        // Does not read until the pipe is empty: a program may write faster than we read.
        int available = 0;
        ioctl(pipe_.reading.get(), FIONREAD, &available);
        std::string bytes(static_cast<size_t>(available), '\0');
        const ssize_t count = ::read(pipe_.reading.get(), bytes.data(), bytes.size());
        text_.append(bytes, 0, static_cast<size_t>(std::max<ssize_t>(count, 0)));
        text_.erase(0, text_.size() - std::min(text_.size(), maxText));
    }

    /// Reads once more and returns what was kept. From then on a program that still writes never
    /// blocks: what does not fit into the pipe is refused with EAGAIN.
    std::string finish() {
        read();
        // O_NONBLOCK applies to every process that shares this end.
        fcntl(pipe_.writing.get(), F_SETFL, O_NONBLOCK);
        return std::move(text_);
    }

  private:
    Pipe pipe_;
    std::string text_;
};

} // namespace turnpost
