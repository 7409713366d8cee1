#pragma once

#include "app/AppWindows.h"
#include "app/SharedValues.h"
#include "mapi/MailDelivery.h"
#include "mapi/MailSystem.h"
#include "net/Socket.h"
#include "roster/MainCommands.h"
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

/// Every command of the program. A command checks its conditions first; if one is not met, it shows
/// a message box and leaves the game as it is. A failure after that, such as a file that cannot be
/// written, is shown in a message box too; by then values may have changed.
class Application final : public MainCommands {
  public:
    using MailSystemMaker = std::function<MailSystem(const Settings&)>;

    /// `windows` and `socket` must outlive the application.
    Application(AppWindows& windows, Socket& socket, ProgramFolders folders,
                const MailSystemMaker& makeMail = makeMailSystem);

    const SharedValues& values() const { return shared_; }
    const ProgramFolders& folders() const { return ownFolders_; }

    /// Brings the program into its start state, asks for the e-mail settings on a first run, loads
    /// the default game, and shows the main window.
    void startUp();

    // See MainCommands.
    GameDetails& game() override { return shared_.game; }
    void findGame() override;
    void selectPlayers(PlayerSelection selection) override;
    void newGame() override;
    void openGame() override;
    void saveGame() override;
    void loadStoredGame(int slot) override;
    void configureStoredGames() override;
    // Only one kind of send runs at a time; the other is refused meanwhile.
    void butSend_Click() override;
    void takeSendStep() override;
    void sendByMailSystem(std::uintptr_t parentWindow = 0) override;
    void editEmailSettings() override { windows_.openEmailSettings(); }
    void editMessage() override { windows_.openMessageEditor(); }
    void editAttachments() override { windows_.openAttachments(); }
    void showAbout() override { windows_.openAbout(); }
    void shutDown() override { driver_.abandon(); }

    // What the dialogs give back when OK is pressed.
    void storeEmailSettings(const std::string& hostName, const std::string& hostEmail,
                            const std::string& smtpServer);
    void storeMessage(const MessageTemplate& message) { shared_.message = message; }
    void storeAttachments(const AttachmentChoices& choices) { shared_.attachments = choices; }
    void storeStoredGames(const std::array<StoredGame, 4>& slots);

    /// What the "Store" button puts into a slot.
    StoredGame currentGameToStore() const;

    /// Asks for a file to send as an extra attachment: its full path, or empty when none is chosen.
    std::string pickExtraAttachment();

    // What the file picker gives back.
    void pickFile(const std::string& folder, const std::string& file, bool asDefaultGame);
    void cancelPicker() { shared_.picker.PickerCancelled = 1; }

  private:
    void showGame();
    void readSettings();
    void writeSettings();
    bool askForFile(const std::string& message, const std::string& pattern);
    void loadGame(const std::string& path);
    void findLoadedHostFile(GameDetails& game, const std::string& detailsFile);

    AppWindows& windows_;
    ProgramFolders ownFolders_;
    SharedValues shared_;
    SettingsFile settingsFile_;
    SendDriver driver_;
    MailSystem mailSystem_;
    MailDelivery delivery_;
};

} // namespace turnpost
