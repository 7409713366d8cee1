#pragma once

#include <string>

namespace turnpost::bench {

/// Milliseconds from the start of a program until its first window is on the display; then ends the
/// program. Needs an X display on which nothing else opens windows, and throws when there is none.
/// If the window does not come within 20 seconds, the benchmark itself ends.
double startTime(const std::string& program);

} // namespace turnpost::bench
