#pragma once

#include "desk/Host.h"

#include <string>

namespace turnpost::fullgame {

/// A host who sends rounds of a game with all 16 players and five files for each of them, by clicks
/// and keys in the real windows.
class FullGame {
  public:
    /// Seven rounds with every file length from 0 to 139 bytes, and one with long files.
    static constexpr int rounds = 8;

    /// `folder` becomes the program's folder and must hold no settings yet; `server` is what the
    /// host enters as mail server. Starts the program.
    FullGame(const std::string& folder, const std::string& server);

    /// Makes the game of a round (0 to rounds - 1) in `folder`/round-N, enters it and sends it by
    /// SMTP. What was sent stays there: the game, the files "extra 1.dat" to "extra 3.dat", the
    /// typed message as message.txt (LF lines, the subject first), and the program's report as
    /// report.txt. False, with the reasons on standard error, when the send did not end in a
    /// report.
    bool play(int round);

  private:
    void makeFiles(int round);
    void findGame();
    void enterPlayers(int round);
    void writeMessage();
    void chooseAttachments();
    bool send();

    desk::Host person;
    /// Of the round under way.
    std::string gameFolder;
};

} // namespace turnpost::fullgame
