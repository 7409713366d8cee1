#include "DemoRun.h"

#include "DemoChecks.h"
#include "MailStandIn.h"
#include "automation/SampleGame.h"
#include "automation/Waiting.h"
#include "files/Files.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QPixmap>
#include <QPushButton>
#include <QScreen>
#include <QWindow>
#include <iostream>

namespace turnpost::demo {

namespace {

using automation::Answer;
using automation::Point;

const char* const refusedAddress = "crimson@example.net";
constexpr int heldConnection = 1; // paused for a picture of the window during a send
constexpr int repaintTime = 250;  // milliseconds for the screen to show a change

Answer answer(Point point, int connection, const std::string& line) {
    if (point == Point::Recipient && line.find(refusedAddress) != std::string::npos) {
        return {"550 5.1.1 No such mailbox here\r\n"};
    }
    Answer good = automation::goodAnswer(point);
    if (point == Point::Data && connection == heldConnection) {
        good.then = Answer::Then::Pause;
    }
    return good;
}

} // namespace

DemoRun::DemoRun(const std::string& demoFolder, PictureCheck* check, QString suffix)
    : folder_(QString::fromStdString(demoFolder)), check_(check), suffix_(std::move(suffix)),
      turnFiles_(automation::makeSampleGame(
          demoFolder + "/game",
          {{1, 0}, {2, 45}, {4, 46}, {7, 100000}, {9, 300}, {12, 300}, {14, 300}, {16, 300}})),
      extraFile_("New rules & dates.\r\n.\r\nGood luck!\r\n"), server_(answer),
      person_(demoFolder, recordingMailSystem(demoFolder)) {
    replaceFile(demoFolder + "/game/news & rules.txt", extraFile_);
}

bool DemoRun::play(int pause, bool fromScreen) {
    pauseLength_ = pause;
    framed_ = fromScreen;
    playStart();
    writeMessage();
    saveAndStore();
    addAttachment();
    sendBySmtp();
    sendByMailSystem();
    showAbout();
    if (framed_) {
        showFullGame();
    }
    for (const std::string& fault : person_.watcher().faults()) {
        std::cerr << "window: " << fault << '\n';
    }
    // First the box after saving, then the two reports.
    const auto& texts = person_.watcher().texts();
    if (!person_.watcher().faults().empty() || texts.size() != 3 ||
        texts[0] != "Details saved to " +
                        QDir::toNativeSeparators(folder_ + "/game/GAME.NTP").toStdString()) {
        return false;
    }
    std::cout << "Report of Send via SMTP:\n"
              << texts[1] << "\nReport of Send via MAPI:\n"
              << texts[2] << '\n';
    return checkMessages(server_.conversations(), turnFiles_, extraFile_, folder_.toStdString()) &&
           checkMailSystem({{"red@example.net", 1}, {"green@example.net", 7}, {refusedAddress, 12}},
                           folder_.toStdString()) &&
           checkReports(texts[1], texts[2]);
}

void DemoRun::playStart() {
    enterSettings();
    findGame("game", "picker");
    enterPlayers();
}

void DemoRun::enterSettings() {
    person_.watcher().expect("frmSettings", [this](QWidget& form) {
        person_.type("txtHostName", "Game Host", &form);
        person_.type("txtHostEmail", "host@example.org", &form);
        person_.type("txtSMTP", "mail.example.org", &form);
        takePicture(form, "email-settings");
        person_.type("txtSMTP", QString::fromStdString(server_.address()), &form);
        wait();
        person_.click("butOK", &form);
    });
    person_.desktop().startUp();
    takePicture(person_.window(), "main-empty");
    wait();
}

void DemoRun::findGame(const QString& game, const QString& picture) {
    person_.watcher().expect("frmOpen", [this, game, picture](QWidget& form) {
        person_.selectFile(form, folder_ + "/" + game, "GAME.HST");
        takePicture(form, picture);
        wait();
        person_.click("butLoad", &form);
    });
    person_.click("GameChoose");
    wait();
}

void DemoRun::enterPlayers() {
    struct Player {
        int number;
        const char* name;
        const char* address;
    };
    const Player players[] = {{1, "Red Leader", "red@example.net"},
                              {2, "Blue Fleet", "blue@example.net"},
                              {4, "Gold Admiral", "gold@example.net"},
                              {7, "Green Swarm", "green@example.net"},
                              {9, "Silent Moon", ""},
                              {12, "Crimson Tide", refusedAddress},
                              {14, "Lost Legion", "lost@example.net"},
                              {16, "Grey Eminence", "grey@example.net"}};
    person_.type("GameName", "Spring Cup");
    for (const Player& player : players) {
        person_.type(QString("PlayerName(%1)").arg(player.number - 1), player.name);
        person_.type(QString("PlayerEmail(%1)").arg(player.number - 1), player.address);
    }
    person_.type("AltEmail(3)", "gold@example.com");
    // One player is skipped in this turn, and one file is deleted after it was found.
    person_.click("IncludePlayer(15)");
    QFile::remove(folder_ + "/game/GAME.M14");
    takePicture(person_.window(), "main");
    wait();
}

void DemoRun::writeMessage() {
    person_.watcher().expect("frmMessage", [this](QWidget& form) {
        person_.click("Default", &form);
        takePicture(form, "message");
        wait();
        person_.click("mnuOK", &form);
    });
    person_.chooseMenu("mnuMsg");
}

void DemoRun::saveAndStore() {
    person_.watcher().expect("", [this](QWidget& box) {
        takeMessageBox(static_cast<QMessageBox&>(box));
        person_.watcher().readMessage(box);
    });
    person_.chooseMenu("mnuSave");
    person_.watcher().expect("frmStore", [this](QWidget& form) {
        person_.click("butStore(0)", &form);
        takePicture(form, "stored-games");
        wait();
        person_.click("mnuOK", &form);
    });
    person_.chooseMenu("mnuStoredCon");
    person_.watcher().expect("frmOpen", [this](QWidget& picker) {
        person_.selectFile(picker, {}, "GAME.NTP");
        takePicture(picker, "picker-open");
        wait();
        person_.click("butCancel", &picker);
    });
    person_.chooseMenu("mnuOpen");
    person_.chooseMenu("mnuNew");
    wait();
    person_.chooseMenu("mnuStoredG(1)");
    wait();
}

void DemoRun::addAttachment() {
    person_.watcher().expect("frmAtch", [this](QWidget& form) {
        person_.watcher().expect("frmOpen", [this](QWidget& picker) {
            person_.selectFile(picker, {}, "news & rules.txt");
            takePicture(picker, "picker-attachment");
            wait();
            person_.click("butLoad", &picker);
        });
        person_.click("butAddAtch(0)", &form);
        takePicture(form, "attachments");
        wait();
        person_.click("butOK", &form);
    });
    person_.click("butAtch");
}

void DemoRun::expectReport(const QString& picture) {
    person_.watcher().expect("frmProgRept", [this, picture](QWidget& form) {
        takePicture(form, picture);
        wait();
        person_.watcher().readReport(form);
    });
}

void DemoRun::sendBySmtp() {
    expectReport("report");
    person_.click("butSend");
    const auto held = [this] {
        return server_.conversations().size() > heldConnection &&
               server_.conversations()[heldConnection].commands.size() == 4;
    };
    if (automation::waitUntil(held)) {
        takePicture(person_.window(), "sending");
        server_.release(heldConnection);
    }
    automation::waitUntil([this] { return person_.watcher().done(); });
    takePicture(person_.window(), "main-sent");
}

void DemoRun::sendByMailSystem() {
    expectReport("report-mapi");
    person_.click("Command1");
}

void DemoRun::showAbout() {
    person_.watcher().expect("frmAbout", [this](QWidget& form) {
        takePicture(form, "about");
        wait();
        person_.click("cmdOK", &form);
    });
    person_.chooseMenu("mnuAbout");
}

void DemoRun::showFullGame() {
    std::map<int, size_t> lengths;
    for (int player = 1; player <= rowCount; ++player) {
        lengths[player] = 1;
    }
    automation::makeSampleGame((folder_ + "/league").toStdString(), lengths);
    findGame("league", "picker-16");
    person_.type("GameName", "Grand League");
    for (const auto& [player, length] : lengths) {
        person_.type(QString("PlayerName(%1)").arg(player - 1),
                     QString("Emperor of Realm %1").arg(player));
        person_.type(QString("PlayerEmail(%1)").arg(player - 1),
                     QString("emperor%1@example.net").arg(player));
    }
    person_.click("IncludePlayer(6)");
    takePicture(person_.window(), "main-16");
}

void DemoRun::takePicture(QWidget& window, const QString& name) {
    const QString file = folder_ + "/" + name + ".png";
    if (check_ != nullptr) {
        // Without a window manager nothing activates a window again after a dialog has closed.
        window.activateWindow();
        automation::waitUntil([&window] { return window.isActiveWindow(); });
        check_->take(window, name + suffix_);
        return;
    }
    if (!framed_) {
        window.grab().save(file);
        return;
    }
    automation::waitUntil([&window] {
        return window.isActiveWindow() && window.windowHandle()->frameMargins().top() > 0;
    });
    const QDeadlineTimer repainted(repaintTime);
    automation::waitUntil([&repainted] { return repainted.hasExpired(); });
    const QRect frame = window.frameGeometry();
    const QPixmap picture =
        window.screen()->grabWindow(0, frame.x(), frame.y(), frame.width(), frame.height());
    storePicture(picture.toImage(), window, file);
}

void DemoRun::takeMessageBox(QMessageBox& box) {
    // The box is as wide as the path in it. Only some desktops have icons on buttons.
    const QString text = box.text();
    box.button(QMessageBox::Ok)->setIcon({});
    box.setText(QString(text).replace(QDir::toNativeSeparators(folder_), "/srv/host/Stars"));
    takePicture(box, "message-box");
    box.setText(text);
}

void DemoRun::wait() {
    const QDeadlineTimer until(pauseLength_);
    automation::waitUntil([&until] { return until.hasExpired(); });
}

} // namespace turnpost::demo
