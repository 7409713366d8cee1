#pragma once

#include "automation/ScriptedServer.h"

#include <deque>
#include <map>
#include <string>

namespace turnpost::demo {

/// Turn files by player.
using TurnFiles = std::map<int, std::string>;

/// Stores each message that the server accepted as player-N.eml in the folder, and compares the
/// files inside with the turn file and the extra file. True when exactly the players who can be
/// served got exactly their files. Prints each difference to standard error.
bool checkMessages(const std::deque<automation::ScriptedServer::Conversation>& conversations,
                   const TurnFiles& turnFiles, const std::string& extraFile,
                   const std::string& folder);

/// True when the mail system got the messages of all these players with their files.
bool checkMailSystem(const std::map<std::string, int>& playersByAddress, const std::string& folder);

/// True when the reports have a line of each kind.
bool checkReports(const std::string& bySmtp, const std::string& byMailSystem);

} // namespace turnpost::demo
