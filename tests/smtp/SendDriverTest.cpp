#include "smtp/SendFixture.h"

namespace turnpost {

class SendDrivers : public SendFixture {};

TEST_F(SendDrivers, EachIncludedPlayerGetsOneExactConversationAndNobodyElsesFiles) {
    include({0, 1, 15});
    attachments = {1, 1, {temp.path("EXTRA"), "", ""}};
    for (const char* name : {"GAME.M1", "GAME.M16", "GAME.XY", "EXTRA"}) {
        temp.write(name, name);
    }
    driver.butSend_Click();
    accept(5);
    EXPECT_EQ(driver.sendState().AttachmentText, "") << "it must go out once only";
    accept(6, 5);
    EXPECT_EQ(display.reports, 0);
    accept();
    const std::string common = block("GAME.XY") + block("EXTRA");
    EXPECT_EQ(socket.sent, Texts({conversation("1", block("GAME.M1") + common),
                                  conversation("16", block("GAME.M16") + common)}));
    EXPECT_FALSE(socket.isOpen());
    socket.arrive("221 bye\r\n");
    SendReport expected;
    expected.fill("Player Skipped");
    expected[0] = expected[15] = "Email sent OK";
    expected[1] = "M2file not found ";
    EXPECT_EQ(report, expected) << "a late answer to QUIT must change nothing";
    EXPECT_EQ(display.reports, 1);
}

TEST_F(SendDrivers, TheBarCountsPlayersReachedAndStaysOnItsTrackWhenTicksChangeMeanwhile) {
    driver.butSend_Click();
    EXPECT_EQ(display.progress, Fractions{1.0}) << "without any player";
    EXPECT_EQ(display.reports, 1);
    include({2, 5, 9});
    game.rows[5].PlayerEmail.clear();
    driver.butSend_Click();
    EXPECT_EQ(display.progress, Fractions({1.0, 1.0 / 3}));
    accept();
    include({10});
    accept();
    socket.arrive("251 n\xE4\r\n");
    EXPECT_EQ(report[10], "SMTP Error: 251 n\u00E4\r\n");
    EXPECT_EQ(display.progress, Fractions({1.0, 1.0 / 3, 2.0 / 3, 1.0, 1.0, 1.0}));
    EXPECT_EQ(display.reports, 2);
}

TEST_F(SendDrivers, AnUnusableServerOrFolderIsSaidAndChangesNothingNotEvenASendUnderWay) {
    include({0, 1});
    settings.SmtpServer = "  mail:2525 ";
    driver.butSend_Click();
    accept(1);
    report.fill("kept");
    temp.makeFolder("empty");
    const std::string path = game.GamePath;
    for (const auto& [server, folder, message] : std::vector<std::array<std::string, 3>>{
             {"   ", "", "No SMTP server address entered"},
             {"mail:0", "", "Invalid SMTP server address"},
             {"elsewhere", "", "Invalid game path"},
             {"elsewhere", path + "missing/", "Invalid game path"},
             {"elsewhere", path + "empty/", "Invalid game path"}}) {
        settings.SmtpServer = server;
        game.GamePath = folder;
        driver.butSend_Click();
        EXPECT_EQ(display.boxes.back(), message) << server << folder;
    }
    EXPECT_EQ(display.boxes.size(), 5U);
    EXPECT_EQ(report[0] + report[1], "keptkept");
    game.GamePath = path;
    accept(6, 1);
    accept();
    EXPECT_EQ(socket.sent, Texts({conversation("1"), conversation("2")}));
    EXPECT_EQ(socket.servers, Texts({"mail:2525", "mail:2525"})) << "not the one entered meanwhile";
    EXPECT_EQ(display.progress, Fractions({0.5, 1.0, 1.0}));
}

TEST_F(SendDrivers, AStepThatNoSendBeganConnectsToNobody) {
    include({0});
    driver.butSend2_Click();
    EXPECT_TRUE(socket.servers.empty());
}

TEST_F(SendDrivers, ASecondSendStartsOverAndNothingOfTheFirstTouchesIt) {
    include({0, 1});
    attachments.SendMFiles = 1;
    temp.write("GAME.M1", "GAME.M1");
    temp.write("GAME.M2", "GAME.M2");
    driver.butSend_Click();
    accept();
    accept(2);
    driver.butSend_Click();
    EXPECT_EQ(report[0], "");
    accept();
    std::filesystem::remove(toNativePath(temp.path("GAME.M2")));
    accept();
    const std::string first = conversation("1", block("GAME.M1"));
    EXPECT_EQ(socket.sent, Texts({first, "HELO host\r\nMAIL FROM:host@example.org\r\n", first,
                                  conversation("2", block("GAME.M2"))}));
    EXPECT_EQ(display.progress, Fractions({0.5, 1.0, 0.5, 1.0, 1.0}));
    driver.butSend_Click();
    accept();
    EXPECT_EQ(report[1], "M2file not found ") << "the outcome of an earlier send";
}

} // namespace turnpost
