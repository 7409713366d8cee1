#include "app/Application.h"

#include "files/FileError.h"
#include "roster/HostFile.h"
#include "text/Messages.h"
#include "text/Path.h"

namespace turnpost {

Application::Application(AppWindows& usedWindows, Socket& socket, ProgramFolders programFolders,
                         const MailSystemMaker& makeMail)
    : windows(usedWindows), ownFolders(std::move(programFolders)),
      settingsFile(ownFolders.program, ownFolders.configuration),
      driver({shared.game, shared.message, shared.attachments}, shared.settings, shared.report,
             socket, usedWindows, usedWindows),
      mailSystem(makeMail(shared.settings)),
      delivery({shared.game, shared.message, shared.attachments}, shared.report, driver.sendState(),
               *mailSystem.MAPISession1, *mailSystem.MAPIMessages1, usedWindows, usedWindows) {}

void Application::findGame() {
    if (!askForFile("Find Stars! Host File (*.HST)", hostFilePattern)) {
        return;
    }
    try {
        chooseHostFile(shared.game, shared.picker.PickedFolder, shared.picker.PickedFile);
    } catch (const FileError& error) {
        windows.show(messages::hostFileUnusable(error.path(), error.reason()));
        return;
    }
    showGame();
}

// Another game's rows have no part in the send that broke off.
void Application::showGame() {
    windows.showBreak({});
    windows.showValues();
}

void Application::selectPlayers(PlayerSelection selection) {
    turnpost::selectPlayers(shared.game, selection);
    windows.showValues();
}

void Application::newGame() {
    clearGame(shared.game);
    shared.message = {};
    shared.attachments = {};
    showGame();
}

// Both ways of sending walk the rows with the same cursor. A mail client may run a message loop of
// its own inside any of its calls, and so let every button be pressed.
void Application::butSend_Click() {
    if (delivery.isDelivering()) {
        windows.show(messages::sendInProgress());
        return;
    }
    driver.butSend_Click();
}

void Application::takeSendStep() {
    if (!delivery.isDelivering()) {
        windows.showBreak({});
        driver.butSend2_Click();
    }
}

void Application::sendByMailSystem(std::uintptr_t parentWindow) {
    if (delivery.isDelivering() || driver.isSending()) {
        windows.show(messages::sendInProgress());
        return;
    }
    driver.abandon();
    delivery.deliver(parentWindow);
}

void Application::storeEmailSettings(const std::string& hostName, const std::string& hostEmail,
                                     const std::string& smtpServer) {
    shared.settings.HostName = hostName;
    shared.settings.HostEmail = hostEmail;
    shared.settings.SmtpServer = smtpServer;
    writeSettings();
}

std::string Application::pickExtraAttachment() {
    const bool picked = askForFile("Find file to send as an extra attachment", anyFilePattern);
    return picked ? pickedPath(shared.picker) : std::string();
}

void Application::pickFile(const std::string& folder, const std::string& file, bool asDefaultGame) {
    shared.picker.PickedFolder = folder;
    shared.picker.PickedFile = file;
    if (asDefaultGame) {
        shared.settings.DefaultGameFile = pickedPath(shared.picker);
        writeSettings();
    }
}

bool Application::askForFile(const std::string& message, const std::string& pattern) {
    shared.picker.PickerMessage = message;
    shared.picker.PickerCancelled = 0;
    shared.picker.PickerPattern = pattern;
    windows.openFilePicker();
    return shared.picker.PickerCancelled == 0;
}

void Application::writeSettings() {
    try {
        settingsFile.write(shared.settings);
        if (!survivesRoundTrip(shared.settings)) {
            windows.show(messages::doesNotSurviveRoundTrip(settingsFile.path()));
        }
    } catch (const FileError& error) {
        windows.show(messages::cannotWrite(error.path(), error.reason()));
    }
}

} // namespace turnpost
