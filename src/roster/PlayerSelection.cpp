#include "roster/PlayerSelection.h"

#include <cstdlib>

namespace turnpost {

void selectPlayers(GameDetails& game, PlayerSelection selection) {
    for (PlayerSlot& row : game.rows) {
        if (!row.Shown) {
            continue;
        }
        switch (selection) {
        case PlayerSelection::All:
            row.IncludePlayer = 1;
            break;
        case PlayerSelection::None:
            row.IncludePlayer = 0;
            break;
        case PlayerSelection::Invert:
            row.IncludePlayer = std::abs(row.IncludePlayer - 1);
            break;
        }
    }
}

} // namespace turnpost
