#pragma once

#include <functional>

namespace turnpost::automation {

/// Runs events until the condition holds; false when it does not within the time (milliseconds).
bool waitUntil(const std::function<bool()>& condition, int timeout = 20000);

/// Runs events until none is left, deletions put off included, for checking that something does not
/// happen.
void runPendingEvents();

} // namespace turnpost::automation
