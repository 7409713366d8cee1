#pragma once

#include "desk/ScriptedServer.h"

#include <string>
#include <vector>

namespace turnpost::desk {

/// What a server does at one point instead of its good answer, and what must come of it.
struct Fault {
    enum class Outcome { Reported, Broken, Waiting };

    Point point;
    std::string name;
    Answer answer;
    Outcome outcome;
    /// Of the row in the report. Of a long reply, the start: how much of it arrives first is the
    /// system's affair.
    std::string line = {};
    bool isLong = false;
    bool delivered = false;
};

std::vector<Fault> faultTable();

} // namespace turnpost::desk
