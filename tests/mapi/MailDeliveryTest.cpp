#include "mapi/DeliveryFixture.h"

#include "fakes/FakeMail.h"

namespace turnpost {

class MailDeliveries : public DeliveryFixture {
  protected:
    Texts calls;
    FakeMail mail{calls};
};

TEST_F(MailDeliveries, EveryRowIsSentWholeOrNotAtAll) {
    const std::string extra = temp.path("EXTRA");
    temp.write("GAME.M2", "x");
    temp.write("EXTRA", "x");
    player = {.IncludePlayer = 1,
              .PlayerName = " Red ",
              .PlayerEmail = " red@x.org ",
              .AltEmail = " alt@x.org ",
              .GameFile = "GAME.M2"};
    game.rows[3] = {.IncludePlayer = 1, .PlayerEmail = "no@x.org", .GameFile = "GAME.M2"};
    game.rows[15] = {.IncludePlayer = 1, .PlayerEmail = "last@x.org", .GameFile = "GAME.M2"};
    attachments = {1, 0, {"", extra, ""}};
    mail.inSend = [&] {
        const bool refused = calls.back() == "Address no@x.org";
        return refused ? std::optional(Refusal{"no such user"}) : std::nullopt;
    };
    report.fill("earlier");
    display.rowsAfterBreak = report;
    deliver(mail, mail);
    EXPECT_EQ(display.rowsAfterBreak, SendReport()) << "tells of an earlier send";
    EXPECT_EQ(report[0] + report[1] + report[3] + report[15],
              "Player SkippedEmail Generated OKMAPI Error: no such userEmail Generated OK");
    EXPECT_EQ(display.reports, 1);
    std::string told;
    for (const std::string& call : calls) {
        told += call + ";";
    }
    const std::string files = temp.path("GAME.M2") + " 0;" + extra + " 1;";
    EXPECT_EQ(told, "NewSession 0;LogonUI 0;DownLoadMail 0;UserName ;Password ;SignOn;"
                    "Send 42;Turn 2405|Hello\r\n.2\r\n  ;" +
                        files + " Red  1;Address  red@x.org ; Red  2;Address  alt@x.org ;" +
                        "Send 42;Turn 2405|Hello\r\n.4\r\n  ;" + files + " 1;Address no@x.org;" +
                        "Send 42;Turn 2405|Hello\r\n.16\r\n  ;" + files +
                        " 1;Address last@x.org;SignOff;");
    attachments = {0, 0, {}};
    deliver(mail, mail);
    EXPECT_EQ(*(calls.rbegin() + 3), "Turn 2405|Hello\r\n.16") << "without files";
}

TEST_F(MailDeliveries, WithoutASessionTheOldReportIsShown) {
    report.fill("earlier");
    mail.openSession = 0;
    EXPECT_EQ(deliver(mail, mail), "earlier");
    EXPECT_EQ(calls.back(), "SignOn");
    calls.clear();
    game.GamePath.clear();
    deliver(mail, mail);
    EXPECT_EQ(display.boxes, Texts({"No mail system found", "Invalid game path"}));
    EXPECT_EQ(calls, Texts());
    EXPECT_EQ(display.reports, 1);
}

} // namespace turnpost
