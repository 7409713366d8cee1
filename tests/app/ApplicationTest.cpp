#include "app/AppFixture.h"

namespace turnpost {

class Commands : public AppFixture {
  protected:
    Commands() { game.rows[3].PlayerEmail = "four@example.org"; }
};

TEST_F(Commands, MapiReplacesOnlyAStalledSmtpSend) {
    socket.silent = std::chrono::seconds(59);
    application.butSend_Click();
    application.sendByMailSystem();
    EXPECT_EQ(windows.boxes, Texts{"A send is already in progress"});
    EXPECT_EQ(values.report[3], "");
    socket.arrive("220 ready\r\n");
    EXPECT_EQ(socket.sent.back(), "HELO host\r\n") << "the send must go on";
    socket.silent = std::chrono::seconds(60);
    application.sendByMailSystem();
    EXPECT_EQ(windows.shown.back(), "report");
    EXPECT_FALSE(socket.isOpen());
    socket.arrive("250 late\r\n");
    EXPECT_EQ(values.report[3], "Email Generated OK");
    socket.silent = std::chrono::seconds(0);
    application.butSend_Click();
    socket.Close();
    application.sendByMailSystem();
    EXPECT_EQ(windows.boxes.size(), 1U);
}

TEST_F(Commands, ButtonsStartNoSecondSendInsideAMailClient) {
    mail->inSend = [this] {
        if (game.rows[3].PlayerEmail != "late@example.org") {
            application.butSend_Click();
            application.sendByMailSystem();
            game.rows[3].PlayerEmail = "late@example.org";
        }
        return std::nullopt;
    };
    game.rows[0].PlayerEmail = "one@example.org";
    for (const std::string address : {"four@example.org", "late@example.org"}) {
        application.sendByMailSystem();
        std::erase_if(mailCalls, [](const std::string& call) { return !call.starts_with("Addr"); });
        EXPECT_EQ(std::exchange(mailCalls, {}),
                  Texts({"Address one@example.org", "Address " + address}));
    }
    EXPECT_EQ(windows.boxes, Texts(2, "A send is already in progress"));
    EXPECT_TRUE(socket.servers.empty());
}

} // namespace turnpost
