#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace turnpost::desk {

/// Where a conversation stands when the server is asked for an answer.
enum class Point { Greeting, Helo, Mail, Recipient, Data, InMessage, Message, Quit };

struct Answer {
    enum class Then { Continue, Close, Reset };

    /// Sent in one piece; empty says nothing.
    std::string bytes;
    Then then = Then::Continue;
    /// Kept back until release(), or until the client has ended its side.
    bool held = false;
};

/// What the server says at each point, given the number of the connection (from 0) and the line it
/// has just received.
using Script = std::function<Answer(Point, int connection, const std::string& line)>;

/// Accepts everything as a common server does.
Answer goodAnswer(Point point);

/// A real TCP server on a free loopback port that follows a script. Works on plain descriptors,
/// since only they tell an end of stream from a reset. Runs on the test's own event loop.
class ScriptedServer final : public QObject {
  public:
    struct Conversation {
        /// Command lines without line ends, in order.
        std::vector<std::string> commands;
        /// The message as received, periods still doubled, without the final line.
        std::string message;
        /// Messages that were accepted with a 250.
        bool delivered = false;
        bool ended = false;
        bool wasReset = false;
    };

    explicit ScriptedServer(Script conversationScript);
    ScriptedServer(const ScriptedServer&) = delete;
    ScriptedServer& operator=(const ScriptedServer&) = delete;
    ~ScriptedServer() override;

    std::uint16_t port() const { return listeningPort; }

    /// "127.0.0.1:port", as the host would enter it.
    std::string address() const { return "127.0.0.1:" + std::to_string(listeningPort); }

    const std::deque<Conversation>& conversations() const { return records; }

    /// Sends what has been held back on a connection.
    void release(int connection);

  private:
    struct Peer {
        int descriptor = -1;
        std::unique_ptr<QSocketNotifier> notifier;
        std::string buffer;
        bool inMessage = false;
        bool announcedMessage = false;
        std::string held;
    };

    void accept();
    void read(int connection);
    void takeInput(int connection);
    void answer(int connection, Point point, const std::string& line);
    void end(int connection, bool reset);

    Script script;
    int listener = -1;
    std::uint16_t listeningPort = 0;
    std::unique_ptr<QSocketNotifier> notifier;
    std::deque<Peer> peers;
    std::deque<Conversation> records;
};

} // namespace turnpost::desk
