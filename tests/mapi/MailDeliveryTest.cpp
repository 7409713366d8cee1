#include "mapi/MailDelivery.h"

#include "fakes/FakeDisplay.h"
#include "fakes/FakeMail.h"
#include "fakes/TempFolder.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace turnpost {

class MailDeliveries : public testing::Test {
  protected:
    using Texts = std::vector<std::string>;

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
    attachments = {1, 1, {temp.path("E0"), temp.path("E1"), temp.path("E2")}};
    // clang-format off
    Texts expected = {"NewSession 0", "LogonUI 0", "DownLoadMail 0", "UserName ", "Password ", "SignOn",
        "SessionID 42", "Compose", "MsgIndex -1", "MsgSubject Turn 9999",
        "RecipIndex 0", "Name  Red Leader ", "Address  red@example.org ", "RecipType 1",
        "RecipIndex 1", "Name  Red Leader ", "Address  alt@example.org ", "RecipType 2",
        "MsgNoteText Hello\r\n.1\r\n     "};
    // clang-format on
    for (const char* name : {"GAME.M1", "GAME.XY", "E0", "E1", "E2"}) {
        const std::string number = std::to_string(temp.names().size());
        temp.write(name, "x");
        expected.insert(expected.end(),
                        {"AttachmentIndex " + number, "AttachmentPosition " + number,
                         "AttachmentType 0", "Path " + temp.path(name)});
    }
    expected.insert(expected.end(), {"Send", "SignOff"});
    delivery.deliver();
    EXPECT_EQ(calls, expected);
}

TEST_F(MailDeliveries, TheNoteTextGrowsByAttachmentsOnlyAndAnEmptyCcAddressIsNoRecipient) {
    delivery.deliver();
    EXPECT_TRUE(told("MsgNoteText Hello\r\n.1") && !told("RecipIndex 1"));
    text.MessageBody.clear();
    delivery.deliver();
    EXPECT_TRUE(told("MsgNoteText ") && !told("AttachmentIndex 0"));
    temp.write("GAME.M1", "x");
    attachments.SendMFiles = 1;
    delivery.deliver();
    EXPECT_TRUE(told("MsgNoteText \r\n ") && told("AttachmentPosition 0"));
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
    EXPECT_EQ(state.SendCursor, 16);
    EXPECT_EQ(calls.back(), "SignOff");
    EXPECT_TRUE(told("SessionID 42"));
    EXPECT_EQ(display.reports, 1);
    EXPECT_TRUE(display.progress.empty() && display.boxes.empty());
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
