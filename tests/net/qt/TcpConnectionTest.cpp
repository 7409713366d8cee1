#include "net/qt/TcpSocket.h"

#include "automation/ScriptedServer.h"
#include "automation/Waiting.h"

#include <QThread>
#include <atomic>
#include <future>
#include <gtest/gtest.h>

#ifndef _WIN32
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/socket.h>

// Sending fails on this socket as it does in a system that is short of memory.
static int failingSocket = -1;

extern "C" ssize_t send(int socket, const void* bytes, size_t size, int flags) {
    static const auto system = reinterpret_cast<decltype(&send)>(dlsym(RTLD_NEXT, "send"));
    if (socket == failingSocket) {
        errno = ENOBUFS;
        return -1;
    }
    return system(socket, bytes, size, flags);
}
#endif

namespace turnpost::automation {

class TcpConnections : public testing::Test, public SocketEvents {
  protected:
    void DataArrival() override { log += socket->GetData(); }
    void Error(int number, const std::string&) override { log += std::to_string(number); }

    void connect(std::uint16_t port) {
        log.clear();
        socket = std::make_unique<TcpSocket>();
        socket->setEvents(this);
        socket->Connect("127.0.0.1", port);
        ASSERT_TRUE(waitUntil([this] { return log == goodAnswer(Point::Greeting).bytes; }));
    }

    void queue(size_t length) {
        socket->SendData("DATA\r\n" + std::string(length, 'x') + "\r\n.\r\nQUIT\r\n");
        socket->CloseWhenSent();
    }

    // The server's, which leaves a message unread for now.
    static Answer pausing(Point point, int, const std::string&) {
        return point == Point::Data ? Answer{"354 go\r\n", Answer::Then::Pause} : goodAnswer(point);
    }

    std::unique_ptr<TcpSocket> socket;
    std::string log;
};

// The program's end waits a tenth of a second, in which the server may not get its turn on a
// machine under load; so it has some tries.
TEST_F(TcpConnections, SendWhatIsQueuedAtTheProgramsEnd) {
    ScriptedServer::Conversation seen;
    for (int tries = 10; tries > 0 && !seen.delivered; --tries) {
        std::promise<std::uint16_t> port;
        std::atomic<bool> ending = false;
        const std::unique_ptr<QThread> thread(QThread::create([&] {
            ScriptedServer server(pausing);
            port.set_value(server.port());
            waitUntil([&] { return ending && !server.conversations()[0].commands.empty(); });
            server.release(0);
            waitUntil([&] { return server.conversations()[0].ended; });
            seen = server.conversations()[0];
        }));
        thread->start();
        connect(port.get_future().get());
        queue(500000);
        ending = true;
        socket.reset();
        ASSERT_TRUE(thread->wait(60000));
    }
    EXPECT_TRUE(seen.delivered && seen.message.size() == 500002 && !seen.wasReset);
}

#ifndef _WIN32
TEST_F(TcpConnections, EndWithTheProgramThoughTheServerTakesNothing) {
    ScriptedServer server(pausing);
    connect(server.port());
    queue(5000000);
    socket.reset();
    ASSERT_TRUE(waitUntil([&] { return !server.conversations()[0].commands.empty(); }));
    server.release(0);
    EXPECT_TRUE(waitUntil([&] { return server.conversations()[0].ended; }));
    EXPECT_FALSE(server.conversations()[0].delivered) << "a part passes for the whole";
}

TEST_F(TcpConnections, ThatCannotSendFailWithTheSystemsError) {
    ScriptedServer server(pausing);
    connect(server.port());
    const int descriptor = static_cast<int>(socket->findChild<QSocketNotifier*>()->socket());
    EXPECT_NE(fcntl(descriptor, F_GETFD) & FD_CLOEXEC, 0) << "programs would get the socket";
    failingSocket = descriptor;
    socket->SendData("HELO host\r\n");
    failingSocket = -1;
    socket->SendData("MAIL FROM:host\r\n");
    EXPECT_TRUE(waitUntil([&] { return server.conversations()[0].ended; }));
    runPendingEvents();
    EXPECT_EQ(log, goodAnswer(Point::Greeting).bytes + "10055");
    EXPECT_FALSE(socket->isOpen());
    EXPECT_EQ(server.conversations()[0].commands, std::vector<std::string>());
}
#endif

} // namespace turnpost::automation
