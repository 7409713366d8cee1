#include "roster/GameDetails.h"

namespace turnpost {

void clearRow(PlayerSlot& row) {
    row.PlayerName.clear();
    row.PlayerEmail.clear();
    row.AltEmail.clear();
    row.GameFile.clear();
}

void clearGame(GameDetails& game) {
    game.GameName.clear();
    game.GamePath.clear();
    game.HostFileName.clear();
    for (PlayerSlot& row : game.rows) {
        clearRow(row);
        row.Shown = false;
    }
}

} // namespace turnpost
