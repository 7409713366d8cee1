#pragma once

#include "roster/GameDetails.h"

#include <cstdint>

namespace turnpost::bench {

/// The leanest client there can be, to compare with: reads and encodes each player's file, sends
/// the same conversation by calls that wait, and does nothing else. The server is on this machine.
/// Throws when it is refused.
void sendBlocking(const GameDetails& game, std::uint16_t port);

} // namespace turnpost::bench
