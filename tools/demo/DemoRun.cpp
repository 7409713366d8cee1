#include "DemoRun.h"

#include "DemoChecks.h"
#include "support/SampleGame.h"
#include "support/Waiting.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QLabel>
#include <QPixmap>
#include <QTimer>
#include <iostream>

namespace turnpost::demo {

namespace {

using test::Answer;
using test::Point;

const char* const refusedAddress = "crimson@example.net";

Answer answer(Point point, const std::string& line) {
    if (point == Point::Recipient && line.find(refusedAddress) != std::string::npos) {
        return {"550 5.1.1 No such mailbox here\r\n"};
    }
    return test::goodAnswer(point);
}

} // namespace

DemoRun::DemoRun(const std::string& demoFolder)
    : folder(QString::fromStdString(demoFolder)),
      turnFiles(test::makeSampleGame(
          demoFolder + "/game",
          {{1, 0}, {2, 45}, {4, 46}, {7, 100000}, {9, 300}, {12, 300}, {14, 300}, {16, 300}})),
      server([](Point point, int, const std::string& line) { return answer(point, line); }),
      person(demoFolder) {}

bool DemoRun::play(int pause) {
    pauseLength = pause;
    enterSettings();
    findGame();
    enterPlayers();
    writeMessage();
    send();
    if (!person.watcher().faults().empty() || person.watcher().texts().empty()) {
        for (const std::string& fault : person.watcher().faults()) {
            std::cerr << "window: " << fault << '\n';
        }
        return false;
    }
    std::cout << person.watcher().texts().back();
    return checkMessages(server.conversations(), {1, 2, 4, 7}, turnFiles, folder.toStdString()) &&
           checkReport(person.watcher().texts().back());
}

void DemoRun::enterSettings() {
    person.watcher().expect("frmSettings", [this](QWidget& form) {
        person.type("txtHostName", "Game Host", &form);
        person.type("txtHostEmail", "host@example.org", &form);
        person.type("txtSMTP", QString::fromStdString(server.address()), &form);
        takePicture(form, "settings");
        wait();
        person.click("butOK", &form);
    });
    person.desktop().startUp();
    wait();
}

void DemoRun::findGame() {
    person.watcher().expect("frmOpen", [this](QWidget& form) {
        person.selectFile(form, folder + "/game", "GAME.HST");
        takePicture(form, "picker");
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

void DemoRun::send() {
    person.watcher().expect("frmProgRept", [this](QWidget& form) {
        takePicture(form, "report");
        wait();
        person.watcher().readReport(form);
    });
    person.click("butSend");
    test::waitUntil([this] { return person.watcher().done(); });
}

void DemoRun::takePicture(QWidget& window, const QString& name) {
    window.grab().save(folder + "/" + name + ".png");
}

void DemoRun::wait() {
    const QDeadlineTimer until(pauseLength);
    test::waitUntil([&until] { return until.hasExpired(); });
}

} // namespace turnpost::demo
