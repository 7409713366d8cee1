#pragma once

#include <map>
#include <string>

namespace turnpost::automation {

/// The bytes of a sample turn file: all byte values in turn, from another start for each player.
std::string sampleBytes(size_t length, int player);

/// Makes a game in the folder: a host file of the year 2405, and the turn files of these players
/// with these lengths in bytes. Returns the turn files' contents by player.
std::map<int, std::string> makeSampleGame(const std::string& folder,
                                          const std::map<int, size_t>& lengths);

} // namespace turnpost::automation
