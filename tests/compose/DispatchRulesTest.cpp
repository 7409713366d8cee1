#include "compose/DispatchRules.h"

#include "compose/SendReport.h"
#include "fakes/TempFolder.h"
#include "platform/FileError.h"

#include <gtest/gtest.h>

namespace turnpost {

// Player 3 of a game whose folder holds GAME.M3 and GAME.XY; extra files EXTRA0 and EXTRA2.
class DispatchRules : public testing::Test {
  protected:
    using Names = std::vector<std::string>;

    DispatchRules() {
        for (const char* name : {"GAME.M3", "GAME.XY", "EXTRA0", "EXTRA2"}) {
            temp.write(name, "x");
        }
    }

    void remove(const std::string& name) const {
        std::filesystem::remove(toNativePath(temp.path(name)));
    }

    void resize(const std::string& name, std::uintmax_t size) const {
        std::filesystem::resize_file(toNativePath(temp.path(name)), size);
    }

    // The row's line, or its texts when it gets a message; fills attached.
    std::string outcome(Transport transport) {
        attached.clear();
        const auto attach = [this](const std::string& path) {
            if (nameOfPath(path) == unreadable) {
                throw FileError(path, "locked");
            }
            attached.push_back(path);
        };
        std::string line = "of an earlier send";
        const auto message = applyRowRules({game, text, attachments}, 2, transport, attach, line);
        EXPECT_EQ(line.empty(), message.has_value());
        return message ? message->PlayerBody + message->PlayerSubject : line;
    }

    void expectBoth(const std::string& smtp, const std::string& mapi) {
        EXPECT_EQ(outcome(Transport::Smtp), smtp);
        EXPECT_EQ(outcome(Transport::Mapi), mapi);
    }
    void expectBoth(const std::string& expected) { expectBoth(expected, expected); }

    TempFolder temp;
    GameDetails game{"Alpha", withSeparator(temp.path()), "GAME.HST", 2405, {}};
    PlayerSlot& player = game.rows[2] = {1, "Red Leader", "red@example.org", "", "GAME.M3", true};
    MessageTemplate text{" <<GY>> <<PN>>", "<<FN>> of <<GN>>"};
    const std::string sent = "Red of Alpha 2405 3";
    AttachmentChoices attachments{1, 1, {temp.path("EXTRA0"), "", temp.path("EXTRA2")}};
    std::string unreadable;
    Names attached;
};

TEST_F(DispatchRules, EachCommandHasItsFilesInOrderAndLooksForNoOthers) {
    for (const Transport transport : {Transport::Smtp, Transport::Mapi}) {
        EXPECT_EQ(outcome(transport), sent);
        EXPECT_EQ(attached, Names({temp.path("GAME.M3"), temp.path("GAME.XY"), temp.path("EXTRA0"),
                                   temp.path("EXTRA2")}));
    }
    remove("GAME.XY");
    attachments = {1, 0, {}};
    expectBoth(sent);
    EXPECT_EQ(attached, Names{temp.path("GAME.M3")});
    remove("GAME.M3");
    for (const AttachmentChoices& none : {AttachmentChoices{0, 0, {}}, {2, 255, {}}}) {
        attachments = none;
        expectBoth(sent);
        EXPECT_EQ(attached, Names());
    }
}

TEST_F(DispatchRules, OnlyATickOfZeroSkipsWhetherTheRowIsShownOrNot) {
    player.Shown = false;
    player.IncludePlayer = 2;
    player.PlayerEmail = "  ";
    expectBoth(sent);
    player.Shown = true;
    player.PlayerEmail.clear();
    expectBoth("No Email Address for Player");
    player.IncludePlayer = 0;
    expectBoth("Player Skipped");
}

TEST_F(DispatchRules, SmtpListsEveryMissingFileAndMapiStopsAtTheTurnFileButForExtraFiles) {
    remove("GAME.XY");
    expectBoth("XY file not found ");
    remove("GAME.M3");
    expectBoth("M3file not found \r\nXY file not found ", "M3file not found ");
    attachments.ExtraAttachments[0] = temp.path();
    remove("EXTRA2");
    const std::string extra = "\r\nFile 0 not found \r\nFile 2 not found ";
    expectBoth("M3file not found \r\nXY file not found " + extra, "M3file not found " + extra);
    player.PlayerEmail.clear();
    expectBoth("No Email Address for Player", "No Email Address for Player" + extra);
    player.IncludePlayer = 0;
    expectBoth("Player Skipped", "Player Skipped" + extra);
}

TEST_F(DispatchRules, AFileThatCannotBeReadRefusesTheRowWithItsOwnFinding) {
    unreadable = "GAME.XY";
    expectBoth("XY file cannot be read ");
    unreadable = "EXTRA2";
    expectBoth("File 2 cannot be read ");
#ifndef _WIN32
    game.GamePath = "/proc/self/";
    player.GameFile = "mem";
    expectBoth("M3file cannot be read \r\nXY file not found ", "M3file cannot be read ");
#endif
}

TEST_F(DispatchRules, FilesThatAreTooLongTogetherRefuseTheRowBeforeAnyIsTaken) {
    resize("EXTRA0", (64U << 20) - 3);
    expectBoth(sent);
    resize("EXTRA0", (64U << 20) - 2);
    expectBoth("Message too long");
    EXPECT_EQ(attached, Names());
    resize("EXTRA0", 64U << 20);
    remove("GAME.M3");
    expectBoth("M3file not found \r\nMessage too long", "M3file not found ");
}

TEST_F(DispatchRules, PlaceholdersThatMultiplyFillNoMemoryButAreReported) {
    text = {};
    for (int i = 0; i < 300; ++i) {
        text.MessageBody += "<<GN>>";
        game.GameName += "<<FN>>";
    }
    player.PlayerName = std::string(100000, 'x');
    expectBoth("Message too long");
    player.PlayerName = "R e d";
    EXPECT_EQ(outcome(Transport::Smtp).size(), 305U * 300U);
}

TEST_F(DispatchRules, UniverseFileNameIsCutAtTheFirstPeriod) {
    EXPECT_EQ(universeFile("C:\\GAMES\\", "My.Cup.M3"), "C:\\GAMES\\My.XY");
    EXPECT_EQ(universeFile("C:\\GAMES\\", "GAME"), "C:\\GAMES\\XY");
}

TEST(SendReports, HaveALineForEveryPlayerAndTheOutcomeAsItStands) {
    SendReport report;
    report[0] = "Email sent OK";
    report[14] = "M15file not found \r\nXY file not found ";
    report[15] = "Player Skipped";
    EXPECT_EQ(reportText(report),
              "Player 1: Email sent OK\r\nPlayer 2: \r\nPlayer 3: \r\nPlayer 4: \r\nPlayer 5: \r\n"
              "Player 6: \r\nPlayer 7: \r\nPlayer 8: \r\nPlayer 9: \r\nPlayer 10: \r\n"
              "Player 11: \r\nPlayer 12: \r\nPlayer 13: \r\nPlayer 14: \r\n"
              "Player 15: M15file not found \r\nXY file not found \r\nPlayer 16: Player Skipped"
              "\r\n");
}

} // namespace turnpost
