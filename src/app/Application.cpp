#include "app/Application.h"

#include "files/FileError.h"
#include "roster/HostFile.h"
#include "text/Messages.h"
#include "text/Path.h"

namespace turnpost {

Application::Application(AppWindows& windows, Socket& socket, ProgramFolders folders,
                         const MailSystemMaker& makeMail)
    : windows_(windows), ownFolders_(std::move(folders)),
      settingsFile_(ownFolders_.program, ownFolders_.configuration),
      driver_({shared_.game, shared_.message, shared_.attachments}, shared_.settings,
              shared_.report, socket, windows, windows),
      mailSystem_(makeMail(shared_.settings)),
      delivery_({shared_.game, shared_.message, shared_.attachments}, shared_.report,
                driver_.sendState(), *mailSystem_.MAPISession1, *mailSystem_.MAPIMessages1, windows,
                windows) {}

void Application::findGame() {
    if (!askForFile("Find Stars! Host File (*.HST)", hostFilePattern)) {
        return;
    }
    try {
        chooseHostFile(shared_.game, shared_.picker.PickedFolder, shared_.picker.PickedFile);
    } catch (const FileError& error) {
        windows_.show(messages::hostFileUnusable(error.path(), error.reason()));
        return;
    }
    showGame();
}

// The rows may show results of a send that broke off; those belong to the previous game.
void Application::showGame() {
    windows_.showBreak({});
    windows_.showValues();
}

void Application::selectPlayers(PlayerSelection selection) {
    turnpost::selectPlayers(shared_.game, selection);
    windows_.showValues();
}

void Application::newGame() {
    clearGame(shared_.game);
    shared_.message = {};
    shared_.attachments = {};
    showGame();
}

// Both senders share one row cursor. During a delivery any button can be pressed, because a mail
// client may run its own event loop inside any of its calls.
void Application::butSend_Click() {
    if (delivery_.isDelivering()) {
        windows_.show(messages::sendInProgress);
        return;
    }
    driver_.butSend_Click();
}

void Application::takeSendStep() {
    if (!delivery_.isDelivering()) {
        windows_.showBreak({});
        driver_.butSend2_Click();
    }
}

void Application::sendByMailSystem(std::uintptr_t parentWindow) {
    if (delivery_.isDelivering() || driver_.isSending()) {
        windows_.show(messages::sendInProgress);
        return;
    }
    driver_.abandon();
    delivery_.deliver(parentWindow);
}

void Application::storeEmailSettings(const std::string& hostName, const std::string& hostEmail,
                                     const std::string& smtpServer) {
    shared_.settings.HostName = hostName;
    shared_.settings.HostEmail = hostEmail;
    shared_.settings.SmtpServer = smtpServer;
    writeSettings();
}

std::string Application::pickExtraAttachment() {
    const bool picked = askForFile("Find file to send as an extra attachment", anyFilePattern);
    return picked ? pickedPath(shared_.picker) : std::string();
}

void Application::pickFile(const std::string& folder, const std::string& file, bool asDefaultGame) {
    shared_.picker.PickedFolder = folder;
    shared_.picker.PickedFile = file;
    if (asDefaultGame) {
        shared_.settings.DefaultGameFile = pickedPath(shared_.picker);
        writeSettings();
    }
}

bool Application::askForFile(const std::string& message, const std::string& pattern) {
    shared_.picker.PickerMessage = message;
    shared_.picker.PickerCancelled = 0;
    shared_.picker.PickerPattern = pattern;
    windows_.openFilePicker();
    return shared_.picker.PickerCancelled == 0;
}

void Application::writeSettings() {
    try {
        settingsFile_.write(shared_.settings);
        if (!survivesRoundTrip(shared_.settings)) {
            windows_.show(messages::doesNotSurviveRoundTrip(settingsFile_.path()));
        }
    } catch (const FileError& error) {
        windows_.show(messages::cannotWrite(error.path(), error.reason()));
    }
}

} // namespace turnpost
