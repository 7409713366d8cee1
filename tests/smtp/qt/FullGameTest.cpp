#include "desk/SampleGame.h"
#include "desk/Waiting.h"
#include "support/MailServer.h"
#include "support/Resources.h"
#include "support/WindowTest.h"

#include <QCheckBox>
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
    // 100,035 bytes fill the last line.
    const int length = round < rounds - 1 ? number
                       : file < players   ? 3000 + file
                                          : 100000 + 35 * (file - players);
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
            folder.write(nameOf(file), bytesOf(round, file));
        }
    }

    void openEveryDialog() {
        for (const auto& [form, opener, button] :
             std::vector<std::array<const char*, 3>>{{"frmSettings", "mnuEmailSets", "butOK"},
                                                     {"frmOpen", "GameChoose", "butCancel"},
                                                     {"frmAbout", "mnuAbout", "cmdOK"}}) {
            in(form, opener,
               [this, name = button](QWidget& dialog) { host().click(name, &dialog); });
        }
        in("frmMessage", "mnuMsg", [this](QWidget& dialog) {
            host().type("txtSubject", "Turn <<GY>> of <<GN>> for player <<PN>>", &dialog);
            const std::string text = textFor("<<PN>>", "<<FN>>", "<<GN>>", "<<GY>>");
            host().type("txtMessage", QString::fromStdString(text), &dialog);
            host().click("mnuOK", &dialog);
        });
        in("frmAtch", "butAtch", [this](QWidget& dialog) { chooseFiles(dialog); });
        EXPECT_EQ(boxBy("mnuSave"), "Details saved to " + folder.path("GAME.NTP"));
        in("frmStore", "mnuStoredCon", [this](QWidget& dialog) {
            host().click("butStore(0)", &dialog);
            host().click("mnuOK", &dialog);
        });
    }

    void chooseFiles(QWidget& dialog) {
        if (!findControl<QCheckBox>(dialog, "chkXY")->isChecked()) {
            host().click("chkXY", &dialog);
        }
        for (int entry = 0; entry < filesOfPlayer - 2; ++entry) {
            host().click(QString("butRemove(%1)").arg(entry), &dialog);
            host().expectPicker(QString::fromStdString(nameOf(players + 1 + entry)));
            host().click(QString("butAddAtch(%1)").arg(entry), &dialog);
        }
        host().click("butOK", &dialog);
    }

    void send(int round) {
        host().watcher().expectReport();
        host().click("butSend");
        waitUntil([this] { return host().watcher().done(); }, longestRun);
        std::string report;
        for (int player = 1; player <= players; ++player) {
            report += "Player " + std::to_string(player) + ": " + line + "\n";
        }
        EXPECT_EQ(host().watcher().takeTexts(), std::vector{report});
        std::set<std::string> recipients;
        const auto mails = server.take(served);
        for (const StoredMail& mail : mails) {
            SCOPED_TRACE(mail.recipient);
            expectMail(mail, round);
            recipients.insert(mail.recipient);
        }
        EXPECT_EQ(mails.size(), served);
        EXPECT_EQ(recipients.size(), served);
    }

    void expectMail(const StoredMail& mail, int round) {
        const int player = std::stoi(mail.recipient.substr(1));
        const std::string number = std::to_string(player);
        EXPECT_EQ(mail.recipient, "p" + number + "@example.org");
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
            const std::string& block = mail.blocks[static_cast<size_t>(i)];
            EXPECT_TRUE(block.starts_with("begin 664 " + nameOf(file) + "\n"));
            EXPECT_TRUE(decoded(block) == bytesOf(round, file)) << nameOf(file);
        }
    }

    // By the system's own decoder. A file whose length is a multiple of 45 ends in two empty lines;
    // the decoder takes the first one as the end of the data, writes the file, and complains that
    // "end" does not follow at once.
    const std::string& decoded(const std::string& block) {
        const auto [known, isNew] = decodedBlocks.try_emplace(block);
        if (isNew) {
            folder.write("block", block);
            QProcess uudecode;
            uudecode.setWorkingDirectory(QString::fromStdString(folder.path()));
            uudecode.start("uudecode", {"-o", "decoded", "block"});
            EXPECT_TRUE(uudecode.waitForFinished(longestRun));
            known->second = folder.read("decoded");
            EXPECT_EQ(uudecode.exitCode(), known->second.size() % 45 == 0 ? 2 : 0);
        }
        return known->second;
    }

    const std::string refusal = qEnvironmentVariable("TURNPOST_REFUSAL").toStdString();
    const int served = refusal.empty() ? players : 0;
    // A server's words keep their line end.
    const std::string line = refusal.empty() ? "Email sent OK" : "SMTP Error: " + refusal + "\n";
    MailServer server;
    std::map<std::string, std::string> decodedBlocks;
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
