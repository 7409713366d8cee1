#include "platform/qt/QtSocket.h"

#include "desk/ScriptedServer.h"
#include "desk/Waiting.h"

#include <QTcpServer>
#include <gtest/gtest.h>

namespace turnpost::desk {

namespace {

// Keeps what the socket reports.
class Recorder final : public SocketEvents {
  public:
    explicit Recorder(Socket& watched) : socket(watched) { socket.setEvents(this); }

    void DataArrival() override { arrivals.push_back(socket.GetData()); }
    void Error(int number, const std::string& description) override {
        errors.push_back(number);
        descriptions.push_back(description);
    }

    Socket& socket;
    std::vector<std::string> arrivals;
    std::vector<int> errors;
    std::vector<std::string> descriptions;
};

Script answering(Point point, const Answer& answer) {
    return [point, answer](Point asked, int, const std::string&) {
        return asked == point ? answer : goodAnswer(asked);
    };
}

std::uint16_t unusedPort() {
    QTcpServer server;
    server.listen(QHostAddress::LocalHost);
    return server.serverPort();
}

} // namespace

TEST(QtSocket, RefusalAndUnknownHostCarryTheirNumbersAndNeverComeFromInsideConnect) {
    QtSocket socket;
    Recorder seen(socket);
    socket.Connect("127.0.0.1", unusedPort());
    EXPECT_TRUE(seen.errors.empty());
    ASSERT_TRUE(waitUntil([&] { return !seen.errors.empty(); }));
    socket.Connect("no-such-host.invalid", 25);
    ASSERT_TRUE(waitUntil([&] { return seen.errors.size() == 2; }));
    EXPECT_EQ(seen.errors, (std::vector<int>{10061, 11001}));
    EXPECT_EQ(seen.descriptions[0], "Connection refused");
    EXPECT_FALSE(seen.descriptions[1].empty());
}

TEST(QtSocket, ALateAnswerToQuitMeetsNoReset) {
    ScriptedServer server(answering(Point::Quit, {"", Answer::Then::Continue, "221 bye\r\n"}));
    QtSocket socket;
    Recorder seen(socket);
    socket.Connect("127.0.0.1", server.port());
    ASSERT_TRUE(waitUntil([&] { return !seen.arrivals.empty(); }));
    socket.SendData("QUIT\r\n");
    socket.Close();
    // The next connection is not held up by the answer that is still out.
    socket.Connect("localhost", server.port());
    ASSERT_TRUE(waitUntil([&] { return seen.arrivals.size() == 2; }));
    ASSERT_TRUE(waitUntil([&] { return server.conversations()[0].ended; }));
    EXPECT_EQ(server.conversations()[0].commands, std::vector<std::string>{"QUIT"});
    EXPECT_FALSE(server.conversations()[0].wasReset);
}

TEST(QtSocket, WhatTheSystemHasNotTakenIsDroppedByCloseAndOnlyByClose) {
    // More than the system's buffers hold while the server does not read.
    std::string message;
    while (message.size() < 8 << 20) {
        message += std::string(70, 'x') + "\r\n";
    }
    for (const bool keeps : {false, true}) {
        ScriptedServer server(answering(Point::Quit, {}));
        QtSocket socket;
        Recorder seen(socket);
        socket.Connect("127.0.0.1", server.port());
        ASSERT_TRUE(waitUntil([&] { return !seen.arrivals.empty(); }));
        socket.SendData("DATA\r\n");
        ASSERT_TRUE(waitUntil([&] { return seen.arrivals.size() == 2; }));
        socket.SendData(message + ".\r\nQUIT\r\n");
        keeps ? socket.CloseWhenSent() : socket.Close();
        EXPECT_FALSE(socket.isOpen());
        const auto& conversation = server.conversations()[0];
        ASSERT_TRUE(waitUntil([&] { return conversation.ended; }));
        EXPECT_EQ(conversation.delivered, keeps);
        EXPECT_EQ(conversation.message.size() == message.size(), keeps);
        EXPECT_EQ(seen.arrivals.size(), 2U) << "the farewell is nobody's business";
    }
}

TEST(QtSocket, NothingOfAnOldConnectionReachesTheNewOne) {
    ScriptedServer old(answering(Point::Greeting, {"", Answer::Then::Continue, "220 old\r\n"}));
    ScriptedServer next([](Point point, int, const std::string&) { return goodAnswer(point); });
    QtSocket socket;
    Recorder seen(socket);
    socket.Connect("127.0.0.1", old.port());
    ASSERT_TRUE(waitUntil([&] { return old.conversations().size() == 1; }));
    runPendingEvents();
    socket.Connect("127.0.0.1", next.port());
    const auto before = std::chrono::steady_clock::now();
    old.release(0);
    ASSERT_TRUE(waitUntil([&] { return !seen.arrivals.empty(); }));
    ASSERT_TRUE(waitUntil([&] { return old.conversations()[0].ended; }));
    runPendingEvents();
    EXPECT_EQ(seen.arrivals, std::vector<std::string>{"220 test.example ready\r\n"});
    EXPECT_TRUE(seen.errors.empty());
    EXPECT_LE(socket.silence(), std::chrono::steady_clock::now() - before);
}

} // namespace turnpost::desk
