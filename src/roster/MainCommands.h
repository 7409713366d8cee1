#pragma once

#include "roster/GameDetails.h"
#include "roster/PlayerSelection.h"

#include <cstdint>

namespace turnpost {

/// The commands of the main window, one for each button and menu item. When a command has ended,
/// every window shows the values that it has changed.
class MainCommands {
  public:
    virtual ~MainCommands() = default;

    /// The game that the window shows. What the host types is stored in it at once.
    virtual GameDetails& game() = 0;

    virtual void findGame() = 0;
    virtual void selectPlayers(PlayerSelection selection) = 0;
    virtual void newGame() = 0;
    virtual void openGame() = 0;
    virtual void saveGame() = 0;
    /// `slot` is 1 to 4.
    virtual void loadStoredGame(int slot) = 0;
    virtual void configureStoredGames() = 0;

    virtual void butSend_Click() = 0;
    /// Takes the next step of a send. Called by the hidden button butSend2.
    virtual void takeSendStep() = 0;
    /// `parentWindow` is the main window's native id (WId, HWND).
    virtual void sendByMailSystem(std::uintptr_t parentWindow) = 0;

    virtual void editEmailSettings() = 0;
    virtual void editMessage() = 0;
    virtual void editAttachments() = 0;
    virtual void showAbout() = 0;

    /// Ends a send in progress, so that it does nothing more while the windows close.
    virtual void shutDown() = 0;
};

} // namespace turnpost
