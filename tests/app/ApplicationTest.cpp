#include "app/AppFixture.h"

namespace turnpost {

using Sends = AppFixture;

TEST_F(Sends, MapiReplacesOnlyAStalledSmtpSend) {
    const Texts refused = {"A send is already in progress"};
    socket.silent = std::chrono::seconds(59);
    application.butSend_Click();
    application.sendByMailSystem();
    EXPECT_EQ(boxes(), refused);
    EXPECT_EQ(values.report[0], "");
    socket.arrive("220 ready\r\n");
    EXPECT_EQ(socket.sent.back(), "HELO host\r\n") << "the send must go on";
    socket.silent = std::chrono::seconds(60);
    application.sendByMailSystem();
    EXPECT_EQ(windows.shown.back(), "report");
    EXPECT_FALSE(socket.isOpen());
    socket.arrive("250 late\r\n");
    EXPECT_EQ(values.report[0], "Email Generated OK");
    socket.silent = std::chrono::seconds(0);
    application.butSend_Click();
    socket.Close();
    application.sendByMailSystem();
    EXPECT_EQ(boxes(), Texts());
}

// A mail client may run its own event loop in any of its calls, so that each button can be pressed.
TEST_F(Sends, NothingElseSendsInsideAMailClient) {
    mail->inSend = [this] {
        game.rows[3].PlayerEmail = "late@example.org";
        application.takeSendStep();
        application.butSend_Click();
        application.sendByMailSystem();
        return std::nullopt;
    };
    for (const std::string address : {"four@example.org", "late@example.org"}) {
        application.sendByMailSystem();
        std::erase_if(mailCalls, [](const std::string& call) { return !call.starts_with("Addr"); });
        EXPECT_EQ(std::exchange(mailCalls, {}),
                  Texts({"Address one@example.org", "Address " + address}));
        EXPECT_EQ(boxes(), Texts(4, "A send is already in progress"));
    }
    EXPECT_EQ(values.report[0] + values.report[3], "Email Generated OKEmail Generated OK");
    EXPECT_EQ(socket.servers, Texts());
}

} // namespace turnpost
