#include "FaultTable.h"
#include "desk/SampleGame.h"
#include "desk/UuDecoder.h"
#include "desk/Waiting.h"
#include "support/Resources.h"
#include "support/WindowTest.h"

#include <gtest/gtest.h>

namespace turnpost::desk {

namespace {

using Outcome = Fault::Outcome;

constexpr std::array<int, 3> players = {1, 8, 16};
constexpr std::array<int, 3> pixels = {59, 117, 176};
// A message of this file does not fit the system's buffers, so that the server can answer when it
// has some bytes of it.
constexpr size_t largeFile = 300000;
constexpr size_t midMessage = 4096;

// What is wrong with a conversation that should have brought player N, at pN@example.org, the host
// host@example.org's message with just this turn file; empty when all is well.
std::string deliveryFault(const ScriptedServer::Conversation& conversation, int player,
                          const std::string& turnFile) {
    const std::string number = std::to_string(player);
    const std::vector<std::string> commands = {"HELO host", "MAIL FROM:host@example.org",
                                               "RCPT TO:p" + number + "@example.org", "DATA",
                                               "QUIT"};
    const auto files = decodeUuBlocks(withoutDoubledPeriods(conversation.message));
    if (!conversation.delivered || conversation.wasReset) {
        return "player " + number + ": not delivered, or reset";
    }
    if (conversation.commands != commands) {
        return "player " + number + ": other commands";
    }
    if (!files || files->size() != 1 || (*files)[0].name != "GAME.M" + number ||
        (*files)[0].bytes != turnFile) {
        return "player " + number + ": another file";
    }
    return {};
}

} // namespace

// Three players, and a server that answers well but for one point of one connection. A send ends
// with the window that says so, or waits when the next one begins.
class Faults : public WindowTest {
  protected:
    Faults() {
        server.setMidMessage(midMessage);
        files = host().startGame(server.address(), {{1, 44}, {8, 89}, {16, 135}});
        lines.fill("Player Skipped");
    }

    std::string& line(size_t connection) {
        return lines.at(static_cast<size_t>(players.at(connection) - 1));
    }

    void send(const Fault& sentFault, size_t sentConnection) {
        fault = sentFault;
        faulty = sentConnection;
        reached = false;
        const size_t length = fault.point == Point::InMessage ? largeFile : 135;
        files[players.at(faulty)] =
            makeSampleGame(host().folder(), {{players.at(faulty), length}}).at(players.at(faulty));
        start = server.conversations().size();
        if (fault.outcome == Outcome::Reported) {
            host().watcher().expectReport();
        } else if (fault.outcome == Outcome::Broken) {
            host().watcher().expectMessage();
        }
        host().click("butSend");
        EXPECT_TRUE(waitUntil([&] { return reached && host().watcher().done(); }));
        runPendingEvents();
        expectOutcome();
    }

    void expectOutcome() {
        const bool reported = fault.outcome == Outcome::Reported;
        const size_t served = reported ? players.size() : faulty + 1;
        ASSERT_EQ(server.conversations().size() - start, served);
        for (size_t i = 0; i < served; ++i) {
            const int player = players.at(i);
            if (i != faulty) {
                line(i) = "Email sent OK";
                EXPECT_EQ(
                    deliveryFault(server.conversations()[start + i], player, files.at(player)), "");
            }
        }
        line(faulty) = fault.line;
        const std::string& shown = values().report.at(static_cast<size_t>(players.at(faulty) - 1));
        if (fault.line.ends_with('x')) {
            EXPECT_TRUE(shown.starts_with(fault.line));
            EXPECT_EQ(shown.find_first_not_of('x', fault.line.size()), std::string::npos);
            line(faulty) = shown;
        }
        expectConversation(server.conversations()[start + faulty]);
        std::string text;
        for (size_t row = 0; row < lines.size() && reported; ++row) {
            text += "Player " + std::to_string(row + 1) + ": " + lines.at(row) + "\n";
        }
        std::erase(text, '\r');
        const auto texts = host().watcher().takeTexts();
        if (reported) {
            EXPECT_EQ(texts, std::vector<std::string>{text});
        } else {
            EXPECT_EQ(values().report, lines) << "rows reached, and no other";
            EXPECT_EQ(texts, std::vector<std::string>(
                                 fault.outcome == Outcome::Broken ? 1 : 0,
                                 "Winsock Error number 10054\nConnection reset by peer"));
        }
        EXPECT_EQ(findControl<QWidget>(window(), "Shape1")->width(),
                  reported ? 176 : pixels.at(faulty));
    }

    void expectConversation(const ScriptedServer::Conversation& conversation) {
        if (fault.outcome == Outcome::Reported) {
            const bool inMessage = fault.point == Point::InMessage;
            if (inMessage) {
                server.release(static_cast<int>(start + faulty));
            }
            ASSERT_TRUE(waitUntil([&] { return conversation.ended; }));
            EXPECT_TRUE(!conversation.wasReset || (inMessage && !fault.delivered));
        }
        const bool saidQuit =
            !conversation.commands.empty() && conversation.commands.back() == "QUIT";
        EXPECT_EQ(saidQuit, fault.line == "Email sent OK");
        EXPECT_EQ(conversation.delivered, fault.delivered);
    }

    Fault fault;
    size_t start = 0;
    size_t faulty = 0;
    bool reached = false;
    std::map<int, std::string> files;
    SendReport lines;
    ScriptedServer server{[this](Point point, int connection, const std::string&) {
        const bool odd = point == fault.point && connection == static_cast<int>(start + faulty);
        reached = reached || odd;
        return odd ? fault.answer : goodAnswer(point);
    }};
};

TEST_F(Faults, EveryRowGetsItsLineTheNextSendWorksAndNothingIsLeftBehind) {
    const Fault none{"none", goodAnswer(Point::Greeting), Outcome::Reported, "Email sent OK", true};
    send(none, 0);
    const size_t descriptors = openDescriptors();
    size_t connection = 0;
    for (const Fault& current : faultTable()) {
        SCOPED_TRACE("point " + std::to_string(static_cast<int>(current.point)) + ", " +
                     current.name + " on connection " + std::to_string(connection));
        send(current, connection);
        ASSERT_FALSE(HasFailure());
        connection = (connection + 1) % players.size();
    }
    send(none, 0);
    server.forget();
    EXPECT_TRUE(waitUntil([&] { return openDescriptors() <= descriptors; }));
}

} // namespace turnpost::desk
