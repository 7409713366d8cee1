#pragma once

#include "compose/MessageTemplate.h"
#include "roster/GameDetails.h"
#include "text/Refusal.h"

#include <optional>
#include <string>
#include <string_view>

namespace turnpost {

/// What a game details file holds. The year is not stored.
struct GameFileContent {
    GameDetails game;
    MessageTemplate message;
};

/// Content of a game details file, or what is wrong with it.
struct GameFileReading {
    GameFileContent content;
    std::optional<Refusal> damage;
};

/// Reads the 101 values of a game details file (UTF-8, line ends CR LF or LF); ignores anything
/// after them.
///
/// Values are read in order (see QuotedValues.h). If no text holds a double quote, every text comes
/// back exactly, with its commas and line breaks. Otherwise the lines of the file decide: the first
/// four values are on lines of their own, the 16 rows on one line each, and everything between them
/// is the body. What cannot come back:
/// - A row's text that holds `","`, or forms it together with a separator, is reported as damage.
/// - A body with a line that ends in a double quote is cut there or reported as damage, if all its
///   lines after that look like rows.
/// - If any text holds a double quote, a line break in a row's text or in one of the first four is
///   reported as damage or moves values unnoticed. The window's boxes hold no line breaks.
/// - A NUL is reported as damage: nobody types it, and the system's paths end at it.
/// Application::saveGame asks survivesRoundTrip() after writing, and warns.
GameFileReading parseGameDetails(std::string_view text);

/// Reads a file. A file larger than maxOwnFileBytes counts as damaged. Throws FileError when it
/// cannot be read.
GameFileReading readGameDetails(const std::string& path);

/// The 21 lines of a game details file (UTF-8, CR LF).
std::string printGameDetails(const GameDetails& game, const MessageTemplate& message);

/// Replaces the game's details file. Throws FileError, also when the new file would be larger than
/// maxOwnFileBytes; the old file is then unchanged.
void writeGameDetails(const std::string& path, const GameDetails& game,
                      const MessageTemplate& message);

/// True when the file written for this game gives back every text unchanged. False when the format
/// or the system's code page cannot keep a text.
bool survivesRoundTrip(const GameDetails& game, const MessageTemplate& message);

/// Full path of the game's details file: the game's folder, the second row's turn file name without
/// its last three characters, and ".NTP". When that name has fewer than three characters, the path
/// is that of storedGameFile().
std::string gameDetailsFile(const GameDetails& game);

/// Full path formed in the same way from the host file's name without its last four characters.
std::string storedGameFile(const GameDetails& game);

} // namespace turnpost
