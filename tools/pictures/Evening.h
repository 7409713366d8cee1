#pragma once

#include "desk/Host.h"
#include "desk/ScriptedServer.h"

namespace turnpost::pictures {

/// A host's evening that opens every window of the program, with a picture of each as it stands on
/// the screen, frame included.
class Evening {
  public:
    /// The program's folder and the games' are made in `home`; the pictures go into `folder`.
    Evening(const QString& home, QString folder);

    /// Takes all pictures. True when every window came as expected.
    bool play();

  private:
    void firstStart();
    void smallGame();
    void dialogs();
    void sending();
    void fullGame();
    void find(const QString& game, const QString& picture);
    void enter(int player, const QString& name, const QString& address);
    void take(QWidget& window, const QString& name);
    desk::Answer answer(desk::Point point, int connection, const std::string& line);

    QString games;
    QString folder;
    desk::ScriptedServer server;
    desk::Host person;
};

} // namespace turnpost::pictures
