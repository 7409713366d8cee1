#include "roster/PlayerSelection.h"

#include <cstdint>
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
            // A details file may hold any number; in an int, subtracting 1 could overflow.
            row.IncludePlayer = static_cast<int>(std::abs(row.IncludePlayer - std::int64_t{1}));
            break;
        }
    }
}

} // namespace turnpost
