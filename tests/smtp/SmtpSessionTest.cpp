#include "smtp/SendFixture.h"

namespace turnpost {

class SmtpSessions : public SendFixture {
  protected:
    SmtpSessions() { include({0}); }
};

TEST_F(SmtpSessions, AnyOfTheThreeCodesTakesOneStepInEveryState) {
    for (const char* reply : {"220 mail ready\r\n", "250", "354 go ahead\r\n",
                              "250-mail\r\n250 SIZE\r\n", "250 a\r\n550 b\r\n"}) {
        driver.butSend_Click();
        const auto reports = display.reports;
        for (int step = 0; step < 6; ++step) {
            EXPECT_EQ(display.reports, reports) << "more than one step";
            socket.arrive("");
            socket.arrive(reply);
        }
        EXPECT_EQ(socket.sent.back(), conversation("1")) << reply;
    }
}

TEST_F(SmtpSessions, WhatTheHostCorrectsMeanwhileReachesTheLaterLines) {
    driver.butSend_Click();
    accept(1);
    settings.HostEmail = "new@example.org";
    socket.arrive("250 OK\r\n");
    game.rows[0].PlayerEmail = "right@example.org";
    socket.arrive("250 OK\r\n");
    socket.arrive("250 OK\r\n");
    game.rows[0].PlayerName = "Crimson";
    game.rows[0].AltEmail = "alt@example.org";
    settings.HostName = "New Host";
    socket.arrive("354 go ahead\r\n");
    EXPECT_TRUE(socket.sent.back().starts_with("HELO host\r\nMAIL FROM:new@example.org\r\n"
                                               "RCPT TO:right@example.org\r\nDATA\r\n"
                                               "From:New Host <new@example.org>\r\n"
                                               "To:Crimson <right@example.org>\r\n"
                                               "CC:Crimson<alt@example.org>\r\n"));
}

TEST_F(SmtpSessions, ASocketErrorStopsTheWholeSend) {
    include({1});
    report[1] = "of an earlier send";
    driver.butSend_Click();
    accept(1);
    socket.fail(10054, "Connection reset");
    EXPECT_EQ(display.boxes, Texts{"Winsock Error number 10054\r\nConnection reset"});
    EXPECT_FALSE(socket.isOpen());
    socket.arrive("250 late\r\n");
    EXPECT_EQ(socket.sent, Texts{"HELO host\r\n"});
    EXPECT_EQ(report[0] + report[1], "of an earlier send");
    EXPECT_EQ(display.reports, 0);
    EXPECT_EQ(display.progress, Fractions{0.5});
}

} // namespace turnpost
