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
    if (shared.game.GamePath.empty()) {
        windows.show(messages::noGameDetails());
        return;
    }
    std::string path = gameDetailsFile(shared.game);
    if (!isAbsolutePath(path)) {
        windows.show(messages::cannotWrite(path, messages::notOfThisSystem()));
        return;
    }
    try {
        writeGameDetails(path, shared.game, shared.message);
    } catch (const FileError& error) {
        windows.show(messages::cannotWrite(error.path(), error.reason()));
        return;
    }
    path = findPath(path).value_or(path);
    windows.show(messages::detailsSaved(path));
    if (!survivesRoundTrip(shared.game, shared.message)) {
        windows.show(messages::doesNotSurviveRoundTrip(path));
    }
}

void Application::openGame() {
    const bool byDefault = std::exchange(shared.LoadDefaultPending, 0) == 1;
    if (!byDefault && !askForFile("Find Nimbus Turnpost File (*.NTP)", gameDetailsPattern)) {
        return;
    }
    const std::string path =
        byDefault ? shared.settings.DefaultGameFile : pickedPath(shared.picker);
    const auto found = findFile(path);
    if (!found) {
        windows.show(byDefault ? messages::defaultGameFileNotFound()
                               : messages::gameFileNotFound());
        return;
    }
    loadGame(*found);
}

void Application::loadGame(const std::string& path) {
    try {
        GameFileReading reading = readGameDetails(path);
        if (reading.damage) {
            windows.show(messages::gameFileDamaged(path, reading.damage->words));
            return;
        }
        shared.game = std::move(reading.content.game);
        shared.message = std::move(reading.content.message);
        removeLineBreaks(shared.game);
        shared.message.MessageSubject = oneLine(shared.message.MessageSubject);
    } catch (const FileError& error) {
        windows.show(messages::cannotRead(error.path(), error.reason()));
        return;
    }
    findLoadedHostFile(shared.game, path);
}

void Application::findLoadedHostFile(GameDetails& game, const std::string& detailsFile) {
    // A game that has been moved, perhaps from Windows, has its host file beside the details file.
    const std::string stored = game.GamePath;
    const std::string beside = withSeparator(folderOfPath(detailsFile));
    std::string unusable = stored + game.HostFileName;
    std::string reason = messages::hostFileMissing();
    for (const std::string& folder : {stored, beside}) {
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
    windows.show(messages::hostFileUnusable(unusable, reason));
}

} // namespace turnpost
