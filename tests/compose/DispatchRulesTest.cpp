#include "compose/DispatchRules.h"

#include "fakes/TempFolder.h"
#include "files/FileError.h"
#include "text/CodePage.h"

#include <gtest/gtest.h>

#ifndef _WIN32
#include "support/Unprivileged.h"
#endif

namespace turnpost {

// Player 3 of a game whose folder holds MY.CUP.M3 and MY.XY; extra files EXTRA0 and EXTRA2.
class DispatchRules : public testing::Test {
  protected:
    using Names = std::vector<std::string>;

    DispatchRules() {
        for (const char* name : {"MY.CUP.M3", "MY.XY", "EXTRA0", "EXTRA2"}) {
            temp.write(name, "x");
        }
    }

    void remove(const std::string& name) const {
        std::filesystem::remove(toNativePath(temp.path(name)));
    }

    // The row's line if it is refused, else its texts. Fills `attached`.
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
    GameDetails game{.GameName = "Alpha", .GamePath = withSeparator(temp.path()), .GameYear = 2405};
    PlayerSlot& player = game.rows[2] = {.IncludePlayer = 2,
                                         .PlayerName = "Red Leader",
                                         .PlayerEmail = " ",
                                         .GameFile = "MY.CUP.M3"};
    MessageTemplate text{" <<GY>> <<PN>>", "<<FN>> of <<GN>>"};
    const std::string sent = "Red of Alpha 2405 3";
    AttachmentChoices attachments{1, 1, {temp.path("EXTRA0"), "", temp.path("EXTRA2")}};
    std::string unreadable;
    Names attached;
};

TEST_F(DispatchRules, AttachesOnlyTheChosenFilesInOrder) {
    expectBoth(sent);
    EXPECT_EQ(attached, Names({temp.path("MY.CUP.M3"), temp.path("MY.XY"), temp.path("EXTRA0"),
                               temp.path("EXTRA2")}));
    remove("MY.XY");
    attachments = {1, 0, {}};
    expectBoth(sent);
    EXPECT_EQ(attached, Names{temp.path("MY.CUP.M3")});
    const auto relative = std::filesystem::relative(toNativePath(temp.path()));
    game.GamePath = withSeparator(fromNativePath(relative));
    expectBoth("M3file not found ");
    remove("MY.CUP.M3");
    attachments = {2, 255, {}};
    expectBoth(sent);
}

TEST_F(DispatchRules, SmtpAndMapiReportDifferentFaults) {
    const std::string unsendable = "The address cannot be sent: ";
    const std::string face = "\"Send via SMTP\" cannot write character 3 (\U0001F600, U+1F600)";
    player.PlayerEmail = "a?\U0001F600@\u00E4.org";
    expectBoth(hasWireBytes(0x1F600) ? sent : unsendable + face, sent);
    player.PlayerEmail = "p1\r\n\u2028\u200B@\u00A0";
    expectBoth(unsendable + "character 5 is invisible (U+200B)");
    remove("MY.XY");
    player.PlayerEmail = "\u00A0@example.org";
    player.AltEmail = "\u00E4\u00AD@example.org";
    const std::string first = unsendable + "character 1 is invisible (U+00A0)\r\n";
    expectBoth(first + "XY file not found ",
               first + "The alternate address cannot be sent: character 2 is invisible (U+00AD)");
    player.PlayerEmail = "red@example.org";
    player.AltEmail.clear();
    expectBoth("XY file not found ");
    remove("MY.CUP.M3");
    attachments.ExtraAttachments[0] = temp.path();
    remove("EXTRA2");
    const std::string extra = "\r\nFile 0 not found \r\nFile 2 not found ";
    expectBoth("M3file not found \r\nXY file not found " + extra, "M3file not found " + extra);
    player.PlayerEmail.clear();
    expectBoth("No Email Address for Player", "No Email Address for Player" + extra);
    player.IncludePlayer = 0;
    expectBoth("Player Skipped", "Player Skipped" + extra);
}

TEST_F(DispatchRules, UnreadableFilesAreReportedAsSuch) {
    unreadable = "MY.XY";
    expectBoth("XY file cannot be read ");
#ifndef _WIN32
    attachments.ExtraAttachments[1] = "/proc/self/mem";
    std::filesystem::permissions(temp.path(), std::filesystem::perms::all);
    std::filesystem::permissions(temp.path("MY.CUP.M3"), std::filesystem::perms::none);
    const Unprivileged person;
    expectBoth("M3file cannot be read \r\nFile 1 cannot be read ");
#endif
}

TEST_F(DispatchRules, OverlongMessagesAreRefusedBeforeAttaching) {
    const std::filesystem::path extra = toNativePath(temp.path("EXTRA0"));
    std::filesystem::resize_file(extra, (64U << 20) - 3);
    expectBoth(sent);
    std::filesystem::resize_file(extra, (64U << 20) - 2);
    expectBoth("Message too long");
    std::filesystem::resize_file(extra, 0);
    player.PlayerName = std::string(1 << 20, 'x');
    for (int i = 0; i < 100; ++i) {
        text.MessageBody += "<<FN>>";
    }
    expectBoth("Message too long");
    EXPECT_EQ(attached, Names());
}

} // namespace turnpost
