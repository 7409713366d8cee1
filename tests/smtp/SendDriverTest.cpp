#include "smtp/SendDriver.h"
#include "compose/MUUEncode.h"
#include "fakes/FakeDisplay.h"
#include "fakes/FakeSocket.h"
#include "fakes/TempFolder.h"

#include <gtest/gtest.h>

namespace turnpost {

// A driver with its session, a server played by the test, and a game whose folder holds a host file
// but no turn files; turn files are not sent unless a test says so.
class SendDrivers : public testing::Test {
  protected:
    using Texts = std::vector<std::string>;
    using Fractions = std::vector<double>;

    SendDrivers() {
        temp.write("GAME.HST", "host");
        game.GamePath = withSeparator(temp.path());
        game.GameYear = 2405;
    }

    void include(std::initializer_list<size_t> rows) {
        for (const size_t row : rows) {
            const std::string number = std::to_string(row + 1);
            game.rows[row] = {1, "P" + number, "p@" + number, "", "GAME.M" + number, true};
        }
    }

    // The server accepts the row under way: all six steps, or some of them. An arrival of nothing
    // is no step.
    void accept(size_t end = 6, size_t first = 0) {
        const Texts replies = {"220 hello\r\n", "250 a\r\n",  "250 b\r\n",
                               "250 c\r\n",     "354 go\r\n", "250 queued\r\n"};
        for (size_t step = first; step < end; ++step) {
            socket.arrive("");
            socket.arrive(replies.at(step));
        }
    }

    // The message to a player, with or without attached blocks, from HELO to QUIT.
    static std::string conversation(const std::string& number, const std::string& blocks = "") {
        return "HELO host\r\nMAIL FROM:host@example.org\r\nRCPT TO:p@" + number +
               "\r\nDATA\r\nFrom:Host <host@example.org>\r\nTo:P" + number + " <p@" + number +
               ">\r\nSubject:Turn 2405\r\n\r\nHello P" + number + "\r\n\r\n" + blocks +
               "\r\n.\r\nQUIT\r\n";
    }

    static std::string block(const std::string& name) {
        return uuencodedBlock(name, name) + "\r\n";
    }

    TempFolder temp;
    GameDetails game;
    MessageTemplate text{"Turn <<GY>>", "Hello <<FN>>"};
    AttachmentChoices attachments{0, 0, {}};
    Settings settings{"Host", "host@example.org", " mail:2525 ", {}, ""};
    SendReport report;
    FakeSocket socket;
    FakeDisplay display;
    SendDriver driver{{game, text, attachments}, settings, report, socket, display, display};
};

TEST_F(SendDrivers, EachIncludedPlayerGetsOneExactConversationAndNobodyElsesFiles) {
    include({0, 1, 15});
    attachments = {1, 1, {temp.path("EXTRA"), "", ""}};
    for (const char* name : {"GAME.M1", "GAME.M16", "GAME.XY", "EXTRA"}) {
        temp.write(name, name);
    }
    driver.butSend_Click();
    accept();
    EXPECT_EQ(display.reports, 0);
    accept();
    const std::string common = block("GAME.XY") + block("EXTRA");
    EXPECT_EQ(socket.sent, Texts({conversation("1", block("GAME.M1") + common),
                                  conversation("16", block("GAME.M16") + common)}));
    EXPECT_FALSE(socket.isOpen());
    socket.arrive("221 bye\r\n");
    SendReport expected;
    expected.fill("Player Skipped");
    expected[0] = expected[15] = "Email sent OK";
    expected[1] = "M2file not found ";
    EXPECT_EQ(report, expected) << "a late answer to QUIT must change nothing";
    EXPECT_EQ(display.reports, 1);
}

TEST_F(SendDrivers, TheBarCountsPlayersReachedAndStaysOnItsTrackWhenTicksChangeMeanwhile) {
    driver.butSend_Click();
    EXPECT_EQ(display.progress, Fractions{1.0}) << "without any player";
    include({2, 5, 9});
    game.rows[5].PlayerEmail.clear();
    driver.butSend_Click();
    accept();
    include({10});
    accept();
    accept();
    EXPECT_EQ(display.progress, Fractions({1.0, 1.0 / 3, 2.0 / 3, 1.0, 1.0, 1.0}));
}

TEST_F(SendDrivers, AnUnusableServerOrFolderIsSaidAndChangesNothingNotEvenASendUnderWay) {
    include({0});
    driver.butSend_Click();
    accept(1);
    temp.makeFolder("empty");
    const std::string path = game.GamePath;
    for (const auto& [server, folder, message] : std::vector<std::array<std::string, 3>>{
             {"   ", "", "No SMTP server address entered"},
             {"mail:0", "", "Invalid SMTP server address"},
             {"elsewhere", "", "Invalid game path"},
             {"elsewhere", path + "missing/", "Invalid game path"},
             {"elsewhere", path + "empty/", "Invalid game path"}}) {
        settings.SmtpServer = server;
        game.GamePath = folder;
        driver.butSend_Click();
        EXPECT_EQ(display.boxes.back(), message) << server << folder;
    }
    EXPECT_EQ(display.boxes.size(), 5U);
    game.GamePath = path;
    accept(6, 1);
    EXPECT_EQ(socket.sent, Texts{conversation("1")});
    EXPECT_EQ(socket.servers, Texts{"mail:2525"});
}

TEST_F(SendDrivers, ASecondSendStartsOverWithItsOwnServerAndWhatTheHostHasCorrected) {
    include({0, 1});
    driver.butSend_Click();
    accept();
    settings.SmtpServer = "other";
    accept(2);
    driver.butSend_Click();
    EXPECT_EQ(report[0], "") << "the outcome of the first send";
    accept(2);
    game.rows[0].PlayerEmail = "p@10";
    accept(4, 2);
    game.rows[0].PlayerName = "P10";
    accept(6, 4);
    accept();
    std::string corrected = conversation("10");
    corrected.replace(corrected.find("Hello P10"), 9, "Hello P1");
    EXPECT_EQ(socket.sent, Texts({conversation("1"), "HELO host\r\nMAIL FROM:host@example.org\r\n",
                                  corrected, conversation("2")}));
    EXPECT_EQ(socket.servers, Texts({"mail:2525", "mail:2525", "other:25", "other:25"}));
    EXPECT_EQ(display.progress, Fractions({0.5, 1.0, 0.5, 1.0, 1.0}));
}

} // namespace turnpost
