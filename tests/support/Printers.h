#pragma once

// Included before everything else in every test, so that a failure says what differs instead of
// listing bytes.

#include "roster/GameDetails.h"
#include "storage/Settings.h"

#include <ostream>

#ifdef QT_CORE_LIB
#include <QString>

inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}
#endif

namespace turnpost {

inline void PrintTo(const GameDetails& game, std::ostream* out) {
    *out << game.GameName << ", " << game.GamePath << ", " << game.HostFileName << ", "
         << game.GameYear;
    for (const PlayerSlot& row : game.rows) {
        *out << "\nticked " << row.IncludePlayer << ", " << row.PlayerName << ", "
             << row.PlayerEmail << ", " << row.AltEmail << ", " << row.GameFile << ", shown "
             << row.Shown;
    }
}

inline void PrintTo(const Settings& settings, std::ostream* out) {
    *out << settings.HostName << ", " << settings.HostEmail << ", " << settings.SmtpServer
         << ", default " << settings.DefaultGameFile;
    for (const StoredGame& game : settings.StoredGames) {
        *out << '\n' << game.StoredGameName << ": " << game.StoredGameFile;
    }
}

} // namespace turnpost
