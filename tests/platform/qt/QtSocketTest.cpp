#include "platform/qt/QtSocket.h"
#include "platform/qt/SocketErrors.h"

#include "desk/ScriptedServer.h"
#include "desk/Waiting.h"

#include <QTcpServer>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <netdb.h>

// Names of the tests' own, whatever name server the machine has: one with two addresses, at the
// first of which nobody listens, and one that is unknown.
extern "C" int getaddrinfo(const char* name, const char* service, const addrinfo* hints,
                           addrinfo** found) {
    static const auto system =
        reinterpret_cast<decltype(&getaddrinfo)>(dlsym(RTLD_NEXT, "getaddrinfo"));
    const std::string host = name == nullptr ? "" : name;
    if (host == "unknown.example") {
        return EAI_NONAME;
    }
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

namespace turnpost::desk {

// A socket, what it reports, and a server with one answer.
class QtSockets : public testing::Test, public SocketEvents {
  protected:
    QtSockets() { socket.setEvents(this); }

    void DataArrival() override { arrivals.push_back(socket.GetData()); }
    void Error(int number, const std::string& description) override {
        errors.push_back(std::to_string(number) + " " + description);
    }

    bool arrived(size_t count) {
        return waitUntil([&] { return arrivals.size() >= count; });
    }
    Answer answer{"220 ready\r\n"};
    ScriptedServer server{[this](Point, int, const std::string&) { return answer; }};
    QtSocket socket;
    std::vector<std::string> arrivals;
    std::vector<std::string> errors;
};

TEST_F(QtSockets, AFailedConnectionCarriesItsNumberAndEveryAddressOfANameIsTried) {
    const auto expectError = [this](const char* host, std::uint16_t port, const char* text) {
        socket.Connect(host, port);
        EXPECT_TRUE(errors.empty()) << "from inside Connect";
        EXPECT_TRUE(waitUntil([&] { return !errors.empty(); }));
        EXPECT_TRUE(errors.at(0).starts_with(text)) << errors[0];
        EXPECT_FALSE(socket.isOpen());
        errors.clear();
    };
    QTcpServer gone;
    gone.listen(QHostAddress::LocalHost);
    const std::uint16_t unused = gone.serverPort();
    gone.close();
    expectError("127.0.0.1", unused, "10061 Connection refused");
    expectError("224.0.0.1", 25, "10051 Network is unreachable");
    expectError("unknown.example", 25, "11001 ");
    socket.Connect("two.example", server.port());
    EXPECT_TRUE(arrived(1));
    // Without it each small mail waits 40 ms for a delayed acknowledgement.
    EXPECT_EQ(socket.findChild<QTcpSocket*>()->socketOption(QAbstractSocket::LowDelayOption), 1);
}

TEST_F(QtSockets, ErrorsThatTakeMinutesToHappenHaveTheirNumbersToo) {
    for (const auto& [error, number] : {std::pair(ECONNRESET, 10054),
                                        {ETIMEDOUT, 10060},
                                        {EHOSTUNREACH, 10065},
                                        {EADDRNOTAVAIL, 10049},
                                        {EACCES, 10013},
                                        {EMFILE, 10055},
                                        {EIO, 10050}}) {
        EXPECT_EQ(winsockNumber(error), number);
    }
    for (const auto& [words, number] : {std::pair("Connection timed out", 10060),
                                        {"Network unreachable", 10051},
                                        {"Host unreachable", 10065},
                                        {"No route to host", 10065},
                                        {"Unknown error", 10050}}) {
        EXPECT_EQ(winsockNumber(QAbstractSocket::NetworkError, words), number) << words;
    }
}

TEST_F(QtSockets, TheServersCloseEndsItsOwnConnectionAndNotTheNext) {
    for (size_t connection = 1; connection <= 2; ++connection) {
        answer = {"220 ready\r\n"};
        socket.Connect("127.0.0.1", server.port());
        EXPECT_TRUE(arrived(2 * connection - 1));
        EXPECT_TRUE(socket.isOpen());
        answer = {"221 bye\r\n", Answer::Then::Close};
        const auto asked = std::chrono::steady_clock::now();
        socket.SendData("QUIT\r\n");
        EXPECT_TRUE(waitUntil([&] { return !socket.isOpen(); }));
        EXPECT_TRUE(arrived(2 * connection));
        EXPECT_LE(socket.silence(), std::chrono::steady_clock::now() - asked);
    }
    EXPECT_TRUE(errors.empty());
}

TEST_F(QtSockets, NothingOfAnOldConnectionReachesTheNewOne) {
    answer = {"", Answer::Then::Continue, "220 old\r\n"};
    socket.Connect("127.0.0.1", server.port());
    ASSERT_TRUE(waitUntil([&] { return socket.findChild<QTcpSocket*>() != nullptr; }));
    // Its data is there, and its event on the way, when the next connection is asked for.
    QObject::connect(socket.findChild<QTcpSocket*>(), &QTcpSocket::readyRead, &socket, [&] {
        answer = {"220 new\r\n"};
        socket.Connect("127.0.0.1", server.port());
    });
    ASSERT_TRUE(waitUntil([&] { return !server.conversations().empty(); }));
    server.release(0);
    EXPECT_TRUE(arrived(1));
    EXPECT_TRUE(waitUntil([&] { return server.conversations()[0].ended; }));
    runPendingEvents();
    EXPECT_EQ(arrivals, std::vector<std::string>{"220 new\r\n"});
    EXPECT_TRUE(errors.empty());
}

} // namespace turnpost::desk
