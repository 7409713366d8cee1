#pragma once

#include "automation/PeerSocket.h"

#include <QObject>
#include <QSocketNotifier>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace turnpost::automation {

/// The point of a conversation at which the server has to answer.
enum class Point { Greeting, Helo, Mail, Recipient, Data, InMessage, Message, Quit };

struct Answer {
    /// Close is an orderly end of stream. Pause stops reading until release().
    enum class Then { Continue, Pause, Close, Reset };

    /// Sent in one piece; an empty text sends nothing.
    std::string bytes;
    Then then = Then::Continue;
    /// Kept back until release(), or until the client has ended its side; then sent byte by byte.
    std::string late = {};
};

/// The server's answer at each point. Takes the number of the connection (from 0) and the line that
/// was just received.
using Script = std::function<Answer(Point, int connection, const std::string& line)>;

/// Accepts everything, with the answers of a common server.
Answer goodAnswer(Point point);

/// A real TCP server on a free loopback port that follows a script. Its segments and buffers have
/// the sizes of a common network, not of the loopback, so that a client cannot send half a megabyte
/// before the server reads. Runs on the test's event loop.
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

    explicit ScriptedServer(Script script);
    ScriptedServer(const ScriptedServer&) = delete;
    ScriptedServer& operator=(const ScriptedServer&) = delete;

    std::uint16_t port() const { return listeningPort_; }

    /// "127.0.0.1:port", as the host would enter it.
    std::string address() const { return "127.0.0.1:" + std::to_string(listeningPort_); }

    const std::deque<Conversation>& conversations() const { return records_; }

    /// Sends the bytes that were kept back on a connection, or ends its pause.
    void release(int connection);

    /// From now on Point::InMessage is reached when this many bytes of a message have arrived; a
    /// shorter message never reaches it. Before this call it is reached with the first bytes.
    void setMidMessage(size_t bytes) { midMessage_ = bytes; }

    /// Closes and forgets all connections; the next one is number 0. Do not call it from inside the
    /// script.
    void forget();

  private:
    struct Peer {
        std::unique_ptr<PeerSocket> socket;
        std::string buffer;
        bool inMessage = false;
        bool announcedMessage = false;
        bool paused = false;
        bool over = false;
    };

    void accept();
    void takeInput(int connection, const std::string& bytes);
    void answer(int connection, Point point, const std::string& line);
    void end(int connection, bool byReset);

    Script script_;
    SystemSocket listener_;
    std::uint16_t listeningPort_ = 0;
    QSocketNotifier notifier_{QSocketNotifier::Read};
    std::deque<Peer> peers_;
    std::deque<Conversation> records_;
    size_t midMessage_ = 0;
};

} // namespace turnpost::automation
