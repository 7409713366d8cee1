#pragma once

#include "ServerProcess.h"
#include "desk/Host.h"

#include <functional>

namespace turnpost::lasting {

/// A host who does the same things again and again in the real windows.
class LastingRun {
  public:
    LastingRun();

    /// Sends the turn to all 16 players this often. False when the process grew; throws when a
    /// report's line, a recipient or a file was wrong.
    bool send(int times);

    /// Opens every dialog this often and closes it with its button. False and throws alike.
    bool openDialogs(int times);

  private:
    void sendOnce();
    void openEachDialogOnce();
    void expectClosed();
    bool repeat(const std::string& what, int times, const std::function<void()>& once);

    ServerProcess server;
    desk::Host host;
};

} // namespace turnpost::lasting
