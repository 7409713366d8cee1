#pragma once

#include "app/AppWindows.h"
#include "app/SharedValues.h"
#include "mapi/MailDelivery.h"
#include "mapi/MailSystem.h"
#include "platform/Socket.h"
#include "roster/PlayerSelection.h"
#include "smtp/SendDriver.h"
#include "storage/SettingsFile.h"

#include <array>
#include <cstdint>
#include <functional>
#include <string>

namespace turnpost {

/// Where the program looks for its own files.
struct ProgramFolders {
    std::string program;
    std::string configuration;
};

/// Every command of the program. A command tests its conditions first; when it says something in a
/// message box, it has changed nothing.
class Application {
  public:
    using MailSystemMaker = std::function<MailSystem(const Settings&)>;

    /// `windows` and `socket` must outlive the application.
    Application(AppWindows& usedWindows, Socket& socket, ProgramFolders programFolders,
                const MailSystemMaker& makeMail = makeMailSystem);

    const SharedValues& values() const { return shared; }
    const ProgramFolders& folders() const { return ownFolders; }

    /// Brings the program into its start state, asks for the e-mail settings on a first run, and
    /// shows the main window.
    void startUp();

    /// Ends a send under way, so that nothing of it happens while the windows close.
    void shutDown() { driver.abandon(); }

    // The roster. What the host types goes into `game` at once.
    GameDetails& game() { return shared.game; }
    void findGame();
    void selectPlayers(PlayerSelection selection);
    void newGame();

    // Game details files and stored games (slots 1 to 4).
    void openGame();
    void saveGame();
    void loadStoredGame(int slot);
    void configureStoredGames();

    // Sending: while one way is under way, the other is refused. `parentWindow` is the main
    // window's number in the window system.
    void sendByMailSystem(std::uintptr_t parentWindow = 0);
    void butSend_Click();
    void butSend2_Click();

    // Dialogs.
    void editEmailSettings() { windows.openEmailSettings(); }
    void editMessage() { windows.openMessageEditor(); }
    void editAttachments() { windows.openAttachments(); }
    void showAbout() { windows.openAbout(); }

    // What the dialogs hand back at their OK.
    void storeEmailSettings(const std::string& hostName, const std::string& hostEmail,
                            const std::string& smtpServer);
    void storeMessage(const MessageTemplate& message) { shared.message = message; }
    void storeAttachments(const AttachmentChoices& choices) { shared.attachments = choices; }
    void storeStoredGames(const std::array<StoredGame, 4>& slots);

    /// The slot that "Store" makes of the current game.
    StoredGame currentGameToStore() const;

    /// Asks for a file to send as an extra attachment: its full path, empty when there is none.
    std::string pickExtraAttachment();

    // What the file picker hands back.
    void pickFile(const std::string& folder, const std::string& file, bool asDefaultGame);
    void cancelPicker() { shared.picker.PickerCancelled = 1; }

  private:
    void showGame();
    void readSettings();
    void writeSettings();
    bool askForFile(const std::string& message, const std::string& pattern);
    void loadGame(const std::string& path);
    void findLoadedHostFile(GameDetails& game, const std::string& detailsFile);

    AppWindows& windows;
    ProgramFolders ownFolders;
    SharedValues shared;
    SettingsFile settingsFile;
    SendDriver driver;
    MailSystem mailSystem;
    MailDelivery delivery;
};

} // namespace turnpost
