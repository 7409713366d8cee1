#pragma once

#include <functional>

namespace turnpost::automation {

/// Runs events until the condition holds; false when it does not within the time (milliseconds).
bool waitUntil(const std::function<bool()>& condition, int timeout = 20000);

/// Runs all pending events and deferred deletions, to check that something does not happen.
void runPendingEvents();

} // namespace turnpost::automation
