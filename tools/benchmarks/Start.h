#pragma once

#include <string>

namespace turnpost::bench {

/// Milliseconds from the start of a program until its first window is on the display; then ends
/// the program. Needs an X display on which nothing else opens windows. Throws when there is none;
/// a window that does not come within 20 seconds ends everything.
double startTime(const std::string& program);

} // namespace turnpost::bench
