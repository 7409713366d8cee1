#pragma once

#include "compose/MessageTemplate.h"
#include "roster/GameDetails.h"

#include <string>
#include <string_view>

namespace turnpost {

/// What a game details file keeps. The year is not in it.
struct GameFileContent {
    GameDetails game;
    MessageTemplate message;
};

/// Content of a game details file, or what is wrong with it, in words for a person.
struct GameFileReading {
    GameFileContent content;
    std::string damage;
};

/// Reads the 101 values of a game details file (UTF-8, line ends CR LF or LF).
///
/// Values that hold double quotes come back whole by the file's layout: the first four values stand
/// on lines of their own, the last 16 lines are the rows, and all between is the body. So a body
/// comes back whatever it holds. Other texts come back unless a row's text holds `","` or touches a
/// separator with a quote and a comma (the file is then damaged). Texts of one-line boxes have no
/// line breaks; any found in a file become blanks.
GameFileReading parseGameDetails(std::string_view text);

/// The 21 lines of a game details file (UTF-8, CR LF).
std::string printGameDetails(const GameDetails& game, const MessageTemplate& message);

/// Full path of the game's details file: the game's folder and the second row's turn file without
/// its last three characters, or, when that is shorter, storedGameFile's name.
std::string gameDetailsFile(const GameDetails& game);

/// The same formed from the host file's name without its last four characters.
std::string storedGameFile(const GameDetails& game);

} // namespace turnpost
