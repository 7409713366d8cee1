#pragma once

#include "automation/Host.h"
#include "automation/ScriptedServer.h"

#include <map>
#include <string>

namespace turnpost::demo {

/// All that a host does, from an empty folder to the sending reports, by clicks and keys in the
/// real windows. Takes pictures of the windows.
class DemoRun {
  public:
    /// `folder` becomes the program's folder; the sample game is made in its folder game/.
    explicit DemoRun(const std::string& demoFolder);

    /// Runs it, with `pause` milliseconds between the steps so that a person can follow. With
    /// `fromScreen` the pictures are taken from the screen with the windows' frames, and a game of
    /// 16 players is shown too. Prints the reports. True when every message arrived as it should.
    bool play(int pause, bool fromScreen);

    automation::Host& host() { return person_; }

  private:
    void enterSettings();
    void findGame(const QString& game, const QString& picture);
    void enterPlayers();
    void writeMessage();
    void saveAndStore();
    void addAttachment();
    void sendBySmtp();
    void sendByMailSystem();
    void showAbout();
    void showFullGame();
    void expectReport(const QString& picture);
    void takePicture(QWidget& window, const QString& name);
    void wait();

    QString folder_;
    std::map<int, std::string> turnFiles_;
    std::string extraFile_;
    automation::ScriptedServer server_;
    automation::Host person_;
    int pauseLength_ = 0;
    bool framed_ = false;
};

} // namespace turnpost::demo
