#include "app/Application.h"
#include "files/FileError.h"
#include "text/Messages.h"
#include "text/Path.h"
#include "text/Version.h"

namespace turnpost {

void Application::startUp() {
    windows_.setCaption(std::string(applicationTitle) + " Version " + versionText());
    clearGame(shared_.game);
    shared_.LoadDefaultPending = 0;
    readSettings();
    shared_.message = {};
    shared_.attachments = {};
    windows_.setProgress(0.0);
    windows_.showValues();
    if (!shared_.settings.DefaultGameFile.empty()) {
        shared_.LoadDefaultPending = 1;
        openGame();
    }
    windows_.showMainWindow();
}

void Application::readSettings() {
    try {
        switch (settingsFile_.read(shared_.settings)) {
        case SettingsFile::Outcome::Missing:
            windows_.openEmailSettings();
            break;
        case SettingsFile::Outcome::Damaged:
            windows_.show(messages::settingsDamaged(settingsFile_.path(),
                                                    nameOfPath(settingsFile_.copyPath())));
            break;
        case SettingsFile::Outcome::Read:
            break;
        }
    } catch (const FileError& error) {
        windows_.show(messages::cannotRead(error.path(), error.reason()));
    }
}

} // namespace turnpost
