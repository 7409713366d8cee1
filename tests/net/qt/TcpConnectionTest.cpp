#include "net/qt/TcpSocket.h"

#include "automation/ScriptedServer.h"
#include "automation/Waiting.h"
#include "net/SocketCalls.h"

#include <QTcpServer>
#include <QThread>
#include <atomic>
#include <future>
#include <gtest/gtest.h>

#ifndef _WIN32
#include <dlfcn.h>
#include <fcntl.h>

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

// A socket, a record of its events, and a server that answers a message only after release().
class TcpConnections : public testing::Test, public SocketEvents {
  protected:
    using Log = std::vector<std::string>;

    void DataArrival() override { log.push_back(socket->GetData()); }
    void Error(int number, const std::string&) override { log.push_back(std::to_string(number)); }

    void connect(const std::string& host, std::uint16_t port) {
        socket->setEvents(this);
        socket->Connect(host, port);
    }
    void connect() { connect("127.0.0.1", server.port()); }
    bool logged(size_t count) {
        return waitUntil([&] { return log.size() >= count; });
    }
    int descriptor() const {
        return static_cast<int>(socket->findChild<QSocketNotifier*>()->socket());
    }

    void queueAndEnd(size_t length) {
        socket->SendData("DATA\r\n" + std::string(length, 'x') + "\r\n.\r\nQUIT\r\n");
        socket->CloseWhenSent();
    }

    Answer greeting{"220 ready\r\n"};
    const Script script = [this](Point point, int, const std::string&) {
        return point == Point::Greeting ? greeting
               : point == Point::Data   ? Answer{"354 go\r\n", Answer::Then::Pause}
                                        : goodAnswer(point);
    };
    ScriptedServer server{script};
    std::unique_ptr<TcpSocket> socket = std::make_unique<TcpSocket>();
    Log log;
};

TEST_F(TcpConnections, TryEachAddressThenReportTheError) {
    const auto expectError = [this](const char* host, std::uint16_t port, const char* number) {
        connect(host, port);
        EXPECT_EQ(log, Log()) << "from inside Connect";
        ASSERT_TRUE(logged(1));
        EXPECT_EQ(std::exchange(log, {}), Log{number});
        EXPECT_FALSE(socket->isOpen());
    };
    QTcpServer six;
    if (six.listen(QHostAddress::LocalHostIPv6)) { // Not every machine has IPv6.
        connect("::1", six.serverPort());
        EXPECT_TRUE(waitUntil([&six] { return six.hasPendingConnections(); }));
        socket->Close();
    }
    const std::uint16_t unused = ScriptedServer({}).port();
    expectError("127.0.0.1", unused, "10061");
    expectError("224.0.0.1", 25, "10051");
#ifndef _WIN32
    expectError("no..name", 25, "11001");
    connect("two.example", server.port());
    ASSERT_TRUE(logged(1));
    EXPECT_EQ(log, Log{greeting.bytes});
    // Tests cannot cause these errors, or only in minutes.
    for (const auto& [error, number] :
         {std::pair(ETIMEDOUT, 10060), {EHOSTUNREACH, 10065}, {ENOBUFS, 10055}, {EIO, 10050}}) {
        EXPECT_EQ(winsockNumber(error), number);
    }
    EXPECT_EQ(socketErrorText(ETIMEDOUT), "Connection timed out");
#endif
}

TEST_F(TcpConnections, GiveDataBeforeTheResetThatFollows) {
    greeting.then = Answer::Then::Reset;
    connect();
    ASSERT_TRUE(logged(2));
    EXPECT_EQ(log, (Log{greeting.bytes, "10054"}));
    greeting.then = Answer::Then::Continue;
    // Unread data makes the server's close a reset; if all was read, data sent later does.
    for (const char* unread : {"HELO", ""}) {
        log.clear();
        connect();
        ASSERT_TRUE(logged(1));
        socket->SendData(unread);
        server.forget();
        socket->SendData(" host\r\n");
        EXPECT_EQ(log.size(), 1);
        ASSERT_TRUE(logged(2));
        runPendingEvents();
        EXPECT_EQ(log, (Log{greeting.bytes, "10054"}));
    }
}

TEST_F(TcpConnections, ClosedByTheServerLeaveTheNextOneOpen) {
    for (size_t connection = 1; connection <= 2; ++connection) {
        connect();
        ASSERT_TRUE(logged(2 * connection - 1));
        EXPECT_TRUE(socket->isOpen());
        // Without TCP_NODELAY each small mail waits 40 ms for a delayed acknowledgement.
        int atOnce = 0;
        socklen_t size = sizeof atOnce;
        getsockopt(static_cast<SocketHandle>(descriptor()), IPPROTO_TCP, TCP_NODELAY,
                   reinterpret_cast<char*>(&atOnce), &size);
        EXPECT_NE(atOnce, 0);
        const auto asked = std::chrono::steady_clock::now();
        socket->SendData("QUIT\r\n");
        EXPECT_TRUE(waitUntil([&] { return !socket->isOpen(); }));
        ASSERT_TRUE(logged(2 * connection));
        EXPECT_LE(socket->silence(), std::chrono::steady_clock::now() - asked);
    }
    runPendingEvents();
    EXPECT_EQ(log.size(), 4);
}

TEST_F(TcpConnections, OfBeforeNeverReachTheNewOne) {
    greeting = {"", Answer::Then::Continue, "220 old\r\n"};
    connect();
    ASSERT_TRUE(waitUntil([&] { return !server.conversations().empty(); }));
    // The old data has arrived and its event is queued when the next connection begins.
    QObject::connect(socket->findChild<QSocketNotifier*>(), &QSocketNotifier::activated,
                     socket.get(), [&] {
                         greeting = {"220 new\r\n"};
                         connect();
                     });
    server.release(0);
    ASSERT_TRUE(logged(1));
    EXPECT_TRUE(waitUntil([&] { return server.conversations()[0].ended; }));
    runPendingEvents();
    EXPECT_EQ(log, Log{"220 new\r\n"});
}

// The program's end waits a tenth of a second, in which the server may not get its turn on a
// machine under load; so it has some tries.
TEST_F(TcpConnections, SendWhatIsQueuedAtTheProgramsEnd) {
    ScriptedServer::Conversation seen;
    for (int tries = 10; tries > 0 && !seen.delivered; --tries) {
        std::promise<std::uint16_t> port;
        std::atomic<bool> ending = false;
        const std::unique_ptr<QThread> thread(QThread::create([&] {
            ScriptedServer elsewhere(script);
            port.set_value(elsewhere.port());
            const auto& received = elsewhere.conversations();
            waitUntil([&] { return ending && !received[0].commands.empty(); });
            elsewhere.release(0);
            waitUntil([&] { return received[0].ended; });
            seen = received[0];
        }));
        thread->start();
        socket = std::make_unique<TcpSocket>();
        log.clear();
        connect("127.0.0.1", port.get_future().get());
        ASSERT_TRUE(logged(1));
        queueAndEnd(500000);
        ending = true;
        socket.reset();
        ASSERT_TRUE(thread->wait(60000));
    }
    EXPECT_TRUE(seen.delivered && !seen.wasReset);
    EXPECT_EQ(seen.message.size(), 500002);
}

#ifndef _WIN32
TEST_F(TcpConnections, EndWithTheProgramThoughTheServerTakesNothing) {
    connect();
    ASSERT_TRUE(logged(1));
    queueAndEnd(5000000);
    socket.reset();
    ASSERT_TRUE(waitUntil([&] { return !server.conversations()[0].commands.empty(); }));
    server.release(0);
    EXPECT_TRUE(waitUntil([&] { return server.conversations()[0].ended; }));
    EXPECT_FALSE(server.conversations()[0].delivered) << "a part passes for the whole";
}

TEST_F(TcpConnections, ThatCannotSendFail) {
    greeting.then = Answer::Then::Pause;
    connect();
    ASSERT_TRUE(logged(1));
    EXPECT_NE(fcntl(descriptor(), F_GETFD) & FD_CLOEXEC, 0) << "programs would get the socket";
    // Nothing arrives from the server that could tell of the failure.
    shutdown(descriptor(), SHUT_WR);
    socket->SendData("HELO host\r\n");
    ASSERT_TRUE(logged(2));
    EXPECT_EQ(log, (Log{greeting.bytes, "10054"}));
    EXPECT_FALSE(socket->isOpen());
}
#endif

} // namespace turnpost::automation
