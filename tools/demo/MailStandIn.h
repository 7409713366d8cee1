#pragma once

#include "app/Application.h"

#include <string>
#include <vector>

namespace turnpost::demo {

/// Replaces the desktop's mail system, so that the demo does not use a real one. Keeps the messages
/// in the folder.
Application::MailSystemMaker recordingMailSystem(const std::string& folder);

/// True when the stand-in got a message to this address with these files of the game's folder
/// (`folder`/game).
bool wasHanded(const std::string& folder, const std::string& address,
               const std::vector<std::string>& files);

} // namespace turnpost::demo
