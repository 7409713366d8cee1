#include "app/Application.h"
#include "files/FileError.h"
#include "text/Messages.h"
#include "text/Path.h"
#include "text/Version.h"

namespace turnpost {

void Application::startUp() {
    windows.setCaption(std::string(applicationTitle) + " Version " + versionText());
    clearGame(shared.game);
    shared.LoadDefaultPending = 0;
    readSettings();
    shared.message = {};
    shared.attachments = {};
    windows.setProgress(0.0);
    windows.showValues();
    if (!shared.settings.DefaultGameFile.empty()) {
        shared.LoadDefaultPending = 1;
        openGame();
    }
    windows.showMainWindow();
}

void Application::readSettings() {
    try {
        switch (settingsFile.read(shared.settings)) {
        case SettingsFile::Outcome::Missing:
            windows.openEmailSettings();
            break;
        case SettingsFile::Outcome::Damaged:
            windows.show(messages::settingsDamaged(settingsFile.path(),
                                                   nameOfPath(settingsFile.copyPath())));
            break;
        case SettingsFile::Outcome::Read:
            break;
        }
    } catch (const FileError& error) {
        windows.show(messages::cannotRead(error.path(), error.reason()));
    }
}

} // namespace turnpost
