#include "app/qt/CommandTable.h"
#include "app/qt/WholeState.h"
#include "automation/ScriptedServer.h"
#include "automation/Waiting.h"
#include "fakes/FakeMail.h"
#include "storage/GameDetailsFile.h"
#include "support/WindowTest.h"

#include <QAbstractButton>

namespace turnpost::automation {

void PrintTo(const Command& command, std::ostream* out) {
    *out << command.name.toStdString();
}

// The host has opened the game CUP in the folder game, which is the default game, and renamed it;
// has mailed all players, which the mail system refused; and has sent by SMTP, which broke off at
// player 3. So nothing is as at the start, and hardly a value is empty or like another.
// The game OTHER in the folder game/other differs from CUP in everything, and its names hold a line
// break, which must not stay when it is opened.
class EveryCommand : public WindowTest, public testing::WithParamInterface<Command> {
  protected:
    // See Command. The form is a dialog, or none for the main window.
    void does(const QString& deeds, QWidget* form = nullptr) {
        for (const QString& deed : deeds.split(' ')) {
            const QString text = deed.section('=', 1);
            if (deed == "restart") {
                begin();
            } else if (deed == "close") {
                form->close();
            } else if (deed.startsWith("break=")) {
                breaksAt = text.toStdString();
            } else if (deed.startsWith("-")) {
                std::filesystem::remove(toNativePath(folder.path(deed.mid(1).toStdString())));
            } else if (deed.contains('=')) {
                host().type(deed.section('=', 0, 0), text, form);
            } else if (deed.contains('.')) {
                host().selectFile(*form, deed.section('/', -2, -2), deed.section('/', -1));
            } else if (deed == "butSend2") {
                findControl<QAbstractButton>(window(), deed)->click();
            } else {
                form == nullptr ? open(deed) : host().click(deed, form);
            }
        }
    }

    void begin() {
        start([this](const Settings&) { return fakeMailSystem(mailCalls, mail); });
        expectWindows();
        host().desktop().startUp();
    }

    void expectWindows() {
        for (const QString& line : std::exchange(windows, {}).split("; ", Qt::SkipEmptyParts)) {
            const QString form = line.section(": ", 0, 0);
            const QString there = line.section(": ", 1);
            const bool reads = form == "box" || form == "frmProgRept";
            host().watcher().expect(form == "box" ? "" : form, [=, this](QWidget& opened) {
                reads ? readWindow(opened, there) : does(there, &opened);
            });
        }
    }

    void readWindow(QWidget& opened, const QString& expected) {
        ModalWatcher& watcher = host().watcher();
        opened.objectName().isEmpty() ? watcher.readMessage(opened) : watcher.readReport(opened);
        EXPECT_PRED2(matches, filledIn(expected),
                     flat(toQt(watcher.takeTexts().at(0)), folder.path()));
    }

    void run(const QString& deeds, const QString& openWindows) {
        windows = openWindows;
        if (!deeds.contains("restart")) {
            expectWindows();
        }
        does(deeds);
        const ModalWatcher& watcher = host().watcher();
        ASSERT_TRUE(waitUntil([&] { return watcher.done() || !watcher.faults().empty(); }));
    }

    // A text of the table, in which $settings and such stand for what the program now holds.
    QString filledIn(QString text) {
        const SharedValues& now = values();
        text.replace("$settings", toQt(printSettings(now.settings)))
            .replace("$game", toQt(printGameDetails(now.game, now.message)))
            .replace("$report", toQt(reportText(now.report)));
        return flat(text, folder.path());
    }

    State state() {
        runPendingEvents();
        State found = StateTaker{host()}.take();
        QString& smtp = found["mailed.smtp"];
        for (const auto& conversation : server.conversations()) {
            for (const std::string& command : conversation.commands) {
                smtp += command.starts_with("RCPT") ? toQt(command.substr(8)) + " " : "";
            }
        }
        QString& mapi = found["mailed.mapi"];
        for (const std::string& call : mailCalls) {
            mapi += call.starts_with("Address ") ? toQt(call.substr(8)) + " " : "";
        }
        return found;
    }

    void SetUp() override {
        writeGame("game/", "CUP", "Cup", false);
        writeGame("game/other/", "OTHER", "Other\ngame", true);
        folder.write("game/CUT.NTP", "\"Cut\"\r\n");
        folder.write("game/SHORT.HST", "short");
        const std::string other = folder.path("game/other/OTHER.NTP");
        const std::string cut = folder.path("game/CUT.NTP");
        const Settings settings{.HostName = "Host",
                                .HostEmail = "host@c.org",
                                .SmtpServer = server.address(),
                                .StoredGames = {{{"Other game", other},
                                                 {"Gone game", folder.path("GONE.NTP")},
                                                 {"Cut game", cut},
                                                 {emptySlotName, other}}},
                                .DefaultGameFile = folder.path("game/CUP.NTP")};
        // The end tells it from a file that the program has written.
        folder.write("TURNPOST.INI", printSettings(settings) + "end\r\n");
        begin();
        Application& app = host().desktop().app();
        app.storeAttachments({0, 1, {other, cut, folder.path("game/SHORT.HST")}});
        const GameDetails saved = app.game();
        for (PlayerSlot& row : app.game().rows) {
            row.IncludePlayer = 1;
        }
        int mails = 0;
        mail->inSend = [&mails] { return Refusal{"no " + std::to_string(++mails)}; };
        run("Command1", "frmProgRept: *");
        mail->inSend = [] { return std::nullopt; };
        app.game() = saved;
        host().desktop().showValues();
        run("break=p3@c.org butSend", "box: *");
        run("break= mnuStoredCon GameName=Spring", "frmStore: close");
        findControl<QAbstractButton>(window(), "PlaySel(2)")->setChecked(true);
        findControl<QWidget>(window(), "txtGamePath")->setFocus();
        server.forget();
        mailCalls.clear();
    }

    // The control of the main window that the host has used last.
    QWidget* focusAfter(const QString& deeds) {
        auto* focus = findControl<QWidget>(window(), "txtGamePath");
        for (const QString& deed : QString(deeds).replace("restart", "GameName").split(' ')) {
            auto* control = window().findChild<QWidget*>(deed.section('=', 0, 0));
            focus = control != nullptr && control->isVisible() ? control : focus;
        }
        return focus;
    }

  private:
    // Players 1, 2, 4, 6 and 10 are shown, players 1, 3, 4, 5, 10 and 16 included; the opposite in
    // the other game. Find Game finds all players in the first, and the first three in the other.
    void writeGame(const std::string& place, const std::string& base, const std::string& name,
                   bool opposite) const {
        const char* const end = opposite ? "@o.org" : "@c.org";
        const std::string title = name + " ", turnFile = base + ".M";
        GameDetails game;
        game.GameName = name;
        game.GamePath = folder.path(place);
        game.HostFileName = base + ".HST";
        folder.makeFolder(place);
        folder.write(place + base + ".HST",
                     std::string(12, 'x') + (opposite ? '\x0A' : '\x05') + '\0');
        folder.write(place + base + ".XY", "universe");
        for (int i = 0; i < rowCount; ++i) {
            const bool shown = i == 0 || i == 1 || i == 3 || i == 5 || i == 9;
            const bool included = i == 0 || (i >= 2 && i <= 4) || i == 9;
            const std::string number = std::to_string(i + 1);
            game.row(i) = {.IncludePlayer = included != opposite ? 1 : 0,
                           .PlayerName = title + number,
                           .PlayerEmail = "p" + (number + end),
                           .AltEmail = "a" + (number + end),
                           .GameFile = turnFile + number,
                           .Shown = shown != opposite};
            if (!opposite || i < 3) {
                folder.write(place + game.row(i).GameFile, "turn");
            }
        }
        // As only a file can hold it.
        game.rows[15].IncludePlayer = opposite ? 0 : 2;
        folder.write(place + base + ".NTP",
                     printGameDetails(game, {name + " subject", name + "\r\nbody"}));
    }

    QString windows;
    std::string breaksAt;
    FakeMail* mail = nullptr;
    FakeMail::Record mailCalls;
    ScriptedServer server{[this](Point point, int, const std::string& line) {
        return line == "RCPT TO:" + breaksAt ? Answer{"", Answer::Then::Reset} : goodAnswer(point);
    }};
};

TEST_P(EveryCommand, ChangesWhatItIsForAndNothingElse) {
    const State before = state();
    run(GetParam().deeds, GetParam().windows);
    EXPECT_EQ(faults(before, state(), filledIn(GetParam().changes)), "");
    EXPECT_EQ(window().focusWidget(), focusAfter(GetParam().deeds)) << "no focus";
}

INSTANTIATE_TEST_SUITE_P(Table, EveryCommand, testing::ValuesIn(commands),
                         [](const auto& command) { return command.param.name.toStdString(); });

} // namespace turnpost::automation
