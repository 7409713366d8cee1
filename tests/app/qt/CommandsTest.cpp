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
    *out << command.name;
}

// The host has opened the game CUP in the folder game, which is the default game, and renamed it;
// has mailed all players, which the mail system refused; and has sent by SMTP, which broke off at
// player 3. So nothing is as at the start, and hardly a value is empty or like another.
// The game OTHER in the folder game/other differs from CUP in everything.
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
            } else if (deed == "nobody") {
                session->openSession = 0;
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
        start([this](const Settings&) {
            auto newSession = std::make_unique<FakeMail>(mailCalls);
            auto newMail = std::make_unique<FakeMail>(mailCalls);
            session = newSession.get();
            mail = newMail.get();
            return MailSystem{std::move(newSession), std::move(newMail)};
        });
        expectWindows();
        host().desktop().startUp();
    }

    void expectWindows() {
        for (const QString& line : toQt(windows).split("; ", Qt::SkipEmptyParts)) {
            const QString form = line.section(": ", 0, 0);
            const QString there = line.section(": ", 1);
            const bool reads = form == "box" || form == "frmProgRept";
            host().watcher().expect(form == "box" ? "" : form, [=, this](QWidget& window) {
                reads ? readWindow(window, there.toStdString()) : does(there, &window);
            });
        }
        windows.clear();
    }

    void readWindow(QWidget& opened, const std::string& expected) {
        ModalWatcher& watcher = host().watcher();
        opened.objectName().isEmpty() ? watcher.readMessage(opened) : watcher.readReport(opened);
        for (const std::string& text : watcher.takeTexts()) {
            EXPECT_PRED2(matches, filledIn(expected), flat(text, folder.path()));
        }
    }

    void run(const Command& command) {
        windows = command.windows;
        if (command.deeds.find("restart") == std::string::npos) {
            expectWindows();
        }
        does(toQt(command.deeds));
        const ModalWatcher& watcher = host().watcher();
        ASSERT_TRUE(waitUntil([&] { return watcher.done() || !watcher.faults().empty(); }));
    }

    // A value of the table, in which $settings and such stand for what the program now holds.
    std::string filledIn(const std::string& text) {
        const SharedValues& now = values();
        const std::string value = text == "$settings" ? printSettings(now.settings)
                                  : text == "$game"   ? printGameDetails(now.game, now.message)
                                  : text == "$report" ? reportText(now.report)
                                                      : text;
        return flat(value, folder.path());
    }

    // A line of a table is name=value, or a name alone.
    Changes changesOf(const std::string& lines) {
        Changes changes;
        for (const QString& line : toQt(lines).split("; ", Qt::SkipEmptyParts)) {
            changes.push_back({line.section('=', 0, 0).toStdString()});
            if (line.contains('=')) {
                changes.back().becomes = filledIn(line.section('=', 1).toStdString());
            }
        }
        return changes;
    }

    State state() {
        runPendingEvents();
        State found = StateTaker(host()).take();
        found["mailed.smtp"] = found["mailed.mapi"] = "";
        for (const auto& conversation : server.conversations()) {
            for (const std::string& command : conversation.commands) {
                found["mailed.smtp"] += command.starts_with("RCPT") ? command.substr(8) + " " : "";
            }
        }
        for (const std::string& call : mailCalls) {
            found["mailed.mapi"] += call.starts_with("Address ") ? call.substr(8) + " " : "";
        }
        return found;
    }

    void SetUp() override {
        writeGame("game/", "CUP", "Cup", false);
        writeGame("game/other/", "OTHER", "Other", true);
        folder.write("game/CUT.NTP", "\"Cut\"\r\n");
        folder.write("game/SHORT.HST", "short");
        const std::string other = folder.path("game/other/OTHER.NTP");
        const Settings settings{.HostName = "Host",
                                .HostEmail = "host@c.org",
                                .SmtpServer = server.address(),
                                .StoredGames = {{{"Other game", other},
                                                 {"Gone game", folder.path("GONE.NTP")},
                                                 {"Cut game", folder.path("game/CUT.NTP")},
                                                 {emptySlotName, other}}},
                                .DefaultGameFile = folder.path("game/CUP.NTP")};
        // The end tells it from a file that the program has written.
        folder.write("TURNPOST.INI", printSettings(settings) + "end\r\n");
        begin();
        Application& app = host().desktop().app();
        AttachmentChoices choices{.SendMFiles = 0, .SendXYFile = 1, .ExtraAttachments = {}};
        for (std::string& file : choices.ExtraAttachments) {
            file = folder.path("extra " + std::to_string(&file - choices.ExtraAttachments.data()));
            replaceFile(file, "extra");
        }
        app.storeAttachments(choices);
        const GameDetails saved = app.game();
        for (PlayerSlot& row : app.game().rows) {
            row.IncludePlayer = 1;
        }
        int mails = 0;
        mail->inSend = [&mails] { return Refusal{"no " + std::to_string(++mails)}; };
        run({"", "Command1", "", "frmProgRept: *"});
        mail->inSend = [] { return std::nullopt; };
        app.game() = saved;
        host().desktop().showValues();
        run({"", "break=p3@c.org butSend", "", "box: *"});
        run({"", "break= mnuStoredCon GameName=Spring", "", "frmStore: close"});
        findControl<QAbstractButton>(window(), "PlaySel(2)")->setChecked(true);
        findControl<QWidget>(window(), "txtGamePath")->setFocus();
        server.forget();
        mailCalls.clear();
    }

  private:
    static std::string numbered(const std::string& beginning, int row, const char* end = "") {
        return beginning + std::to_string(row + 1) + end;
    }

    // Players 1, 2, 4, 6 and 10 are shown, players 1, 3, 4, 5, 10 and 16 included; the opposite in
    // the other game. Find Game finds all players in the first, and the first three in the other.
    void writeGame(const std::string& place, const std::string& base, const std::string& name,
                   bool opposite) const {
        const char* const end = opposite ? "@o.org" : "@c.org";
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
            game.row(i) = {.IncludePlayer = included != opposite ? 1 : 0,
                           .PlayerName = numbered(name + " ", i),
                           .PlayerEmail = numbered("p", i, end),
                           .AltEmail = numbered("a", i, end),
                           .GameFile = numbered(base + ".M", i),
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

    std::string windows;
    std::string breaksAt;
    FakeMail* session = nullptr;
    FakeMail* mail = nullptr;
    FakeMail::Record mailCalls;
    ScriptedServer server{[this](Point point, int, const std::string& line) {
        return line == "RCPT TO:" + breaksAt ? Answer{"", Answer::Then::Reset}
               : breaksAt == "greeting"      ? Answer()
                                             : goodAnswer(point);
    }};
};

TEST_P(EveryCommand, ChangesWhatItIsForAndNothingElse) {
    const State before = state();
    run(GetParam());
    const State after = state();
    const std::string wrong = faults(before, after, changesOf(GetParam().changes));
    EXPECT_TRUE(wrong.empty()) << wrong;
}

INSTANTIATE_TEST_SUITE_P(Table, EveryCommand, testing::ValuesIn(commands),
                         [](const auto& command) { return command.param.name; });

} // namespace turnpost::automation
