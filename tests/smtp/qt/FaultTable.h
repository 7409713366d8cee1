#pragma once

#include "desk/ScriptedServer.h"

#include <string>
#include <vector>

namespace turnpost::desk {

/// What a server does at one point instead of its good answer, and what must come of it.
struct Fault {
    enum class Outcome { Reported, Broken, Waiting };

    std::string name;
    Answer answer;
    Outcome outcome = Outcome::Reported;
    /// Of the row in the report. A line that ends in "x" goes on so: how much of a long reply
    /// arrives at once is the system's affair.
    std::string line = {};
    bool delivered = false;
    Point point = Point::Greeting;
};

std::vector<Fault> faultTable();

} // namespace turnpost::desk
