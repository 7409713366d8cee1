#include "mapi/MailDelivery.h"

#include "fakes/FakeDisplay.h"
#include "fakes/FakeMail.h"
#include "fakes/TempFolder.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace turnpost {

class MailDeliveries : public testing::Test {
  protected:
    using Texts = FakeMail::Record;

    MailDeliveries() {
        game.GamePath = withSeparator(temp.path());
        game.rows[0] = {1, " Red Leader ", " red@example.org ", "", "GAME.M1", true};
        report.fill("earlier");
    }

    bool told(const std::string& call) const { return std::ranges::count(calls, call) == 1; }

    TempFolder temp;
    GameDetails game;
    MessageTemplate text{"Turn <<GY>>", "Hello\r\n.<<PN>>"};
    AttachmentChoices attachments{0, 0, {}};
    SendReport report;
    SendState state;
    Texts calls;
    FakeMail mail{calls};
    FakeDisplay display;
    MailDelivery delivery{{game, text, attachments}, report, state, mail, mail, display, display};
};

TEST_F(MailDeliveries, EveryMemberGetsItsUntrimmedValueInItsOrder) {
    game.rows[0].AltEmail = " alt@example.org ";
    temp.write("GAME.M1", "x");
    temp.write("E0", "x");
    attachments = {1, 0, {temp.path("E0")}};
    delivery.deliver();
    // clang-format off
    EXPECT_EQ(calls, Texts({"NewSession 0", "LogonUI 0", "DownLoadMail 0", "UserName ", "Password ",
        "SignOn", "SessionID 42", "Compose", "MsgIndex -1", "MsgSubject Turn 9999",
        "RecipIndex 0", "Name  Red Leader ", "Address  red@example.org ", "RecipType 1",
        "RecipIndex 1", "Name  Red Leader ", "Address  alt@example.org ", "RecipType 2",
        "MsgNoteText Hello\r\n.1\r\n  ", "AttachmentIndex 0", "AttachmentPosition 0",
        "AttachmentType 0", "Path " + temp.path("GAME.M1"), "AttachmentIndex 1",
        "AttachmentPosition 1", "AttachmentType 0", "Path " + temp.path("E0"), "Send", "SignOff"}));
    // clang-format on
}

TEST_F(MailDeliveries, ARefusedMessageIsReportedInTheSystemsWordsAndTheNextRowFollows) {
    game.rows[2] = game.rows[3] = game.rows[15] = game.rows[0];
    game.rows[3].PlayerEmail.clear();
    mail.inSend = [this]() -> std::optional<std::string> {
        EXPECT_EQ(state.PlayerBody, "Hello\r\n." + std::to_string(state.SendCursor + 1));
        return state.SendCursor == 2 ? std::optional("no such user") : std::nullopt;
    };
    delivery.deliver();
    SendReport expected;
    expected.fill("Player Skipped");
    expected[0] = expected[15] = "Email Generated OK";
    expected[2] = "MAPI Error: no such user";
    expected[3] = "No Email Address for Player";
    EXPECT_EQ(report, expected);
    EXPECT_EQ(calls.back(), "SignOff");
    EXPECT_TRUE(told("SessionID 42") && told("MsgNoteText Hello\r\n.1") && display.boxes.empty());
    EXPECT_EQ(std::ranges::count(calls, "RecipIndex 1"), 0);
    EXPECT_EQ(display.reports, 1);
}

TEST_F(MailDeliveries, WithoutASessionTheReportShowsTheOldLinesAndWithoutAGameNothingHappens) {
    mail.sessionId = 0;
    delivery.deliver();
    EXPECT_EQ(calls.back(), "SignOn");
    game.GamePath.clear();
    delivery.deliver();
    EXPECT_EQ(display.boxes, Texts({"No mail system found", "Invalid game path"}));
    EXPECT_TRUE(told("SignOn"));
    EXPECT_EQ(display.reports, 1);
    EXPECT_EQ(report[0], "earlier");
}

} // namespace turnpost
