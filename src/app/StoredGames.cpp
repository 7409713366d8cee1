#include "app/Application.h"

#include "files/Files.h"
#include "storage/GameDetailsFile.h"
#include "text/Messages.h"

namespace turnpost {

void Application::loadStoredGame(int slot) {
    const StoredGame& game = shared.settings.StoredGames.at(static_cast<size_t>(slot - 1));
    if (game.StoredGameName == emptySlotName) {
        return;
    }
    const auto found = findFile(game.StoredGameFile);
    if (!found) {
        windows.show(messages::storedGameNotFound());
        return;
    }
    loadGame(*found);
}

void Application::configureStoredGames() {
    if (shared.game.GameName.empty()) {
        windows.show(messages::enterGameName());
    } else if (shared.game.GamePath.empty()) {
        windows.show(messages::findGameFirst());
    } else if (!isAbsolutePath(shared.game.GamePath) || !findFile(gameDetailsFile(shared.game))) {
        windows.show(messages::saveGameFirst());
    } else {
        shared.GameNameToStore = shared.game.GameName;
        windows.openStoredGames();
        windows.showValues();
    }
}

StoredGame Application::currentGameToStore() const {
    return {shared.GameNameToStore, storedGameFile(shared.game)};
}

void Application::storeStoredGames(const std::array<StoredGame, 4>& slots) {
    shared.settings.StoredGames = slots;
    writeSettings();
}

} // namespace turnpost
