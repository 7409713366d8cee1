#pragma once

#include "roster/GameDetails.h"

#include <cstdint>
#include <string>

namespace turnpost {

/// The game year in a host file: 2400 plus the little-endian number in bytes 12 and 13. Throws
/// FileError, with words for the host, when the file cannot be read, is shorter than 14 bytes or
/// gives a year above 32767.
std::int16_t readGameYear(const std::string& path);

/// The name of the turn file of the player in this row (0 to 15): the host file's name without its
/// last four characters, then ".M" and the player number.
std::string turnFileName(const std::string& hostFileName, int row);

/// Makes the game of this host file the current one: sets its path, host file name and year. The
/// rows of players whose turn file is in the same folder are shown, ticked, and emptied of names
/// and addresses. All other rows are hidden and keep their texts. Throws FileError as readGameYear
/// does; then nothing has changed.
void chooseHostFile(GameDetails& game, const std::string& folder, const std::string& hostFileName);

} // namespace turnpost
