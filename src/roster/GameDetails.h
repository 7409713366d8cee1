#pragma once

#include "roster/PlayerSlot.h"

#include <array>
#include <cstdint>
#include <string>

namespace turnpost {

inline constexpr int rowCount = 16;

/// What the year label shows before a game has set the year, and what <<GY>> expands to until then.
inline constexpr std::int16_t unsetGameYear = 9999;

/// The current game. The main window shows it, and every change there is stored here at once, so
/// that both always agree.
struct GameDetails {
    std::string GameName = {};
    /// Folder of the host file, ending in a separator; empty without a game.
    std::string GamePath = {};
    /// Name of the host file, without folder.
    std::string HostFileName = {};
    std::int16_t GameYear = unsetGameYear;
    std::array<PlayerSlot, rowCount> rows = {};

    /// `index` is 0 to 15.
    PlayerSlot& row(int index) { return rows.at(static_cast<size_t>(index)); }
    const PlayerSlot& row(int index) const { return rows.at(static_cast<size_t>(index)); }

    bool operator==(const GameDetails&) const = default;
};

/// Empties the four texts of a row; IncludePlayer and Shown stay.
void clearRow(PlayerSlot& row);

/// Replaces the line breaks in every text by blanks: a game details file can hold line breaks, but
/// the boxes of the window cannot.
void removeLineBreaks(GameDetails& game);

/// What start-up and New do to the roster: empties every text and hides every row. Ticks and the
/// year stay.
void clearGame(GameDetails& game);

} // namespace turnpost
