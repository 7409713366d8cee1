#include "desk/SampleGame.h"
#include "desk/UuDecoder.h"
#include "desk/Waiting.h"
#include "platform/Files.h"
#include "support/MailServer.h"
#include "support/Resources.h"
#include "support/WindowTest.h"

#include <QCheckBox>
#include <QDir>
#include <fstream>
#include <gtest/gtest.h>

namespace turnpost::desk {

namespace {

constexpr int players = 16;
constexpr int filesOfPlayer = 5;
constexpr int filesOfRound = players + filesOfPlayer - 1;
// Seven with every file length from 0 to 139 bytes, and one with long files.
constexpr int rounds = 8;
static_assert((rounds - 1) * filesOfRound == 140);

constexpr int longestRun = 60000; // milliseconds

// Of the turn files, the universe file and the extra files 1 to 3.
std::string nameOf(int file) {
    return file < players    ? "GAME.M" + std::to_string(file + 1)
           : file == players ? "GAME.XY"
                             : "extra " + std::to_string(file - players) + ".dat";
}

// Each file of all rounds has bytes of its own, so that no two can be taken for each other.
std::string bytesOf(int round, int file) {
    const int number = round * filesOfRound + file;
    const bool isLong = file == players || file == players + 1;
    // 100,035 bytes fill the last line.
    const int length = round < rounds - 1 ? number
                       : isLong           ? 100000 + 35 * (file - players)
                                          : 3000 + file;
    return sampleBytes(static_cast<size_t>(length), number);
}

// Lines that start with periods change on their way and have to come back.
std::string textFor(const std::string& player, const std::string& first, const std::string& game,
                    const std::string& year) {
    return "Hello " + first + ",\n\n.\n..\n.hidden orders of " + game + " in " + year +
           "\n... and more for player " + player + "\nFrom here on: no changes.";
}

} // namespace

// A host who sends rounds of a game with all 16 players and five files for each of them, and opens
// every dialog between them. TURNPOST_SENDS is how often all players are served; TURNPOST_REFUSAL
// is what a server says that takes no mail from us.
class FullGame : public WindowTest {
  protected:
    FullGame() {
        std::map<int, size_t> lengths;
        for (int player = 1; player <= players; ++player) {
            lengths[player] = 0;
        }
        host().startGame(server.address(), lengths);
        host().type("GameName", "Full Game");
        for (int row = 0; row < players; ++row) {
            host().type(QString("PlayerName(%1)").arg(row),
                        QString("Captain%1 Of Many").arg(row + 1));
        }
        // Named in the message only: nothing may arrive there.
        host().type("AltEmail(3)", "p4-alternate@example.org");
    }

    void makeFiles(int round) {
        for (int file = 0; file < filesOfRound; ++file) {
            std::ofstream(host().folder() + "/" + nameOf(file), std::ios::binary)
                << bytesOf(round, file);
        }
    }

    void openEveryDialog() {
        const auto pressing = [this](const QString& button) {
            return [this, button](QWidget& form) { host().click(button, &form); };
        };
        host().watcher().expect("frmSettings", pressing("butOK"));
        host().chooseMenu("mnuEmailSets");
        host().watcher().expect("frmOpen", pressing("butCancel"));
        host().click("GameChoose");
        host().watcher().expect("frmMessage", [this](QWidget& form) { writeMessage(form); });
        host().chooseMenu("mnuMsg");
        host().watcher().expect("frmAtch", [this](QWidget& form) { chooseFiles(form); });
        host().click("butAtch");
        host().watcher().expectMessage();
        host().chooseMenu("mnuSave");
        host().watcher().expect("frmStore", [this](QWidget& form) {
            host().click("butStore(0)", &form);
            host().click("mnuOK", &form);
        });
        host().chooseMenu("mnuStoredCon");
        host().watcher().expect("frmAbout", pressing("cmdOK"));
        host().chooseMenu("mnuAbout");
        expectClosed("Details saved to " + host().folder() + "/GAME.NTP");
    }

    void writeMessage(QWidget& form) {
        host().type("txtSubject", "Turn <<GY>> of <<GN>> for player <<PN>>", &form);
        const std::string text = textFor("<<PN>>", "<<FN>>", "<<GN>>", "<<GY>>");
        host().type("txtMessage", QString::fromStdString(text), &form);
        host().click("mnuOK", &form);
    }

    void chooseFiles(QWidget& form) {
        if (!findControl<QCheckBox>(form, "chkXY")->isChecked()) {
            host().click("chkXY", &form);
        }
        for (int extra = 1; extra < filesOfPlayer - 1; ++extra) {
            host().click(QString("butRemove(%1)").arg(extra - 1), &form);
            host().expectPicker(QString::fromStdString(nameOf(players + extra)));
            host().click(QString("butAddAtch(%1)").arg(extra - 1), &form);
        }
        host().click("butOK", &form);
    }

    void send(int round) {
        host().watcher().expectReport();
        host().click("butSend");
        const ModalWatcher& windows = host().watcher();
        waitUntil([&] { return windows.done() || !windows.faults().empty(); }, longestRun);
        std::string report;
        for (int player = 1; player <= players; ++player) {
            report += "Player " + std::to_string(player) + ": " + line + "\n";
        }
        expectClosed(report);
        ASSERT_FALSE(HasFailure());
        std::map<std::string, std::vector<StoredMail>> mails;
        for (StoredMail& mail : server.take(served)) {
            mails[mail.recipient].push_back(std::move(mail));
        }
        EXPECT_EQ(mails.size(), served);
        for (int player = 1; player <= served; ++player) {
            SCOPED_TRACE("player " + std::to_string(player));
            const auto& own = mails["p" + std::to_string(player) + "@example.org"];
            ASSERT_EQ(own.size(), 1U);
            expectMail(own[0], round, player);
        }
    }

    void expectClosed(const std::string& text) {
        runPendingEvents();
        EXPECT_TRUE(host().watcher().done());
        EXPECT_EQ(host().watcher().faults(), std::vector<std::string>{});
        EXPECT_EQ(host().watcher().takeTexts(), std::vector{text});
    }

    void expectMail(const StoredMail& mail, int round, int player) {
        const std::string number = std::to_string(player);
        const std::string name = "Captain" + number;
        EXPECT_EQ(mail.head,
                  "From: Game Host <host@example.org>\nTo: " + name + " Of Many <p" + number +
                      "@example.org>\n" +
                      (player == 4 ? "CC: Captain4 Of Many<p4-alternate@example.org>\n" : "") +
                      "Subject: Turn 2405 of Full Game for player " + number);
        EXPECT_EQ(mail.text, textFor(number, name, "Full Game", "2405"));
        ASSERT_EQ(mail.blocks.size(), size_t{filesOfPlayer});
        for (int i = 0; i < filesOfPlayer; ++i) {
            const int file = i == 0 ? player - 1 : players + i - 1;
            const DecodedFile& arrived = decoded(mail.blocks[static_cast<size_t>(i)]);
            EXPECT_EQ(arrived.name, nameOf(file));
            EXPECT_TRUE(arrived.bytes == bytesOf(round, file)) << arrived.name;
        }
    }

    // By the system's own decoder. A file whose length is a multiple of 45 ends in two empty lines;
    // the decoder takes the first one as the end of the data, writes the file, and complains that
    // "end" does not follow at once.
    const DecodedFile& decoded(const std::string& block) {
        const auto [known, isNew] = decodedBlocks.try_emplace(block);
        if (isNew) {
            const QTemporaryDir place;
            QProcess uudecode;
            uudecode.setWorkingDirectory(place.path());
            uudecode.start("uudecode", {});
            uudecode.write(block.data(), static_cast<qint64>(block.size()));
            uudecode.closeWriteChannel();
            EXPECT_TRUE(uudecode.waitForFinished(longestRun));
            const QDir results(place.path());
            const QString name = results.entryList(QDir::Files).join('/');
            known->second = {name.toStdString(), readFile(results.filePath(name).toStdString())};
            EXPECT_EQ(uudecode.exitCode(), known->second.bytes.size() % 45 == 0 ? 2 : 0);
        }
        return known->second;
    }

    const std::string refusal = qEnvironmentVariable("TURNPOST_REFUSAL").toStdString();
    const int served = refusal.empty() ? players : 0;
    // A server's words keep their line end.
    const std::string line = refusal.empty() ? "Email sent OK" : "SMTP Error: " + refusal + "\n";
    MailServer server;
    std::map<std::string, DecodedFile> decodedBlocks;
};

TEST_F(FullGame, EveryPlayerGetsTheirOwnFilesUnchangedAndNothingIsLeftBehind) {
    const int sends = qEnvironmentVariable("TURNPOST_SENDS", "8").toInt();
    Usage usage;
    for (int done = 0; done < sends; ++done) {
        SCOPED_TRACE("send " + std::to_string(done + 1));
        makeFiles(done % rounds);
        openEveryDialog();
        send(done % rounds);
        ASSERT_FALSE(HasFailure());
        // The first game fills the caches; the same round leaves the same behind.
        if (done > rounds && done % rounds == 0) {
            usage.sample();
        }
    }
    usage.expectFlat();
    std::cout << "Full game: " << sends << " sends, " << sends * served << " mails with "
              << sends * served * filesOfPlayer << " files as due; report: " << line << '\n';
}

} // namespace turnpost::desk
