#include "smtp/SendDriver.h"
#include "fakes/FakeDisplay.h"
#include "fakes/FakeSocket.h"
#include "fakes/TempFolder.h"

#include <gtest/gtest.h>

namespace turnpost {

// A driver, a server played by the test, and a game with two players who get no files and a third
// without an address.
class SendDrivers : public testing::Test {
  protected:
    using Texts = std::vector<std::string>;

    SendDrivers() {
        temp.write("GAME.HST", "host");
        temp.makeFolder("empty");
        game.rows[0] = {1, "P1", "p@1", "", "", true};
        game.rows[1] = {1, "P2", "p@2", "", "", true};
        game.rows[3] = {1, "refused", "", "", "", true};
    }

    // The server accepts all six steps of the current row, or some of them.
    void accept(int end = 6, int first = 0) {
        for (int step = first; step < end; ++step) {
            socket.arrive("250 ok\r\n");
        }
    }

    // The message to a player, from HELO to QUIT.
    static std::string conversation(const std::string& name, const std::string& address,
                                    const std::string& greeted) {
        return "HELO host\r\nMAIL FROM:host@example.org\r\nRCPT TO:" + address +
               "\r\nDATA\r\nFrom:Host <host@example.org>\r\nTo:" + name + " <" + address +
               ">\r\nSubject:Turn\r\n\r\nHello " + greeted + "\r\n\r\n\r\n.\r\nQUIT\r\n";
    }

    TempFolder temp;
    GameDetails game{"", withSeparator(temp.path()), "", 2405, {}};
    MessageTemplate text{"Turn", "Hello <<FN>>"};
    AttachmentChoices attachments{0, 0, {}};
    Settings settings{"Host", "host@example.org", " mail:065535 ", {}, ""};
    SendReport report;
    FakeSocket socket;
    FakeDisplay display;
    SendDriver driver{{game, text, attachments}, settings, report, socket, display, display};
};

TEST_F(SendDrivers, NewSendReplacesTheOldOnlyIfItCanStart) {
    driver.butSend_Click();
    accept();
    accept(2);
    const std::string path = game.GamePath;
    std::vector<std::array<std::string, 3>> refused = {
        {"   ", path, "No SMTP server address entered"},
        {"other", path + "missing/", "Invalid game path"},
        {"other", path + "empty/", "Invalid game path"}};
    for (const char* server : {"m:", "m:0", "m:65536", "m:99999999999999999999", "m:-25", "m:+25",
                               "m:smtp", "m:25x", "m: 25", "m:0x19", "m:25:26", ":25"}) {
        refused.push_back({server, path, "Invalid SMTP server address"});
    }
    for (const auto& [server, folder, message] : refused) {
        settings.SmtpServer = server;
        game.GamePath = folder;
        driver.butSend_Click();
        EXPECT_EQ(std::exchange(display.boxes, {}), Texts{message}) << server << folder;
    }
    settings.SmtpServer = "other";
    game.GamePath = path;
    settings.HostEmail = "\u202Ehost@example.org";
    driver.butSend_Click();
    EXPECT_EQ(std::exchange(display.boxes, {}),
              Texts{"Your own address cannot be sent: character 1 is invisible (U+202E)"});
    settings.HostEmail = "host@example.org";
    accept(3, 2);
    driver.butSend_Click();
    EXPECT_EQ(report[0], "") << "the outcome of the first send";
    accept(2);
    game.rows[0].PlayerEmail = "p@10";
    accept(4, 2);
    game.rows[0].PlayerName = "P10";
    accept(6, 4);
    game.rows[2] = {1, "P3", "p@3", "", "", true};
    accept();
    accept();
    EXPECT_EQ(socket.sent,
              Texts({conversation("P1", "p@1", "P1"),
                     "HELO host\r\nMAIL FROM:host@example.org\r\nRCPT TO:p@2\r\n",
                     conversation("P10", "p@10", "P1"), conversation("P2", "p@2", "P2"),
                     conversation("P3", "p@3", "P3")}));
    EXPECT_EQ(socket.servers,
              Texts({"mail:65535", "mail:65535", "other:25", "other:25", "other:25"}));
    const std::vector<double> positions = {1.0 / 3, 2.0 / 3, 1.0 / 3, 2.0 / 3, 1, 1, 1};
    EXPECT_EQ(display.progress, positions) << "a row ticked meanwhile keeps the bar on its track";
}

TEST_F(SendDrivers, BrokenSendTellsWhatEachRowGot) {
    driver.butSend_Click();
    accept();
    accept();
    driver.butSend_Click();
    socket.arrive("550 mailbox full\r\n");
    socket.fail(10054, "reset");
    EXPECT_EQ(display.boxes, Texts{"Winsock Error number 10054\r\nreset"});
    SendReport expected;
    expected.fill("Not reached");
    expected[0] = "SMTP Error: 550 mailbox full\r\n";
    expected[1] = "Broke off here: may or may not have arrived";
    EXPECT_EQ(display.rowsAfterBreak, expected) << "no line of the send before";
    EXPECT_EQ(report[15], "Player Skipped") << "the report stays as it is";
    settings.SmtpServer = "";
    driver.butSend_Click();
    EXPECT_EQ(display.rowsAfterBreak, expected) << "no send";
    settings.SmtpServer = "mail";
    driver.butSend_Click();
    EXPECT_EQ(display.rowsAfterBreak, SendReport());
}

} // namespace turnpost
