#pragma once

#include "automation/Host.h"
#include "automation/ScriptedServer.h"

#include <map>
#include <string>

namespace turnpost::demo {

/// A host's evening from an empty folder to the sending reports, by clicks and keys in the real
/// windows, with pictures of them on the way.
class DemoRun {
  public:
    /// `folder` becomes the program's folder; the sample game goes into game/ below it.
    explicit DemoRun(const std::string& demoFolder);

    /// Goes through it; `pause` milliseconds between the steps let a person follow. The pictures
    /// are taken from the screen with the windows' frames when `fromScreen`, which then also shows
    /// a game of 16 players. Prints the reports. True when every message arrived as it should.
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
