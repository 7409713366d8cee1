#pragma once

#include "files/Descriptor.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <system_error>

namespace turnpost {

/// A pipe. The owner of an end closes it; programs that this process starts do not inherit it.
struct Pipe {
    /// Throws std::system_error when no pipe can be made.
    Pipe() {
        std::array<int, 2> ends{};
        if (pipe2(ends.data(), O_CLOEXEC) != 0) {
            throw std::system_error(errno, std::generic_category());
        }
        reading = Descriptor(ends[0]);
        writing = Descriptor(ends[1]);
    }

    Descriptor reading;
    Descriptor writing;
};

} // namespace turnpost
