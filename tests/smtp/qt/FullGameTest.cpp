#include "automation/SampleGame.h"
#include "automation/UuDecoder.h"
#include "automation/Waiting.h"
#include "support/MailServer.h"
#include "support/Resources.h"
#include "support/WindowTest.h"
#include "text/Text.h"

#include <gtest/gtest.h>

namespace turnpost::automation {

namespace {

constexpr int players = 16;
constexpr int filesOfPlayer = 5;
constexpr int filesOfRound = players + filesOfPlayer - 1;
// Seven rounds with every file length from 0 to 139 bytes, and one with long files.
constexpr int rounds = 8;

// In the order of the lengths: the turn files, the universe file, the extra files 1 to 3.
std::string nameOf(int file) {
    return file < players    ? "GAME.M" + std::to_string(file + 1)
           : file == players ? "GAME.XY"
                             : "extra " + std::to_string(file - players) + ".dat";
}

// No two files of all rounds have the same bytes, so that a mix-up is noticed.
std::string bytesOf(int round, int file) {
    const int number = round * filesOfRound + file;
    return sampleBytes(static_cast<size_t>(number < 140 ? number : 700 * number), number);
}

// Lines that start with periods are changed for sending and must arrive unchanged.
std::string textFor(const std::string& player, const std::string& first, const std::string& game,
                    const std::string& year) {
    return "Hello " + first + ",\n\n.\n..\n.hidden orders of " + game + " in " + year +
           "\n... and more for player " + player + "\nFrom here on: no changes.";
}

} // namespace

// A host who sends rounds of a game with 16 players and five files for each of them, and opens
// every dialog between the rounds. TURNPOST_SENDS is the number of rounds. TURNPOST_REFUSAL is the
// answer of a server that takes no mail from this program.
class FullGame : public WindowTest {
  protected:
    FullGame() {
        std::map<int, size_t> lengths;
        for (int player = 1; player <= players; ++player) {
            lengths[player] = 0;
        }
        host().startGame(server.address(), lengths);
        auto& app = host().desktop().app();
        app.game().GameName = "Full Game";
        for (int row = 0; row < players; ++row) {
            app.game().row(row).PlayerName = "Captain" + std::to_string(row + 1) + " Of Many";
        }
        // Only named in the message: no mail may arrive there.
        app.game().rows[3].AltEmail = "p4-alternate@example.org";
        app.storeMessage({"Turn <<GY>> of <<GN>> for player <<PN>>",
                          withCrLf(textFor("<<PN>>", "<<FN>>", "<<GN>>", "<<GY>>"))});
        AttachmentChoices files{1, 1, {}};
        for (size_t i = 0; i < files.ExtraAttachments.size(); ++i) {
            files.ExtraAttachments[i] = folder.path(nameOf(players + 1 + static_cast<int>(i)));
        }
        app.storeAttachments(files);
    }

    void openEveryDialog() {
        EXPECT_EQ(boxBy("mnuSave"), "Details saved to " + folder.path("GAME.NTP"));
        for (const auto& [form, opener] : {std::pair("frmSettings", "mnuEmailSets"),
                                           {"frmMessage", "mnuMsg"},
                                           {"frmAtch", "butAtch"},
                                           {"frmStore", "mnuStoredCon"},
                                           {"frmOpen", "GameChoose"},
                                           {"frmAbout", "mnuAbout"}}) {
            in(form, opener, [](QWidget& dialog) { dialog.close(); });
        }
    }

    void send(int round) {
        for (int file = 0; file < filesOfRound; ++file) {
            folder.write(nameOf(file), bytesOf(round, file));
        }
        host().watcher().expectReport();
        host().click("butSend");
        waitUntil([this] { return host().watcher().done(); }, 60000);
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
                      "Subject: Turn 2405 of Full Game for player " + number + "\n");
        EXPECT_EQ(mail.text, textFor(number, name, "Full Game", "2405") + "\n\n");
        const auto files = decodeUuBlocks(withCrLf(mail.blocks));
        ASSERT_TRUE(files && files->size() == filesOfPlayer);
        for (int i = 0; i < filesOfPlayer; ++i) {
            const int file = i == 0 ? player - 1 : players + i - 1;
            const DecodedFile& sent = files->at(static_cast<size_t>(i));
            EXPECT_EQ(sent.name, nameOf(file));
            EXPECT_TRUE(sent.bytes == bytesOf(round, file)) << sent.name;
        }
    }

    const std::string refusal = qEnvironmentVariable("TURNPOST_REFUSAL").toStdString();
    const int served = refusal.empty() ? players : 0;
    // A server's words keep their line end.
    const std::string line = refusal.empty() ? "Email sent OK" : "SMTP Error: " + refusal + "\n";
    MailServer server;
};

TEST_F(FullGame, EveryPlayerGetsTheirOwnFilesUnchanged) {
    const int sends = qEnvironmentVariable("TURNPOST_SENDS", "8").toInt();
    std::vector<size_t> heap;
    std::vector<size_t> descriptors;
    for (int done = 0; done < sends; ++done) {
        SCOPED_TRACE("send " + std::to_string(done + 1));
        openEveryDialog();
        send(done % rounds);
        ASSERT_FALSE(HasFailure());
        // The first game fills the caches; after that, the same round must not use more.
        if (done > rounds && done % rounds == 0) {
            heap.push_back(heapBytes());
            descriptors.push_back(openDescriptors());
        }
    }
    // Qt caches glyphs and icons, and drops them at times of its own.
    expectFlat("heap", heap, 16 << 10);
    // Each thread of Qt holds one, and Qt starts and ends threads at times of its own.
    expectFlat("descriptors", descriptors, 2);
    std::cout << "Full game: " << sends << " sends, " << sends * served << " mails with "
              << sends * served * filesOfPlayer << " files as due; report: " << line << '\n';
}

} // namespace turnpost::automation
