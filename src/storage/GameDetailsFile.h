#pragma once

#include "compose/MessageTemplate.h"
#include "roster/GameDetails.h"
#include "text/Refusal.h"

#include <optional>
#include <string>
#include <string_view>

namespace turnpost {

/// What a game details file keeps. The year is not in it.
struct GameFileContent {
    GameDetails game;
    MessageTemplate message;
};

/// Content of a game details file, or what is wrong with it.
struct GameFileReading {
    GameFileContent content;
    std::optional<Refusal> damage;
};

/// Reads the 101 values of a game details file (UTF-8, line ends CR LF or LF); what follows them is
/// not read.
///
/// Values are read in order (see QuotedValues.h). Without double quotes every text comes back
/// exactly, commas and line breaks included. Texts that hold double quotes come back by the file's
/// layout: the first four values stand on lines of their own, the 16 rows on one line each, and all
/// between is the body. What cannot come back:
/// - a row's text that holds `","`, or touches a separator with a quote and a comma, gives damage;
/// - a body with a line that ends in a double quote, followed by lines that are all rows up to its
///   end, gives damage or is cut there;
/// - a text of a row or of the first four that holds a line break, in a file where any text holds a
///   double quote, gives damage, or moves values where no reader could tell. The window's boxes
///   hold no line breaks;
/// - a NUL anywhere gives damage: nobody types one, and the system's paths end at it.
/// survivesRoundTrip() finds such a game before it is trusted to its file.
GameFileReading parseGameDetails(std::string_view text);

/// Reads a file. One above maxOwnFileBytes is damaged. Throws FileError when it cannot be read.
GameFileReading readGameDetails(const std::string& path);

/// The 21 lines of a game details file (UTF-8, CR LF).
std::string printGameDetails(const GameDetails& game, const MessageTemplate& message);

/// Replaces the game's details file. Throws FileError, also when it would be above
/// maxOwnFileBytes; the old file is then as it was.
void writeGameDetails(const std::string& path, const GameDetails& game,
                      const MessageTemplate& message);

/// True when the file written for this game is read back with every text as it is now. False for
/// texts that the format, or the system's code page, cannot keep.
bool survivesRoundTrip(const GameDetails& game, const MessageTemplate& message);

/// Full path of the game's details file: the game's folder and the second row's turn file without
/// its last three characters, or, when that is shorter, storedGameFile's name.
std::string gameDetailsFile(const GameDetails& game);

/// The same formed from the host file's name without its last four characters.
std::string storedGameFile(const GameDetails& game);

} // namespace turnpost
