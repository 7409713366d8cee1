#include "net/qt/TcpSocket.h"

#include "automation/ScriptedServer.h"
#include "automation/Waiting.h"
#include "net/SocketCalls.h"

#include <gtest/gtest.h>

#ifndef _WIN32
#include <dlfcn.h>

// Resolves a name that only the tests know, without a name server, to two addresses. Nothing
// listens at the first one.
extern "C" int getaddrinfo(const char* name, const char* service, const addrinfo* hints,
                           addrinfo** found) {
    static const auto system =
        reinterpret_cast<decltype(&getaddrinfo)>(dlsym(RTLD_NEXT, "getaddrinfo"));
    const std::string host = name == nullptr ? "" : name;
    if (host != "two.example") {
        return system(name, service, hints, found);
    }
    const int error = system("127.0.0.2", service, hints, found);
    addrinfo** end = found;
    while (error == 0 && *end != nullptr) {
        end = &(*end)->ai_next;
    }
    return error != 0 ? error : system("127.0.0.1", service, hints, end);
}
#endif

namespace turnpost::automation {

// A socket, a record of its events, and a server with one answer.
class TcpSockets : public testing::Test, public SocketEvents {
  protected:
    using Log = std::vector<std::string>;

    TcpSockets() { socket.setEvents(this); }

    void DataArrival() override { log.push_back(socket.GetData()); }
    void Error(int number, const std::string& description) override {
        log.push_back(std::to_string(number) + " " + description);
    }

    static std::string failure(int number, [[maybe_unused]] const std::string& words) {
#ifdef _WIN32
        return std::to_string(number) + " " + socketErrorText(number);
#else
        return std::to_string(number) + " " + words;
#endif
    }
    bool logged(size_t count) {
        return waitUntil([&] { return log.size() >= count; });
    }
    void connect() {
        socket.Connect("127.0.0.1", server.port());
    }

    Answer answer{"220 ready\r\n"};
    ScriptedServer server{[this](Point, int, const std::string&) { return answer; }};
    TcpSocket socket;
    Log log;
};

TEST_F(TcpSockets, ConnectTriesEachAddressThenReportsTheError) {
    const auto expectError = [this](const char* host, std::uint16_t port, const auto& text) {
        socket.Connect(host, port);
        EXPECT_TRUE(log.empty()) << "from inside Connect";
        EXPECT_TRUE(logged(1));
        EXPECT_TRUE(log.at(0).starts_with(text)) << log[0];
        EXPECT_FALSE(socket.isOpen());
        log.clear();
    };
    const std::uint16_t unused = ScriptedServer({}).port();
    expectError("127.0.0.1", unused, failure(10061, "Connection refused"));
    expectError("224.0.0.1", 25, failure(10051, "Network is unreachable"));
#ifndef _WIN32
    expectError("no..name", 25, "11001 ");
    socket.Connect("two.example", server.port());
    EXPECT_TRUE(logged(1));
    EXPECT_EQ(log, Log{answer.bytes});
    // Tests cannot cause these errors, or only in minutes.
    for (const auto& [error, number] :
         {std::pair(ETIMEDOUT, 10060), {EHOSTUNREACH, 10065}, {EMFILE, 10024}, {EIO, 10050}}) {
        EXPECT_EQ(winsockNumber(error), number);
    }
#endif
}

TEST_F(TcpSockets, DataArrivesBeforeTheResetThatFollowsIt) {
    const std::string reset = failure(10054, "Connection reset by peer");
    answer.then = Answer::Then::Reset;
    connect();
    EXPECT_TRUE(logged(2));
    EXPECT_EQ(log, (Log{answer.bytes, reset}));
    answer.then = Answer::Then::Continue;
    // Unread data makes the server's close a reset; if all was read, data sent later does.
    for (const char* unread : {"HELO", ""}) {
        log.clear();
        connect();
        EXPECT_TRUE(logged(1));
        socket.SendData(unread);
        server.forget();
        socket.SendData(" host\r\n");
        EXPECT_EQ(log.size(), 1);
        EXPECT_TRUE(logged(2));
        runPendingEvents();
        EXPECT_EQ(log, (Log{answer.bytes, reset}));
    }
}

TEST_F(TcpSockets, ServersCloseLeavesTheNextConnectionOpen) {
    for (size_t connection = 1; connection <= 2; ++connection) {
        answer = {"220 ready\r\n"};
        connect();
        EXPECT_TRUE(logged(2 * connection - 1));
        EXPECT_TRUE(socket.isOpen());
        // Without TCP_NODELAY each small mail waits 40 ms for a delayed acknowledgement.
        int atOnce = 0;
        socklen_t size = sizeof atOnce;
        getsockopt(static_cast<SocketHandle>(socket.findChild<QSocketNotifier*>()->socket()),
                   IPPROTO_TCP, TCP_NODELAY, reinterpret_cast<char*>(&atOnce), &size);
        EXPECT_NE(atOnce, 0);
        answer = {"221 bye\r\n", Answer::Then::Close};
        const auto asked = std::chrono::steady_clock::now();
        socket.SendData("QUIT\r\n");
        EXPECT_TRUE(waitUntil([&] { return !socket.isOpen(); }));
        EXPECT_TRUE(logged(2 * connection));
        EXPECT_LE(socket.silence(), std::chrono::steady_clock::now() - asked);
    }
    runPendingEvents();
    EXPECT_EQ(log.size(), 4);
}

TEST_F(TcpSockets, OldConnectionsNeverReachTheNewOne) {
    answer = {"", Answer::Then::Continue, "220 old\r\n"};
    connect();
    ASSERT_TRUE(waitUntil([&] { return !server.conversations().empty(); }));
    // The old data has arrived and its event is queued when the next connection begins.
    QObject::connect(socket.findChild<QSocketNotifier*>(), &QSocketNotifier::activated, &socket,
                     [&] {
                         answer = {"220 new\r\n"};
                         connect();
                     });
    server.release(0);
    EXPECT_TRUE(logged(1));
    EXPECT_TRUE(waitUntil([&] { return server.conversations()[0].ended; }));
    runPendingEvents();
    EXPECT_EQ(log, Log{"220 new\r\n"});
}

} // namespace turnpost::automation
