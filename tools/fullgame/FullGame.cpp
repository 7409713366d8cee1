#include "fullgame/FullGame.h"

#include "desk/SampleGame.h"
#include "desk/Waiting.h"
#include "platform/Files.h"

#include <QAbstractButton>
#include <iostream>

namespace turnpost::fullgame {

namespace {

constexpr int players = 16;
constexpr int extras = 3;
constexpr int filesOfRound = players + 1 + extras;
constexpr int longestSend = 120000; // milliseconds

constexpr const char* subject = "Turn <<GY>> of <<GN>> for player <<PN>>";
// Lines that start with periods change on their way and have to come back.
constexpr const char* body = "Hello <<FN>>,\n"
                             "\n"
                             ".\n"
                             "..\n"
                             ".hidden orders of <<GN>> in <<GY>>\n"
                             "... and more for player <<PN>>\n"
                             "From here on: no changes.\n";

static_assert((FullGame::rounds - 1) * filesOfRound == 140, "the promised lengths");

// Counts through the files of all rounds.
int numberOf(int round, int file) {
    return round * filesOfRound + file;
}

size_t lengthOf(int round, int file) {
    if (round < FullGame::rounds - 1) {
        return static_cast<size_t>(numberOf(round, file));
    }
    // The universe file and the first extra file are long; 100,035 bytes fill the last line.
    constexpr size_t others[] = {100000, 100035, 4096, 20000};
    return file < players ? 3000 + static_cast<size_t>(file) : others[file - players];
}

std::string extraName(int extra) {
    return "extra " + std::to_string(extra + 1) + ".dat";
}

} // namespace

FullGame::FullGame(const std::string& folder, const std::string& server) : person(folder) {
    person.watcher().expect("frmSettings", [this, server](QWidget& form) {
        person.type("txtHostName", "Game Host", &form);
        person.type("txtHostEmail", "host@example.org", &form);
        person.type("txtSMTP", QString::fromStdString(server), &form);
        person.click("butOK", &form);
    });
    person.desktop().startUp();
}

bool FullGame::play(int round) {
    gameFolder = person.folder() + "/round-" + std::to_string(round + 1);
    makeFiles(round);
    findGame();
    enterPlayers(round);
    writeMessage();
    chooseAttachments();
    return send();
}

void FullGame::makeFiles(int round) {
    // Each file of all rounds has bytes of its own, so that no two can be taken for each other.
    const auto bytesOf = [round](int file) {
        return desk::sampleBytes(lengthOf(round, file), numberOf(round, file));
    };
    desk::makeSampleGame(gameFolder, {});
    for (int player = 0; player < players; ++player) {
        replaceFile(gameFolder + "/GAME.M" + std::to_string(player + 1), bytesOf(player));
    }
    replaceFile(gameFolder + "/GAME.XY", bytesOf(players));
    for (int extra = 0; extra < extras; ++extra) {
        replaceFile(gameFolder + "/" + extraName(extra), bytesOf(players + 1 + extra));
    }
    replaceFile(gameFolder + "/message.txt", std::string(subject) + "\n" + body);
}

void FullGame::findGame() {
    person.watcher().expect("frmOpen", [this](QWidget& form) {
        person.selectFile(form, QString::fromStdString(gameFolder), "GAME.HST");
        person.click("butLoad", &form);
    });
    person.click("GameChoose");
}

void FullGame::enterPlayers(int round) {
    person.type("GameName", QString("Round %1").arg(round + 1));
    for (int row = 0; row < players; ++row) {
        const int player = row + 1;
        person.type(QString("PlayerName(%1)").arg(row), QString("Captain%1 Of Many").arg(player));
        person.type(QString("PlayerEmail(%1)").arg(row), QString("p%1@example.org").arg(player));
    }
    // Named in the message only: nothing may arrive there.
    person.type("AltEmail(3)", "p4-alternate@example.org");
}

void FullGame::writeMessage() {
    person.watcher().expect("frmMessage", [this](QWidget& form) {
        person.type("txtSubject", subject, &form);
        person.type("txtMessage", body, &form);
        person.click("mnuOK", &form);
    });
    person.chooseMenu("mnuMsg");
}

void FullGame::chooseAttachments() {
    person.watcher().expect("frmAtch", [this](QWidget& form) {
        if (!desk::findControl<QAbstractButton>(form, "chkXY")->isChecked()) {
            person.click("chkXY", &form);
        }
        for (int extra = 0; extra < extras; ++extra) {
            person.expectPicker(QString::fromStdString(extraName(extra)));
            person.click(QString("butAddAtch(%1)").arg(extra), &form);
        }
        person.click("butOK", &form);
    });
    person.click("butAtch");
}

bool FullGame::send() {
    desk::ModalWatcher& watcher = person.watcher();
    const size_t reportsBefore = watcher.texts().size();
    watcher.expectReport();
    person.click("butSend");
    const bool ended = desk::waitUntil([&watcher] { return watcher.done(); }, longestSend);
    for (const std::string& fault : watcher.faults()) {
        std::cerr << "window: " << fault << '\n';
    }
    if (!ended || !watcher.faults().empty() || watcher.texts().size() != reportsBefore + 1) {
        std::cerr << "no report came\n";
        return false;
    }
    replaceFile(gameFolder + "/report.txt", watcher.texts().back());
    return true;
}

} // namespace turnpost::fullgame
