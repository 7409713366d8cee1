#include "app/AppFixture.h"

namespace turnpost {

using SendStep = AppFixture;

TEST_F(SendStep, DoesNothingDuringAMailDelivery) {
    game.rows[0].PlayerEmail = "one@example.org";
    game.rows[3].PlayerEmail = "four@example.org";
    mail->inSend = [this] {
        application.takeSendStep();
        return std::nullopt;
    };
    application.sendByMailSystem();
    std::erase_if(mailCalls, [](const std::string& call) { return !call.starts_with("Addr"); });
    EXPECT_EQ(mailCalls, Texts({"Address one@example.org", "Address four@example.org"}));
    EXPECT_EQ(values.report[0] + values.report[3], "Email Generated OKEmail Generated OK");
    EXPECT_EQ(windows.shown, Texts{"report"});
    EXPECT_EQ(windows.boxes, Texts());
    EXPECT_EQ(socket.servers, Texts());
}

} // namespace turnpost
