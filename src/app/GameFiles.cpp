#include "app/Application.h"

#include "files/FileError.h"
#include "files/Files.h"
#include "roster/HostFile.h"
#include "storage/GameDetailsFile.h"
#include "text/Messages.h"
#include "text/Path.h"
#include "text/Text.h"

#include <utility>

namespace turnpost {

void Application::saveGame() {
    if (shared_.game.GamePath.empty()) {
        windows_.show(messages::noGameDetails);
        return;
    }
    std::string path = gameDetailsFile(shared_.game);
    if (!isAbsolutePath(path)) {
        windows_.show(messages::cannotWrite(path, messages::notOfThisSystem));
        return;
    }
    try {
        writeGameDetails(path, shared_.game, shared_.message);
    } catch (const FileError& error) {
        windows_.show(messages::cannotWrite(error.path(), error.reason()));
        return;
    }
    path = findPath(path).value_or(path);
    windows_.show(messages::detailsSaved(path));
    if (!survivesRoundTrip(shared_.game, shared_.message)) {
        windows_.show(messages::doesNotSurviveRoundTrip(path));
    }
}

void Application::openGame() {
    const bool byDefault = std::exchange(shared_.LoadDefaultPending, 0) == 1;
    if (!byDefault && !askForFile("Find Nimbus Turnpost File (*.NTP)", gameDetailsPattern)) {
        return;
    }
    const std::string path =
        byDefault ? shared_.settings.DefaultGameFile : pickedPath(shared_.picker);
    const auto found = findFile(path);
    if (!found) {
        windows_.show(byDefault ? messages::defaultGameFileNotFound : messages::gameFileNotFound);
        return;
    }
    loadGame(*found);
}

void Application::loadGame(const std::string& path) {
    try {
        GameFileReading reading = readGameDetails(path);
        if (reading.damage) {
            windows_.show(messages::gameFileDamaged(path, reading.damage->words));
            return;
        }
        shared_.game = std::move(reading.content.game);
        shared_.message = std::move(reading.content.message);
        removeLineBreaks(shared_.game);
        shared_.message.MessageSubject = oneLine(shared_.message.MessageSubject);
    } catch (const FileError& error) {
        windows_.show(messages::cannotRead(error.path(), error.reason()));
        return;
    }
    findLoadedHostFile(shared_.game, path);
}

void Application::findLoadedHostFile(GameDetails& game, const std::string& detailsFile) {
    // When a game was moved, perhaps from Windows, its host file is in the details file's folder.
    const std::string stored = game.GamePath;
    const std::string detailsFolder = withSeparator(folderOfPath(detailsFile));
    std::string unusable = stored + game.HostFileName;
    std::string reason = messages::hostFileMissing;
    for (const std::string& folder : {stored, detailsFolder}) {
        if (!isAbsolutePath(folder) || !findPath(folder + game.HostFileName)) {
            continue;
        }
        try {
            game.GameYear = readGameYear(folder + game.HostFileName);
            game.GamePath = folder;
            showGame();
            return;
        } catch (const FileError& error) {
            unusable = error.path();
            reason = error.reason();
        }
    }
    showGame();
    windows_.show(messages::hostFileUnusable(unusable, reason));
}

} // namespace turnpost
