#pragma once

#include "PictureCheck.h"
#include "automation/Host.h"
#include "automation/ScriptedServer.h"

#include <map>
#include <string>

class QMessageBox;

namespace turnpost::demo {

/// All that a host does, from an empty folder to the sending reports, by clicks and keys in the
/// real windows. Takes pictures of the windows.
class DemoRun {
  public:
    /// `folder` becomes the program's folder; the sample game is made in its folder game/. `check`,
    /// if not null, takes the pictures and compares them; their names then end in `suffix`.
    explicit DemoRun(const std::string& demoFolder, PictureCheck* check = nullptr,
                     QString suffix = {});

    /// Runs it, with `pause` milliseconds between the steps so that a person can follow. With
    /// `fromScreen` the pictures are taken from the screen with the windows' frames, and a game of
    /// 16 players is shown too. Prints the reports. True when every message arrived as it should.
    bool play(int pause, bool fromScreen);

    /// Runs only the start, up to the main window with a game of eight players.
    void playStart();

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
    void takeMessageBox(QMessageBox& box);
    void takePicture(QWidget& window, const QString& name);
    void wait();

    QString folder_;
    PictureCheck* check_;
    QString suffix_;
    std::map<int, std::string> turnFiles_;
    std::string extraFile_;
    automation::ScriptedServer server_;
    automation::Host person_;
    int pauseLength_ = 0;
    bool framed_ = false;
};

} // namespace turnpost::demo
