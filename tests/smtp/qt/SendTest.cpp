#include "desk/Host.h"
#include "desk/ScriptedServer.h"
#include "desk/Waiting.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace turnpost::desk {

namespace {

const auto allPoints = {Point::Greeting, Point::Helo,      Point::Mail,   Point::Recipient,
                        Point::Data,     Point::InMessage, Point::Message};

} // namespace

class Sending : public testing::Test {
  protected:
    // Sends to a good server whose `oddConnection` gives `oddAnswer` at `oddPoint`.
    Sending()
        : server([this](Point point, int connection, const std::string&) {
              const bool odd = connection == oddConnection && point == oddPoint;
              reachedOddPoint = reachedOddPoint || odd;
              return odd ? oddAnswer : goodAnswer(point);
          }) {}

    void start(const std::map<int, size_t>& lengths) { host.startGame(server.address(), lengths); }

    // The next connection but `later` is the odd one.
    void misbehave(Point point, const Answer& answer, int later = 0) {
        oddConnection = static_cast<int>(server.conversations().size()) + later;
        oddPoint = point;
        oddAnswer = answer;
        reachedOddPoint = false;
    }

    // Sends, closes the report or the message box, and gives its text.
    std::string send(bool endsInReport = true) {
        if (endsInReport) {
            host.watcher().expectReport();
        } else {
            host.watcher().expectMessage();
        }
        host.click("butSend");
        EXPECT_TRUE(waitUntil([&] { return host.watcher().done(); }));
        runPendingEvents();
        EXPECT_EQ(host.watcher().faults(), std::vector<std::string>{});
        return host.watcher().texts().back();
    }

    static std::string lineOf(const std::string& report, int player) {
        const std::string prefix = "Player " + std::to_string(player) + ": ";
        const size_t from = report.find(prefix) + prefix.size();
        return report.substr(from, report.find("\nPlayer ", from) - from);
    }

    int barLength() { return findControl<QWidget>(host.window(), "Shape1")->width(); }

    int oddConnection = -1;
    Point oddPoint = Point::Greeting;
    Answer oddAnswer;
    bool reachedOddPoint = false;
    ScriptedServer server;
    Host host;
};

TEST_F(Sending, AllSixteenRowsGoOutInOneSendEachToItsOwnPlayer) {
    std::map<int, size_t> lengths;
    for (int player = 1; player <= 16; ++player) {
        lengths[player] = static_cast<size_t>(player) * 44;
    }
    start(lengths);
    const std::string report = send();
    ASSERT_EQ(server.conversations().size(), 16U);
    for (int player = 1; player <= 16; ++player) {
        const auto& conversation = server.conversations()[static_cast<size_t>(player) - 1];
        const std::string number = std::to_string(player);
        EXPECT_EQ(lineOf(report, player).substr(0, 13), "Email sent OK");
        EXPECT_EQ(
            conversation.commands,
            (std::vector<std::string>{"HELO host", "MAIL FROM:host@example.org",
                                      "RCPT TO:p" + number + "@example.org", "DATA", "QUIT"}));
        EXPECT_NE(conversation.message.find("begin 664 GAME.M" + number + "\r\n"),
                  std::string::npos);
        EXPECT_FALSE(conversation.wasReset);
    }
}

TEST_F(Sending, AnyRefusalAtAnyPointIsReportedInTheServersWordsAndTheNextPlayerIsServed) {
    start({{1, 100}, {3, 45}});
    for (const Point point : allPoints) {
        for (const std::string words : {"251 forwarded\r\n", "421 closing\r\n", "garbage\r\n", "25",
                                        "550 <b>no</b> & never\r\n", "552-too\r\n552 big\r\n"}) {
            misbehave(point, {words});
            const std::string report = send();
            std::string shown = words;
            shown.erase(std::remove(shown.begin(), shown.end(), '\r'), shown.end());
            EXPECT_EQ(lineOf(report, 1), "SMTP Error: " + shown);
            EXPECT_EQ(lineOf(report, 3), "Email sent OK");
            const auto& refused = server.conversations()[static_cast<size_t>(oddConnection)];
            ASSERT_TRUE(waitUntil([&] { return refused.ended; }));
            EXPECT_TRUE(refused.commands.empty() || refused.commands.back() != "QUIT");
            EXPECT_TRUE(server.conversations().back().delivered);
        }
    }
}

TEST_F(Sending, AcceptedRepliesInOddPiecesAreOneStepEach) {
    start({{1, 10}});
    for (const Point point :
         {Point::Greeting, Point::Helo, Point::Mail, Point::Recipient, Point::Data}) {
        // Two replies in one piece are one step; so is another accepted code than the usual one.
        misbehave(point, {point == Point::Data ? "354-a\r\n250 b\r\n" : "250-a\r\n354 b\r\n"});
        EXPECT_EQ(lineOf(send(), 1), "Email sent OK");
        EXPECT_TRUE(server.conversations().back().delivered);
    }
}

TEST_F(Sending, AReplyInTwoPiecesIsTwoSteps) {
    // The second half of the reply to HELO comes only after the client has answered the first.
    ScriptedServer inPieces([](Point point, int, const std::string&) -> Answer {
        switch (point) {
        case Point::Helo:
            return {"250-hello\r\n"};
        case Point::Mail:
            return {"250 last line of HELO\r\n"};
        case Point::Recipient:
            return {"250 sender ok\r\n"};
        default:
            return goodAnswer(point);
        }
    });
    start({{1, 10}});
    host.desktop().app().storeEmailSettings("", "host@example.org", inPieces.address());
    EXPECT_EQ(lineOf(send(), 1), "Email sent OK");
}

TEST_F(Sending, AResetAtAnyPointShowsItsNumberAndStopsTheSendAndTheNextSendWorks) {
    start({{1, 10}, {2, 10}, {4, 10}});
    for (const Point point : allPoints) {
        misbehave(point, {"", Answer::Then::Reset}, 1);
        SCOPED_TRACE(static_cast<int>(point));
        EXPECT_EQ(send(false), "Winsock Error number 10054\nConnection reset by peer");
        EXPECT_EQ(static_cast<int>(server.conversations().size()), oddConnection + 1);
        EXPECT_EQ(barLength(), 117);
        EXPECT_EQ(lineOf(send(), 4), "Email sent OK");
        EXPECT_EQ(barLength(), 176);
    }
    misbehave(Point::Quit, {"", Answer::Then::Reset}, 1);
    EXPECT_EQ(lineOf(send(), 2), "Email sent OK") << "the mail was accepted before";
}

TEST_F(Sending, ASilentServerOrAnOrderlyCloseLeavesTheWindowUsableAndASecondSendStartsOver) {
    start({{1, 10}, {2, 20}});
    for (const Point point : allPoints) {
        for (const auto then : {Answer::Then::Continue, Answer::Then::Close}) {
            // Silence in the middle of a message is what every good server keeps.
            if (point == Point::InMessage && then == Answer::Then::Continue) {
                continue;
            }
            misbehave(point, {"", then});
            host.click("butSend");
            ASSERT_TRUE(waitUntil([this] { return reachedOddPoint; }));
            runPendingEvents();
            const auto before = server.conversations().size();
            const std::string report = send();
            EXPECT_EQ(lineOf(report, 1), "Email sent OK");
            EXPECT_EQ(lineOf(report, 2), "Email sent OK");
            EXPECT_EQ(server.conversations().size(), before + 2);
        }
    }
}

TEST_F(Sending, ARefusedConnectionIsAMessageBoxAndNoReport) {
    start({{1, 10}});
    {
        const ScriptedServer gone(
            [](Point point, int, const std::string&) { return goodAnswer(point); });
        host.desktop().app().storeEmailSettings("", "host@example.org", gone.address());
    }
    EXPECT_EQ(send(false), "Winsock Error number 10061\nConnection refused");
}

} // namespace turnpost::desk
