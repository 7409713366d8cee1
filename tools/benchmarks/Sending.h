#pragma once

#include "roster/GameDetails.h"

#include <cstdint>

namespace turnpost::bench {

/// Sends the game's turn from the button to the report, by the program's own driver, session and
/// socket, to a server on this machine. Throws when a player's mail was not sent.
void sendTurnpost(const GameDetails& game, std::uint16_t port);

/// The same by the simplest possible client. It reads and encodes each player's file, sends the
/// same conversation by calls that block, and does nothing else. Throws when it is refused.
void sendBlocking(const GameDetails& game, std::uint16_t port);

/// As sendTurnpost, with a network that drops everything and accepts at once.
void sendToNobody(const GameDetails& game);

} // namespace turnpost::bench
