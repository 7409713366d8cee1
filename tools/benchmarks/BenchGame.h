#pragma once

#include "roster/GameDetails.h"
#include "storage/Settings.h"

namespace turnpost::bench {

inline constexpr const char* body = "Hello,\r\n\r\nyour turn file for 2405 is attached.\r\n";

/// The settings for this server, host:port, and a game of so many players whose files lie in the
/// folder, which ends in a separator.
Settings benchSettings(const std::string& server);
GameDetails benchGame(const std::string& folder, int players);

/// Makes that game's files, the turn files with so many bytes each, and settings that load it when
/// the program starts in the folder.
void makeBenchGame(const std::string& folder, int players, size_t bytes);

} // namespace turnpost::bench
