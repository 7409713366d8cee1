#pragma once

#include "roster/GameDetails.h"

#include <cstdint>
#include <string>

namespace turnpost {

/// The game year in a host file: 2400 plus the little-endian number in bytes 12 and 13. Throws
/// FileError, with a reason for a person, when the file cannot be read, is shorter than 14 bytes or
/// gives a year above 32767.
std::int16_t readGameYear(const std::string& path);

/// The turn file name of row i's player: the host file's name without its last four characters,
/// ".M" and the player number.
std::string turnFileName(const std::string& hostFileName, int row);

/// Makes the game of this host file the current one: path, host file and year, and one ticked row,
/// emptied of names and addresses, for each player whose turn file lies beside it. Rows without a
/// turn file are hidden and keep what they hold. Throws FileError as readGameYear does; then
/// nothing has changed.
void chooseHostFile(GameDetails& game, const std::string& folder, const std::string& hostFileName);

} // namespace turnpost
