#pragma once

#include "roster/GameDetails.h"

namespace turnpost {

/// The indexes of the three PlaySel buttons.
enum class PlayerSelection { All = 0, None = 1, Invert = 2 };

/// Sets the ticks of all shown rows; hidden rows keep theirs.
void selectPlayers(GameDetails& game, PlayerSelection selection);

} // namespace turnpost
