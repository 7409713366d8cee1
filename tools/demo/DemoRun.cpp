#include "DemoRun.h"

#include "DemoChecks.h"
#include "MailStandIn.h"
#include "automation/SampleGame.h"
#include "automation/Waiting.h"
#include "files/Files.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPixmap>
#include <QScreen>
#include <QTimer>
#include <QWindow>
#include <iostream>

namespace turnpost::demo {

namespace {

using automation::Answer;
using automation::Point;

const char* const refusedAddress = "crimson@example.net";
constexpr int heldConnection = 1; // stands still for a picture of the window while it sends
constexpr int repaintTime = 250;  // milliseconds that a screen gets to show what has changed

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

DemoRun::DemoRun(const std::string& demoFolder)
    : folder(QString::fromStdString(demoFolder)),
      turnFiles(automation::makeSampleGame(
          demoFolder + "/game",
          {{1, 0}, {2, 45}, {4, 46}, {7, 100000}, {9, 300}, {12, 300}, {14, 300}, {16, 300}})),
      extraFile("New rules & dates.\r\n.\r\nGood luck!\r\n"), server(answer),
      person(demoFolder, recordingMailSystem(demoFolder)) {
    replaceFile(demoFolder + "/game/news & rules.txt", extraFile);
}

bool DemoRun::play(int pause, bool fromScreen) {
    pauseLength = pause;
    framed = fromScreen;
    enterSettings();
    findGame("game", "picker");
    enterPlayers();
    writeMessage();
    saveAndStore();
    addAttachment();
    sendBySmtp();
    sendByMailSystem();
    showAbout();
    if (framed) {
        showFullGame();
    }
    for (const std::string& fault : person.watcher().faults()) {
        std::cerr << "window: " << fault << '\n';
    }
    // The box after saving, then the two reports.
    const auto& texts = person.watcher().texts();
    if (!person.watcher().faults().empty() || texts.size() != 3 ||
        texts[0] != "Details saved to " +
                        QDir::toNativeSeparators(folder + "/game/GAME.NTP").toStdString()) {
        return false;
    }
    std::cout << "Report of Send via SMTP:\n"
              << texts[1] << "\nReport of Send via MAPI:\n"
              << texts[2] << '\n';
    return checkMessages(server.conversations(), turnFiles, extraFile, folder.toStdString()) &&
           checkMailSystem({{"red@example.net", 1}, {"green@example.net", 7}, {refusedAddress, 12}},
                           folder.toStdString()) &&
           checkReports(texts[1], texts[2]);
}

void DemoRun::enterSettings() {
    person.watcher().expect("frmSettings", [this](QWidget& form) {
        person.type("txtHostName", "Game Host", &form);
        person.type("txtHostEmail", "host@example.org", &form);
        person.type("txtSMTP", "mail.example.org", &form);
        takePicture(form, "email-settings");
        person.type("txtSMTP", QString::fromStdString(server.address()), &form);
        wait();
        person.click("butOK", &form);
    });
    person.desktop().startUp();
    takePicture(person.window(), "main-empty");
    wait();
}

void DemoRun::findGame(const QString& game, const QString& picture) {
    person.watcher().expect("frmOpen", [this, game, picture](QWidget& form) {
        person.selectFile(form, folder + "/" + game, "GAME.HST");
        takePicture(form, picture);
        wait();
        person.click("butLoad", &form);
    });
    person.click("GameChoose");
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
    person.type("GameName", "Spring Cup");
    for (const Player& player : players) {
        person.type(QString("PlayerName(%1)").arg(player.number - 1), player.name);
        person.type(QString("PlayerEmail(%1)").arg(player.number - 1), player.address);
    }
    person.type("AltEmail(3)", "gold@example.com");
    // One player sits this turn out, and one file gets lost after it was found.
    person.click("IncludePlayer(15)");
    QFile::remove(folder + "/game/GAME.M14");
    takePicture(person.window(), "main");
    wait();
}

void DemoRun::writeMessage() {
    person.watcher().expect("frmMessage", [this](QWidget& form) {
        person.click("Default", &form);
        takePicture(form, "message");
        wait();
        person.click("mnuOK", &form);
    });
    person.chooseMenu("mnuMsg");
}

void DemoRun::saveAndStore() {
    person.watcher().expect("", [this](QWidget& box) {
        takePicture(box, "message-box");
        person.watcher().readMessage(box);
    });
    person.chooseMenu("mnuSave");
    person.watcher().expect("frmStore", [this](QWidget& form) {
        person.click("butStore(0)", &form);
        takePicture(form, "stored-games");
        wait();
        person.click("mnuOK", &form);
    });
    person.chooseMenu("mnuStoredCon");
    person.watcher().expect("frmOpen", [this](QWidget& picker) {
        person.selectFile(picker, {}, "GAME.NTP");
        takePicture(picker, "picker-open");
        wait();
        person.click("butCancel", &picker);
    });
    person.chooseMenu("mnuOpen");
    person.chooseMenu("mnuNew");
    wait();
    person.chooseMenu("mnuStoredG(1)");
    wait();
}

void DemoRun::addAttachment() {
    person.watcher().expect("frmAtch", [this](QWidget& form) {
        person.watcher().expect("frmOpen", [this](QWidget& picker) {
            person.selectFile(picker, {}, "news & rules.txt");
            takePicture(picker, "picker-attachment");
            wait();
            person.click("butLoad", &picker);
        });
        person.click("butAddAtch(0)", &form);
        takePicture(form, "attachments");
        wait();
        person.click("butOK", &form);
    });
    person.click("butAtch");
}

void DemoRun::expectReport(const QString& picture) {
    person.watcher().expect("frmProgRept", [this, picture](QWidget& form) {
        takePicture(form, picture);
        wait();
        person.watcher().readReport(form);
    });
}

void DemoRun::sendBySmtp() {
    expectReport("report");
    person.click("butSend");
    const auto held = [this] {
        return server.conversations().size() > heldConnection &&
               server.conversations()[heldConnection].commands.size() == 4;
    };
    if (automation::waitUntil(held)) {
        takePicture(person.window(), "sending");
        server.release(heldConnection);
    }
    automation::waitUntil([this] { return person.watcher().done(); });
    takePicture(person.window(), "main-sent");
}

void DemoRun::sendByMailSystem() {
    expectReport("report-mapi");
    person.click("Command1");
}

void DemoRun::showAbout() {
    person.watcher().expect("frmAbout", [this](QWidget& form) {
        takePicture(form, "about");
        wait();
        person.click("cmdOK", &form);
    });
    person.chooseMenu("mnuAbout");
}

void DemoRun::showFullGame() {
    std::map<int, size_t> lengths;
    for (int player = 1; player <= rowCount; ++player) {
        lengths[player] = 1;
    }
    automation::makeSampleGame((folder + "/league").toStdString(), lengths);
    findGame("league", "picker-16");
    person.type("GameName", "Grand League");
    for (const auto& [player, length] : lengths) {
        person.type(QString("PlayerName(%1)").arg(player - 1),
                    QString("Emperor of Realm %1").arg(player));
        person.type(QString("PlayerEmail(%1)").arg(player - 1),
                    QString("emperor%1@example.net").arg(player));
    }
    person.click("IncludePlayer(6)");
    takePicture(person.window(), "main-16");
}

void DemoRun::takePicture(QWidget& window, const QString& name) {
    const QString file = folder + "/" + name + ".png";
    if (!framed) {
        window.grab().save(file);
        return;
    }
    automation::waitUntil([&window] {
        return window.isActiveWindow() && window.windowHandle()->frameMargins().top() > 0;
    });
    const QDeadlineTimer repainted(repaintTime);
    automation::waitUntil([&repainted] { return repainted.hasExpired(); });
    const QRect frame = window.frameGeometry();
    window.screen()->grabWindow(0, frame.x(), frame.y(), frame.width(), frame.height()).save(file);
}

void DemoRun::wait() {
    const QDeadlineTimer until(pauseLength);
    automation::waitUntil([&until] { return until.hasExpired(); });
}

} // namespace turnpost::demo
