#include "automation/ScriptedServer.h"
#include "automation/Waiting.h"
#include "compose/MUUEncode.h"
#include "net/SocketCalls.h"
#include "net/SystemSocket.h"
#include "support/Resources.h"
#include "support/WindowTest.h"
#include "text/CodePage.h"

#include <algorithm>

namespace turnpost::automation {

namespace {

using enum Answer::Then;

constexpr std::array<int, 3> players = {1, 8, 16};
// A message with this file does not fit into the system's buffers, so that the server can answer
// before it has received all of it.
#ifdef _WIN32
constexpr size_t largeFile = 6000000; // The server's buffer cannot be kept small on Windows.
#else
constexpr size_t largeFile = 300000;
#endif

const std::string sentOk = "Email sent OK";
const std::string refused = "SMTP Error: ";

// What a server does at one point in place of its good answer, and what must follow.
struct Fault {
    std::string name;
    Answer answer;
    // The row's line in the report. None if there is no report: the send waits for more, or ends
    // with a box after a reset.
    std::string line = {};
    Point point = Point::Greeting;
};

void PrintTo(const Fault& fault, std::ostream* out) {
    *out << fault.name;
}

std::vector<Fault> faultsAt(Point point, const std::string& pointName) {
    const bool inMessage = point == Point::InMessage;
    const std::string good = inMessage ? "250 early\r\n" : goodAnswer(point).bytes;
    const std::string words = std::string("552-<b>") + '\0' + "\r\n552 ";
    std::vector<Fault> faults = {
        {"Reset", {"", Reset}},
        {"Close", {"", Close}},
        {"Silence", {"", Continue, inMessage ? "" : good}},
        {"TwoRepliesInOne",
         {(point == Point::Data ? "354" : "250") + std::string("-a\r\n354 b")},
         sentOk},
        {"Refusal",
         {words + "\xa9 & rest\r\n"},
         refused + words + fromSystemBytes("\xa9") + " & rest\r\n"},
        {"ByteByByte", {good.substr(0, 1), Continue, good.substr(1)}, refused + good.substr(0, 1)}};
    for (Fault& fault : faults) {
        fault.point = point;
        fault.name = pointName + "_" + fault.name;
        if (inMessage && fault.answer.then == Continue) {
            // If the server reads on, it may have the whole message before the client sees the
            // answer.
            fault.answer.then = Pause;
        }
        if (point == Point::Quit) {
            fault.line = sentOk;
        }
    }
    return faults;
}

std::vector<Fault> allFaults() {
    std::vector<Fault> all;
    for (int point = 0; const char* name : {"Greeting", "Helo", "Mail", "Recipient", "Data",
                                            "InMessage", "Message", "Quit"}) {
        std::ranges::copy(faultsAt(static_cast<Point>(point++), name), std::back_inserter(all));
    }
    return all;
}

} // namespace

// Three players, and a server that fails at one point of one connection only. A send ends with a
// report or a box, or still waits when the next one begins.
class Faults : public WindowTest, public testing::WithParamInterface<Fault> {
  protected:
    using Texts = std::vector<std::string>;

    Faults() {
        server.setMidMessage(4096);
        std::map<int, size_t> lengths = {{players[0], 44}, {players[1], 89}, {players[2], 135}};
        if (GetParam().point == Point::InMessage) {
            lengths[players.at(faulty)] = largeFile;
        }
        files = host().startGame(server.address(), lengths);
        lines.fill("Player Skipped");
    }

    void send(const Fault& sentFault) {
        fault = sentFault;
        reached = false;
        start = server.conversations().size();
        const bool reported = !fault.line.empty();
        Texts boxes;
        if (reported) {
            host().watcher().expectReport();
        } else if (fault.answer.then == Reset) {
            host().watcher().expectMessage();
            boxes = {"Winsock Error number 10054\n" + socketErrorText(resetError)};
        }
        host().click("butSend");
        EXPECT_TRUE(waitUntil([&] { return reached && host().watcher().done(); }));
        runPendingEvents();

        const size_t served = reported ? players.size() : faulty + 1;
        ASSERT_EQ(server.conversations().size() - start, served);
        for (size_t i = 0; i < served; ++i) {
            const auto& conversation = server.conversations()[start + i];
            lines.at(static_cast<size_t>(players.at(i) - 1)) = i == faulty ? fault.line : sentOk;
            i == faulty ? expectFault(conversation) : expectDelivered(conversation, players.at(i));
        }
        std::string report = reportText(lines);
        EXPECT_EQ(reportText(values().report), report) << "rows reached, and no other";
        if (reported) {
            std::erase(report, '\r');
            boxes = {report};
        }
        EXPECT_EQ(host().watcher().takeTexts(), boxes);
    }

    void expectFault(const ScriptedServer::Conversation& conversation) {
        const bool delivered = fault.line == sentOk;
        if (!fault.line.empty()) {
            const bool inMessage = fault.point == Point::InMessage;
            if (inMessage) {
                server.release(static_cast<int>(start + faulty));
            }
            ASSERT_TRUE(waitUntil([&] { return conversation.ended; }));
            EXPECT_TRUE(!conversation.wasReset || (inMessage && !delivered));
        }
        EXPECT_EQ(std::ranges::count(conversation.commands, "QUIT"), delivered);
        EXPECT_EQ(conversation.delivered, delivered);
    }

    void expectDelivered(const ScriptedServer::Conversation& conversation, int player) {
        const std::string number = std::to_string(player);
        EXPECT_EQ(conversation.commands,
                  Texts({"HELO host", "MAIL FROM:host@example.org",
                         "RCPT TO:p" + number + "@example.org", "DATA", "QUIT"}));
        const std::string block = uuencodedBlock("GAME.M" + number, files[player]);
        EXPECT_TRUE(conversation.message.ends_with("\r\n\r\n\r\n\r\n" + block + "\r\n\r\n"));
        EXPECT_TRUE(conversation.delivered && !conversation.wasReset);
    }

    const size_t faulty = static_cast<size_t>(GetParam().point) % players.size();
    Fault fault;
    size_t start = 0;
    bool reached = false;
    std::map<int, std::string> files;
    SendReport lines;
    ScriptedServer server{[this](Point point, int connection, const std::string&) {
        const bool odd = point == fault.point && connection == static_cast<int>(start + faulty);
        reached = reached || odd;
        return odd ? fault.answer : goodAnswer(point);
    }};
};

TEST_P(Faults, AreReportedAndTheNextSendWorks) {
    const Fault none{"None", goodAnswer(Point::Greeting), sentOk};
    send(none);
    const size_t descriptors = openDescriptors();
    send(GetParam());
    send(none);
    server.forget();
    EXPECT_TRUE(waitUntil([&] { return openDescriptors() <= descriptors; }));
}

INSTANTIATE_TEST_SUITE_P(Table, Faults, testing::ValuesIn(allFaults()),
                         [](const auto& test) { return test.param.name; });

} // namespace turnpost::automation
