#pragma once

#include "support/ScriptedServer.h"

#include <deque>
#include <map>
#include <string>
#include <vector>

namespace turnpost::demo {

/// Stores each message that the server accepted as player-N.eml in the folder, and compares the
/// files inside with the turn files. True when exactly these players got exactly their files; what
/// is wrong goes to standard error.
bool checkMessages(const std::deque<test::ScriptedServer::Conversation>& conversations,
                   const std::vector<int>& players, const std::map<int, std::string>& turnFiles,
                   const std::string& folder);

/// True when the report has a line of each kind.
bool checkReport(const std::string& report);

} // namespace turnpost::demo
