#include "roster/GameDetails.h"

#include "text/Text.h"

#include <vector>

namespace turnpost {

void clearRow(PlayerSlot& row) {
    row.PlayerName.clear();
    row.PlayerEmail.clear();
    row.AltEmail.clear();
    row.GameFile.clear();
}

void removeLineBreaks(GameDetails& game) {
    std::vector<std::string*> texts = {&game.GameName, &game.GamePath, &game.HostFileName};
    for (PlayerSlot& row : game.rows) {
        texts.insert(texts.end(),
                     {&row.PlayerName, &row.PlayerEmail, &row.AltEmail, &row.GameFile});
    }
    for (std::string* text : texts) {
        *text = oneLine(*text);
    }
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
