#include "desk/Host.h"
#include "desk/SampleGame.h"
#include "desk/ScriptedServer.h"
#include "desk/Waiting.h"

#include <gtest/gtest.h>

namespace turnpost::desk {

class Sending : public testing::Test {
  protected:
    void start(const std::string& server, const std::map<int, size_t>& lengths) {
        makeSampleGame(host.folder(), lengths);
        host.saveSettings(server);
        host.desktop().startUp();
        host.findGame();
        for (const auto& [player, length] : lengths) {
            host.type(QString("PlayerEmail(%1)").arg(player - 1),
                      QString("p%1@example.org").arg(player));
        }
    }

    std::string lineOf(const std::string& report, int player) {
        const std::string prefix = "Player " + std::to_string(player) + ": ";
        const size_t from = report.find(prefix) + prefix.size();
        return report.substr(from, report.find("\nPlayer ", from) - from);
    }

    Host host;
};

TEST_F(Sending, AllSixteenRowsGoOutInOneSendEachToItsOwnPlayer) {
    ScriptedServer server([](Point point, int, const std::string&) { return goodAnswer(point); });
    std::map<int, size_t> lengths;
    for (int player = 1; player <= 16; ++player) {
        lengths[player] = static_cast<size_t>(player) * 44;
    }
    start(server.address(), lengths);
    host.watcher().expectReport();
    host.click("butSend");
    ASSERT_TRUE(waitUntil([&] { return host.watcher().done(); }));
    ASSERT_EQ(host.watcher().faults(), std::vector<std::string>{});
    ASSERT_EQ(server.conversations().size(), 16U);
    for (int player = 1; player <= 16; ++player) {
        const auto& conversation = server.conversations()[static_cast<size_t>(player) - 1];
        const std::string number = std::to_string(player);
        EXPECT_EQ(lineOf(host.watcher().texts()[0], player).substr(0, 13), "Email sent OK");
        EXPECT_EQ(
            conversation.commands,
            (std::vector<std::string>{"HELO host", "MAIL FROM:host@example.org",
                                      "RCPT TO:p" + number + "@example.org", "DATA", "QUIT"}));
        EXPECT_NE(conversation.message.find("begin 664 GAME.M" + number + "\r\n"),
                  std::string::npos);
        EXPECT_FALSE(conversation.wasReset);
    }
}

// Every state meets every kind of reply on a real connection; the row says what the server said,
// the next row goes out.
TEST_F(Sending, AnyRefusalAtAnyPointIsReportedInTheServersWordsAndTheNextPlayerIsServed) {
    const std::vector<std::string> refusals = {"251 forwarded\r\n",
                                               "421 closing\r\n",
                                               "550 <b>no</b> & never\r\n",
                                               "garbage\r\n",
                                               "25",
                                               "552-too\r\n552 big\r\n"};
    Point refusedAt = Point::Greeting;
    std::string refusal;
    int base = 0;
    ScriptedServer server([&](Point point, int connection, const std::string&) {
        return connection == base && point == refusedAt ? Answer{refusal} : goodAnswer(point);
    });
    start(server.address(), {{1, 100}, {3, 45}});
    for (const Point point : {Point::Greeting, Point::Helo, Point::Mail, Point::Recipient,
                              Point::Data, Point::Message}) {
        for (const std::string& words : refusals) {
            refusedAt = point;
            refusal = words;
            base = static_cast<int>(server.conversations().size());
            host.watcher().expectReport();
            host.click("butSend");
            ASSERT_TRUE(waitUntil([&] { return host.watcher().done(); }));
            std::string shown = words;
            shown.erase(std::remove(shown.begin(), shown.end(), '\r'), shown.end());
            const std::string report = host.watcher().texts().back();
            EXPECT_EQ(lineOf(report, 1), "SMTP Error: " + shown);
            EXPECT_EQ(lineOf(report, 3), "Email sent OK");
            const auto& refused = server.conversations()[static_cast<size_t>(base)];
            ASSERT_TRUE(waitUntil([&] { return refused.ended; }));
            EXPECT_FALSE(refused.delivered);
            EXPECT_TRUE(refused.commands.empty() || refused.commands.back() != "QUIT");
            EXPECT_TRUE(server.conversations().back().delivered);
        }
    }
    EXPECT_EQ(host.watcher().faults(), std::vector<std::string>{});
}

TEST_F(Sending, TwoRepliesInOnePieceAreOneStepAndAReplyInTwoPiecesIsTwo) {
    // The second half of the HELO reply comes only after the client has answered the first.
    ScriptedServer server([](Point point, int, const std::string&) -> Answer {
        switch (point) {
        case Point::Helo:
            return {"250-hello\r\n250-again\r\n"};
        case Point::Mail:
            return {"250 last line of HELO\r\n250 sender ok\r\n"};
        default:
            return goodAnswer(point);
        }
    });
    start(server.address(), {{1, 10}});
    host.watcher().expectReport();
    host.click("butSend");
    ASSERT_TRUE(waitUntil([&] { return host.watcher().done(); }));
    EXPECT_EQ(lineOf(host.watcher().texts()[0], 1), "Email sent OK");
    EXPECT_TRUE(server.conversations()[0].delivered);
}

TEST_F(Sending, ABrokenConnectionShowsItsNumberAndStopsTheSendAndTheNextSendWorks) {
    bool broken = true;
    ScriptedServer server([&broken](Point point, int connection, const std::string&) {
        const bool reset = broken && connection == 1 && point == Point::Recipient;
        return reset ? Answer{"", Answer::Then::Reset} : goodAnswer(point);
    });
    start(server.address(), {{1, 10}, {2, 10}, {4, 10}});
    host.watcher().expectMessage();
    host.click("butSend");
    ASSERT_TRUE(waitUntil([&] { return host.watcher().done(); }));
    EXPECT_EQ(host.watcher().texts()[0], "Winsock Error number 10054\nConnection reset by peer");
    runPendingEvents();
    EXPECT_EQ(server.conversations().size(), 2U);
    EXPECT_EQ(findControl<QWidget>(host.window(), "Shape1")->width(), 117);
    broken = false;
    host.watcher().expectReport();
    host.click("butSend");
    ASSERT_TRUE(waitUntil([&] { return host.watcher().done(); }));
    EXPECT_EQ(lineOf(host.watcher().texts()[1], 4), "Email sent OK");
    EXPECT_EQ(findControl<QWidget>(host.window(), "Shape1")->width(), 176);
    EXPECT_EQ(host.watcher().faults(), std::vector<std::string>{});
}

TEST_F(Sending, ARefusedConnectionIsAMessageBoxAndNoReport) {
    std::string address;
    {
        const ScriptedServer gone(
            [](Point point, int, const std::string&) { return goodAnswer(point); });
        address = gone.address();
    }
    start(address, {{1, 10}});
    host.watcher().expectMessage();
    host.click("butSend");
    ASSERT_TRUE(waitUntil([&] { return host.watcher().done(); }));
    runPendingEvents();
    EXPECT_EQ(host.watcher().texts(),
              std::vector<std::string>{"Winsock Error number 10061\nConnection refused"});
    EXPECT_EQ(host.watcher().faults(), std::vector<std::string>{});
}

TEST_F(Sending, ASilentServerOrAnOrderlyCloseLeavesTheWindowUsableAndASecondSendStartsOver) {
    for (const Answer& first : {Answer{}, Answer{"", Answer::Then::Close}}) {
        const auto already = host.watcher().texts().size();
        ScriptedServer server([&first](Point point, int connection, const std::string&) {
            return connection == 0 && point == Point::Mail ? first : goodAnswer(point);
        });
        host.desktop().app().shutDown();
        if (already == 0) {
            start(server.address(), {{1, 10}, {2, 20}});
        } else {
            host.desktop().app().storeEmailSettings("Game Host", "host@example.org",
                                                    server.address());
        }
        host.click("butSend");
        ASSERT_TRUE(waitUntil([&] {
            return !server.conversations().empty() &&
                   server.conversations()[0].commands.size() == 2;
        }));
        runPendingEvents();
        EXPECT_EQ(host.watcher().texts().size(), already);
        host.watcher().expectReport();
        host.click("butSend");
        ASSERT_TRUE(waitUntil([&] { return host.watcher().done(); }));
        EXPECT_EQ(lineOf(host.watcher().texts().back(), 1), "Email sent OK");
        EXPECT_EQ(lineOf(host.watcher().texts().back(), 2), "Email sent OK");
        ASSERT_EQ(server.conversations().size(), 3U);
        EXPECT_FALSE(server.conversations()[0].delivered);
    }
    EXPECT_EQ(host.watcher().faults(), std::vector<std::string>{});
}

} // namespace turnpost::desk
