#include "Evening.h"

#include "desk/SampleGame.h"
#include "desk/Waiting.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QPixmap>
#include <QScreen>
#include <QWindow>
#include <iostream>

namespace turnpost::pictures {

namespace {

constexpr int repaintTime = 250; // milliseconds that a window gets to show what has changed

std::string programFolder(const QString& home) {
    QDir().mkpath(home + "/turnpost");
    return home.toStdString() + "/turnpost";
}

} // namespace

Evening::Evening(const QString& home, QString pictureFolder)
    : games(home + "/Stars"), folder(std::move(pictureFolder)),
      server([this](desk::Point point, int connection, const std::string& line) {
          return answer(point, connection, line);
      }),
      person(programFolder(home)) {
    desk::makeSampleGame((games + "/Cup").toStdString(), {{1, 3000}, {2, 3000}, {5, 3000}});
    std::map<int, size_t> all;
    for (int player = 1; player <= rowCount; ++player) {
        all[player] = 1;
    }
    desk::makeSampleGame((games + "/League").toStdString(), all);
}

// The second player's server keeps the host waiting, the third's refuses.
desk::Answer Evening::answer(desk::Point point, int connection, const std::string& line) {
    desk::Answer said = desk::goodAnswer(point);
    if (point == desk::Point::Message && connection == 1) {
        std::swap(said.bytes, said.late);
    }
    if (point == desk::Point::Recipient && line.find("gold@") != std::string::npos) {
        said.bytes = "550 5.1.1 <gold@example.net>: Recipient address rejected: User unknown in "
                     "local recipient table\r\n";
    }
    return said;
}

bool Evening::play() {
    firstStart();
    smallGame();
    dialogs();
    sending();
    fullGame();
    for (const std::string& fault : person.watcher().faults()) {
        std::cerr << "window: " << fault << '\n';
    }
    return person.watcher().faults().empty();
}

void Evening::firstStart() {
    person.watcher().expect("frmSettings", [this](QWidget& form) {
        person.type("txtHostName", "Game Host", &form);
        person.type("txtHostEmail", "host@example.org", &form);
        person.type("txtSMTP", "mail.example.org", &form);
        take(form, "email-settings");
        person.type("txtSMTP", QString::fromStdString(server.address()), &form);
        person.click("butOK", &form);
    });
    person.desktop().startUp();
    take(person.window(), "main-empty");
}

void Evening::find(const QString& game, const QString& picture) {
    person.watcher().expect("frmOpen", [this, game, picture](QWidget& form) {
        person.selectFile(form, games + "/" + game, "GAME.HST");
        take(form, picture);
        person.click("butLoad", &form);
    });
    person.click("GameChoose");
}

void Evening::enter(int player, const QString& name, const QString& address) {
    person.type(QString("PlayerName(%1)").arg(player - 1), name);
    person.type(QString("PlayerEmail(%1)").arg(player - 1), address);
}

void Evening::smallGame() {
    find("Cup", "picker");
    person.type("GameName", "Spring Cup");
    enter(1, "Red Leader", "red@example.net");
    enter(2, "Blue Fleet", "blue@example.net");
    enter(5, "Gold Admiral", "gold@example.net");
    person.type("AltEmail(1)", "fleet@example.com");
    take(person.window(), "main");
}

void Evening::dialogs() {
    person.watcher().expect("frmMessage", [this](QWidget& form) {
        person.click("Default", &form);
        take(form, "message");
        person.click("mnuOK", &form);
    });
    person.chooseMenu("mnuMsg");
    person.watcher().expect("", [this](QWidget& box) {
        take(box, "message-box");
        person.watcher().readMessage(box);
    });
    person.chooseMenu("mnuSave");
    person.watcher().expect("frmStore", [this](QWidget& form) {
        person.click("butStore(0)", &form);
        take(form, "stored-games");
        person.click("mnuOK", &form);
    });
    person.chooseMenu("mnuStoredCon");
    person.watcher().expect("frmOpen", [this](QWidget& picker) {
        take(picker, "picker-open");
        person.click("butCancel", &picker);
    });
    person.chooseMenu("mnuOpen");
    person.watcher().expect("frmAtch", [this](QWidget& form) {
        person.type("txtFile(0)", games + "/Cup/news & rules.txt", &form);
        take(form, "attachments");
        person.type("txtFile(0)", {}, &form);
        person.click("butOK", &form);
    });
    person.click("butAtch");
    person.watcher().expect("frmAbout", [this](QWidget& form) {
        take(form, "about");
        person.click("cmdOK", &form);
    });
    person.chooseMenu("mnuAbout");
}

void Evening::sending() {
    person.watcher().expect("frmProgRept", [this](QWidget& form) {
        take(form, "report");
        person.watcher().readReport(form);
    });
    person.click("butSend");
    desk::waitUntil([this] {
        return server.conversations().size() == 2 && !server.conversations()[1].message.empty();
    });
    take(person.window(), "sending");
    server.release(1);
    desk::waitUntil([this] { return person.watcher().done(); });
    take(person.window(), "main-sent");
}

void Evening::fullGame() {
    find("League", "picker-16");
    person.type("GameName", "Grand League");
    for (int player = 1; player <= rowCount; ++player) {
        enter(player, QString("Emperor of Realm %1").arg(player),
              QString("emperor%1@example.net").arg(player));
    }
    person.click("IncludePlayer(6)");
    take(person.window(), "main-16");
}

void Evening::take(QWidget& window, const QString& name) {
    desk::waitUntil([&window] {
        return window.isActiveWindow() && window.windowHandle()->frameMargins().top() > 0;
    });
    const QDeadlineTimer repainted(repaintTime);
    desk::waitUntil([&repainted] { return repainted.hasExpired(); });
    const QRect frame = window.frameGeometry();
    window.screen()
        ->grabWindow(0, frame.x(), frame.y(), frame.width(), frame.height())
        .save(folder + "/" + name + ".png");
}

} // namespace turnpost::pictures
