#pragma once

#include "desk/ScriptedServer.h"

namespace turnpost::desk {

/// What is wrong with a conversation that should have brought player N, at pN@example.org, the host
/// host@example.org's message with just this turn file; empty when all is well.
std::string deliveryFault(const ScriptedServer::Conversation& conversation, int player,
                          const std::string& turnFile);

} // namespace turnpost::desk
