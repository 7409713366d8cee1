#pragma once

#include "roster/GameDetails.h"
#include "roster/PlayerSelection.h"

#include <cstdint>

namespace turnpost {

/// What the host can tell the program to do from the main window: one command for each button and
/// menu item. Each ends with every window in step with the values it has changed.
class MainCommands {
  public:
    virtual ~MainCommands() = default;

    /// The game that the window shows. What the host types goes into it at once.
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
    /// The step of a send, for the button that nobody sees.
    virtual void takeSendStep() = 0;
    /// `parentWindow` is the main window's native id (WId, HWND).
    virtual void sendByMailSystem(std::uintptr_t parentWindow) = 0;

    virtual void editEmailSettings() = 0;
    virtual void editMessage() = 0;
    virtual void editAttachments() = 0;
    virtual void showAbout() = 0;

    /// Ends a send under way, so that nothing of it happens while the windows close.
    virtual void shutDown() = 0;
};

} // namespace turnpost
