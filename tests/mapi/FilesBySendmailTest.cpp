#include "mapi/DeliveryFixture.h"
#include "mapi/SendmailMessages.h"

namespace turnpost {

// The second player's turn file goes after it was looked at and before it is read.
class LosingMessages final : public SendmailMessages {
  public:
    using SendmailMessages::SendmailMessages;

    std::string lost;

    std::optional<Refusal> Send() override {
        std::filesystem::remove(lost);
        return SendmailMessages::Send();
    }
};

TEST_F(DeliveryFixture, AVanishedFileIsItsRowsError) {
    std::filesystem::create_symlink("/bin/true", temp.path("sendmail"));
    for (const char* name : {"GAME.M2", "GAME.M3"}) {
        temp.write(name, "x");
    }
    player = {1, "", "p2@x.org", "", "GAME.M2", true};
    game.rows[2] = {1, "", "p3@x.org", "", "GAME.M3", true};
    attachments.SendMFiles = 1;
    SendmailSession session({temp.path()});
    const Settings settings;
    LosingMessages mail(settings, session);
    mail.lost = temp.path("GAME.M2");
    EXPECT_EQ(deliver(session, mail),
              "MAPI Error: Cannot read " + mail.lost + "\r\nNo such file or directory");
    EXPECT_EQ(report[2], "Email Generated OK");
}

} // namespace turnpost
