#include "FaultTable.h"
#include "desk/Host.h"
#include "desk/SampleGame.h"
#include "desk/UuDecoder.h"
#include "desk/Waiting.h"
#include "support/Resources.h"

#include <gtest/gtest.h>

namespace turnpost::desk {

namespace {

using Outcome = Fault::Outcome;

// Small blocks that the C library keeps for the next request count as in use, some 30 KiB by
// chance, unless that is switched off, as CTest does.
const size_t heapSlack = qEnvironmentVariableIsSet("GLIBC_TUNABLES") ? 4096 : 65536;

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

class Faults : public testing::TestWithParam<Point> {
  protected:
    // The server answers well, but for one point of one connection.
    Faults()
        : server([this](Point point, int connection, const std::string&) {
              const bool odd = fault != nullptr && point == GetParam() && connection == faultyRow;
              reached = reached || odd;
              return odd ? fault->answer : goodAnswer(point);
          }) {
        server.setMidMessage(midMessage);
        files = host.startGame(server.address(), fileLengths());
    }

    std::map<int, size_t> fileLengths() const {
        std::map<int, size_t> lengths;
        for (int player = 1; player <= rowCount; ++player) {
            lengths[player] = static_cast<size_t>(player) * 44;
        }
        if (GetParam() == Point::InMessage) {
            lengths[faultyRow + 1] = largeFile;
        }
        return lengths;
    }

    void expectFaultyRow(const std::string& line) {
        if (fault->isLong) {
            EXPECT_TRUE(line.starts_with(fault->line));
            EXPECT_EQ(line.find_first_not_of('x', fault->line.size()), std::string::npos);
        } else {
            EXPECT_EQ(line, fault->line);
        }
        const auto& conversation = server.conversations().at(static_cast<size_t>(faultyRow));
        if (fault->outcome == Outcome::Reported) {
            if (GetParam() == Point::InMessage) {
                server.release(faultyRow);
            }
            ASSERT_TRUE(waitUntil([&] { return conversation.ended; }));
            EXPECT_TRUE(!conversation.wasReset ||
                        (GetParam() == Point::InMessage && !fault->delivered));
        }
        const bool saidQuit =
            !conversation.commands.empty() && conversation.commands.back() == "QUIT";
        EXPECT_EQ(saidQuit, fault->line == "Email sent OK");
        EXPECT_EQ(conversation.delivered, fault->delivered);
    }

    // Sends until the window that ends it has been closed, or until the fault, and checks all that
    // came of it.
    void send(const Fault* sentFault) {
        fault = sentFault;
        reached = fault == nullptr;
        const Outcome outcome = fault == nullptr ? Outcome::Reported : fault->outcome;
        const bool reported = outcome == Outcome::Reported;
        const size_t before = server.conversations().size();
        std::string text;
        if (reported) {
            host.watcher().expectReport();
        } else if (outcome == Outcome::Broken) {
            host.watcher().expectMessage();
            text = "Winsock Error number 10054\nConnection reset by peer";
        }
        host.click("butSend");
        EXPECT_TRUE(waitUntil([&] { return reached && host.watcher().done(); }));
        runPendingEvents();
        EXPECT_EQ(host.watcher().faults(), std::vector<std::string>{});
        const SendReport& report = host.desktop().app().values().report;
        if (reported) {
            text = reportText(report);
            std::erase(text, '\r');
        }
        const auto texts = host.watcher().takeTexts();
        EXPECT_EQ(texts.empty() ? "" : texts.back(), text);
        EXPECT_EQ(findControl<QWidget>(host.window(), "Shape1")->width(),
                  reported ? 176 : (faultyRow + 1) * 11);
        ASSERT_EQ(server.conversations().size() - before, reported ? 16U : faultyRow + 1U);
        for (int row = 0; row < rowCount; ++row) {
            const std::string& line = report[static_cast<size_t>(row)];
            if (fault != nullptr && row == faultyRow) {
                expectFaultyRow(line);
                continue;
            }
            // After a send that came to no end, the lines are those of the send before.
            EXPECT_EQ(line, "Email sent OK");
            if (reported || row < faultyRow) {
                const auto& served = server.conversations()[before + static_cast<size_t>(row)];
                EXPECT_EQ(deliveryFault(served, row + 1, files.at(row + 1)), "");
            }
        }
    }

    const Fault* fault = nullptr;
    int faultyRow = 0;
    bool reached = false;
    std::map<int, std::string> files;
    ScriptedServer server;
    Host host;
};

TEST_P(Faults, EveryRowGetsItsLineTheNextSendWorksAndNothingIsLeftBehind) {
    // The first send makes what stays for good.
    send(nullptr);
    server.forget();
    runPendingEvents();
    const size_t descriptors = openDescriptors();
    size_t heap = 0;
    const auto faults = faultsAt(GetParam());
    for (const bool warmUp : {true, false}) {
        for (const Fault& current : faults) {
            for (const int row : {0, 7, 15}) {
                SCOPED_TRACE(current.name + std::string(" in row ") + std::to_string(row));
                faultyRow = row;
                files = makeSampleGame(host.folder(), fileLengths());
                send(&current);
                send(nullptr);
                server.forget();
                EXPECT_TRUE(waitUntil([&] { return openDescriptors() <= descriptors; }));
                ASSERT_FALSE(HasFailure());
            }
        }
        runPendingEvents();
        heap = warmUp ? liveHeap() : heap;
    }
    EXPECT_LE(liveHeap(), heap + heapSlack);
}

INSTANTIATE_TEST_SUITE_P(At, Faults,
                         testing::Values(Point::Greeting, Point::Helo, Point::Mail,
                                         Point::Recipient, Point::Data, Point::InMessage,
                                         Point::Message, Point::Quit),
                         [](const auto& point) { return nameOf(point.param); });

} // namespace turnpost::desk
