#pragma once

#include "desk/ScriptedServer.h"

#include <ostream>
#include <string>
#include <vector>

namespace turnpost::desk {

// A message of such a file does not fit the system's buffers, so that the server can answer when it
// has this many bytes of it.
constexpr size_t largeFile = 400000;
constexpr size_t midMessage = 16384;

/// What a server does instead of its good answer, and what must come of it.
struct Fault {
    enum class Outcome { Reported, Broken, Waiting };

    const char* name;
    Answer answer;
    Outcome outcome;
    /// Of the row in the report. Of a long reply, the start: how much of it arrives first is the
    /// system's affair.
    std::string line;
    bool isLong = false;
    bool delivered = false;
};

std::string nameOf(Point point);

/// Names the point in the list of tests.
inline void PrintTo(Point point, std::ostream* out) {
    *out << nameOf(point);
}

std::vector<Fault> faultsAt(Point point);

} // namespace turnpost::desk
