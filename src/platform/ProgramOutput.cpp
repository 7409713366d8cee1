#include "platform/ProgramOutput.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/ioctl.h>

namespace turnpost {

namespace {

constexpr size_t keptText = 65536;

void keepLast(std::string& text) {
    text.erase(0, text.size() - std::min(text.size(), keptText));
}

} // namespace

bool ProgramOutput::open() {
    std::array<int, 2> ends{-1, -1};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) {
        return false;
    }
    reading = Descriptor(ends[0]);
    writing = Descriptor(ends[1]);
    fcntl(reading.get(), F_SETFL, O_NONBLOCK);
    const std::string name = "/proc/self/fd/" + std::to_string(ends[1]);
    if (Descriptor both(::open(name.c_str(), O_RDWR | O_CLOEXEC)); both.get() >= 0) {
        writing = std::move(both);
    }
    return true;
}

void ProgramOutput::read() {
    std::array<char, 4096> buffer{};
    const ssize_t count = ::read(reading.get(), buffer.data(), buffer.size());
    if (count > 0) {
        text.append(buffer.data(), static_cast<size_t>(count));
    }
    if (text.size() >= 2 * keptText) {
        keepLast(text);
    }
}

std::string ProgramOutput::finish() {
    // A program that was left behind may write faster than it can be read.
    int left = 0;
    ioctl(reading.get(), FIONREAD, &left);
    std::string rest(static_cast<size_t>(left), '\0');
    const ssize_t count = ::read(reading.get(), rest.data(), rest.size());
    text.append(rest, 0, static_cast<size_t>(std::max<ssize_t>(count, 0)));
    keepLast(text);
    // Holds for everybody who has this end.
    fcntl(writing.get(), F_SETFL, O_NONBLOCK);
    writing.close();
    reading.close();
    return std::move(text);
}

} // namespace turnpost
