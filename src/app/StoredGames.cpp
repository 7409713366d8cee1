#include "app/Application.h"

#include "files/Files.h"
#include "storage/GameDetailsFile.h"
#include "text/Messages.h"

namespace turnpost {

void Application::loadStoredGame(int slot) {
    const StoredGame& game = shared_.settings.StoredGames.at(static_cast<size_t>(slot - 1));
    if (game.StoredGameName == emptySlotName) {
        return;
    }
    const auto found = findFile(game.StoredGameFile);
    if (!found) {
        windows_.show(messages::storedGameNotFound);
        return;
    }
    loadGame(*found);
}

void Application::configureStoredGames() {
    if (shared_.game.GameName.empty()) {
        windows_.show(messages::enterGameName);
    } else if (shared_.game.GamePath.empty()) {
        windows_.show(messages::findGameFirst);
    } else if (!isAbsolutePath(shared_.game.GamePath) || !findFile(gameDetailsFile(shared_.game))) {
        windows_.show(messages::saveGameFirst);
    } else {
        shared_.GameNameToStore = shared_.game.GameName;
        windows_.openStoredGames();
        windows_.showValues();
    }
}

StoredGame Application::currentGameToStore() const {
    return {shared_.GameNameToStore, storedGameFile(shared_.game)};
}

void Application::storeStoredGames(const std::array<StoredGame, 4>& slots) {
    shared_.settings.StoredGames = slots;
    writeSettings();
}

} // namespace turnpost
