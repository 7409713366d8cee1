#pragma once

#include "roster/PlayerSlot.h"

#include <array>
#include <cstdint>
#include <string>

namespace turnpost {

inline constexpr int rowCount = 16;

/// What the year label shows before a game has set it, and so what messages say too.
inline constexpr std::int16_t unsetGameYear = 9999;

/// The current game. The main window shows it and every typed character goes straight back in, so
/// that model and window agree at all times.
struct GameDetails {
    std::string GameName;
    /// Folder of the host file, ending in a separator; empty without a game.
    std::string GamePath;
    /// Name of the host file, without folder.
    std::string HostFileName;
    std::int16_t GameYear = unsetGameYear;
    std::array<PlayerSlot, rowCount> rows;

    /// `index` is 0 to 15.
    PlayerSlot& row(int index) { return rows.at(static_cast<size_t>(index)); }
    const PlayerSlot& row(int index) const { return rows.at(static_cast<size_t>(index)); }

    bool operator==(const GameDetails&) const = default;
};

/// Empties the four texts of a row; its tick and whether it is shown stay.
void clearRow(PlayerSlot& row);

/// Puts every text on one line, as the window's boxes hold them; a game details file can hold
/// others.
void removeLineBreaks(GameDetails& game);

/// What start-up and New do to the roster: every text of the window is emptied and every row
/// hidden, GamePath and HostFileName are emptied. Ticks and the year stay.
void clearGame(GameDetails& game);

} // namespace turnpost
