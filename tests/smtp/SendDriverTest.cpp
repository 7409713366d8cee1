#include "smtp/SendFixture.h"

namespace turnpost {

// Two players who get no files, and a third without an address.
class SendDrivers : public SendFixture {
  protected:
    SendDrivers() {
        addPlayer(0, "P1", "p@1");
        addPlayer(1, "P2", "p@2");
        addPlayer(3, "refused", "");
    }

    // The message to a player, from HELO to QUIT.
    static std::string conversation(const std::string& name, const std::string& address,
                                    const std::string& greeted) {
        return "HELO host\r\nMAIL FROM:host@example.org\r\nRCPT TO:" + address +
               "\r\nDATA\r\nFrom:Host <host@example.org>\r\nTo:" + name + " <" + address +
               ">\r\nSubject:Turn\r\n\r\nHello " + greeted + "\r\n\r\n\r\n.\r\nQUIT\r\n";
    }
};

TEST_F(SendDrivers, NewSendReplacesTheOldOnlyIfItCanStart) {
    temp.makeFolder("empty");
    driver.butSend_Click();
    accept();
    accept(2);
    const std::string path = game.GamePath;
    const std::string own = settings.HostEmail;
    for (const auto& [server, folder, address, message] : std::vector<std::array<std::string, 4>>{
             {"   ", path, own, "No SMTP server address entered"},
             {"other:x", path, own, "Invalid SMTP server address"},
             {"other", "./", own, "Invalid game path"},
             {"other", path + "empty/", own, "Invalid game path"},
             {" other:26 ", path, "\u202E" + own,
              "Your own address cannot be sent: character 1 is invisible (U+202E)"}}) {
        settings.SmtpServer = server;
        game.GamePath = folder;
        settings.HostEmail = address;
        driver.butSend_Click();
        EXPECT_EQ(std::exchange(display.boxes, {}), Texts{message}) << server << folder;
    }
    game.GamePath = path;
    settings.HostEmail = own;
    accept(1);
    driver.butSend_Click();
    EXPECT_EQ(report[0], "") << "the outcome of the first send";
    // What the host types meanwhile goes into the next line.
    accept(2);
    game.rows[0].PlayerEmail = "p@10";
    accept(2);
    game.rows[0].PlayerName = "P10";
    accept(2);
    addPlayer(2, "P3", "p@3");
    accept(12);
    EXPECT_EQ(socket.sent,
              Texts({conversation("P1", "p@1", "P1"),
                     "HELO host\r\nMAIL FROM:host@example.org\r\nRCPT TO:p@2\r\n",
                     conversation("P10", "p@10", "P1"), conversation("P2", "p@2", "P2"),
                     conversation("P3", "p@3", "P3")}));
    EXPECT_EQ(socket.servers, Texts({"mail:25", "mail:25", "other:26", "other:26", "other:26"}));
    const std::vector<double> positions = {1.0 / 3, 2.0 / 3, 1.0 / 3, 2.0 / 3, 1, 1, 1};
    EXPECT_EQ(display.progress, positions) << "a row ticked meanwhile keeps the bar on its track";
    EXPECT_EQ(display.reports, 1);
}

TEST_F(SendDrivers, BrokenSendTellsWhatEachRowGot) {
    driver.butSend_Click();
    accept(12);
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
    driver.butSend_Click();
    EXPECT_EQ(display.rowsAfterBreak, SendReport());
}

} // namespace turnpost
