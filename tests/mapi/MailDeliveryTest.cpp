#include "mapi/DeliveryFixture.h"

#include "fakes/FakeMail.h"

namespace turnpost {

class MailDeliveries : public DeliveryFixture {
  protected:
    MailDeliveries() {
        for (const char* name : {"GAME.M2", "GAME.XY", "E0", "E2"}) {
            temp.write(name, "x");
        }
        mail.inSend = [this] {
            const bool refused = calls.at(calls.size() - 4) == "Address no@x.org";
            return refused ? std::optional<std::string>("no such user") : std::nullopt;
        };
    }

    std::string told() const {
        std::string all;
        for (const std::string& call : calls) {
            all += call + ";";
        }
        return all;
    }

    Texts calls;
    FakeMail mail{calls};
};

TEST_F(MailDeliveries, EveryRowIsToldMemberByMemberOrNotAtAllAndGetsItsLine) {
    struct Row {
        PlayerSlot player;
        AttachmentChoices files;
        std::string told;
        std::string line;
    };
    const std::string signOn = "NewSession 0;LogonUI 0;DownLoadMail 0;UserName ;Password ;SignOn;"
                               "SessionID 42;";
    const std::string start = "Compose;MsgIndex -1;MsgSubject Turn 2405;RecipIndex 0;";
    const std::string red = start + "Name  Red ;Address  red@x.org ;RecipType 1;";
    const std::string copy = "RecipIndex 1;Name  Red ;Address  alt@x.org ;RecipType 2;";
    const auto file = [this](const std::string& j, const std::string& name) {
        return "AttachmentIndex " + j + ";AttachmentPosition " + j + ";AttachmentType 0;Path " +
               temp.path(name) + ";";
    };
    const AttachmentChoices none{0, 0, {}};
    const PlayerSlot one{1, " Red ", " red@x.org ", "", "GAME.M2", true};
    const PlayerSlot two{1, " Red ", " red@x.org ", " alt@x.org ", "GAME.M2", false};
    for (const Row& row : std::vector<Row>{
             {two,
              {1, 1, {temp.path("E0"), "", temp.path("E2")}},
              red + copy + "MsgNoteText Hello\r\n.2\r\n    ;" + file("0", "GAME.M2") +
                  file("1", "GAME.XY") + file("2", "E0") + file("3", "E2") + "Send;",
              "Email Generated OK"},
             {one, none, red + "MsgNoteText Hello\r\n.2;Send;", "Email Generated OK"},
             {{1, "", "no@x.org", "", "", true},
              none,
              start + "Name ;Address no@x.org;RecipType 1;MsgNoteText Hello\r\n.2;Send;",
              "MAPI Error: no such user"},
             {{1, "", "", "alt@x.org", "", true}, {}, "", "No Email Address for Player"},
             {{0, "", "red@x.org", "", "", true},
              {0, 0, {temp.path("gone"), "", ""}},
              "",
              "Player Skipped\r\nFile 0 not found "},
#ifndef _WIN32
             {one, {0, 0, {"", "/proc/self/mem", ""}}, "", "File 1 cannot be read "},
#endif
         }) {
        player = row.player;
        attachments = row.files;
        report.fill("earlier");
        calls.clear();
        EXPECT_EQ(deliver(mail, mail), row.line);
        EXPECT_EQ(told(), signOn + row.told + "SignOff;");
    }
}

TEST_F(MailDeliveries, ARefusedMessageIsFollowedByTheNextRow) {
    player = {1, "", "no@x.org", "", "", true};
    game.rows[15] = {1, "", "last@x.org", "", "", true};
    EXPECT_EQ(deliver(mail, mail) + report[15], "MAPI Error: no such userEmail Generated OK");
    EXPECT_EQ(display.reports, 1);
}

TEST_F(MailDeliveries, WithoutASessionTheReportShowsTheOldLinesAndWithoutAGameNothingHappens) {
    report.fill("earlier");
    mail.sessionId = 0;
    deliver(mail, mail);
    EXPECT_EQ(calls.back(), "SignOn");
    calls.clear();
    game.GamePath.clear();
    deliver(mail, mail);
    EXPECT_EQ(display.boxes, Texts({"No mail system found", "Invalid game path"}));
    EXPECT_EQ(calls, Texts());
    EXPECT_EQ(display.reports, 1);
    EXPECT_EQ(report[1], "earlier");
}

} // namespace turnpost
