#pragma once

#include "net/Socket.h"
#include "net/SystemSocket.h"

#include <QHostAddress>
#include <QObject>
#include <QSocketNotifier>
#include <QTimer>
#include <deque>

namespace turnpost {

/// One TCP connection, from the look-up of the host to its end; a socket of the toolkit's own
/// connects again by itself when the server resets it early. Its events come from the event loop,
/// never from inside a call, and none after leave().
class TcpConnection final : public QObject {
  public:
    /// Looks the host up, and tries its addresses one after another until one answers.
    TcpConnection(const std::string& host, std::uint16_t serverPort, SocketEvents* socketEvents,
                  QObject* parent);
    TcpConnection(const TcpConnection&) = delete;
    TcpConnection& operator=(const TcpConnection&) = delete;

    /// At the program's end: a connection that is being seen off gets a moment to end in order.
    ~TcpConnection() override;

    // As the operations of Socket.
    void setEvents(SocketEvents* socketEvents) { events_ = socketEvents; }
    bool isOpen() const { return state_ == State::Connecting || state_ == State::Connected; }
    std::chrono::steady_clock::duration silence() const {
        return std::chrono::steady_clock::now() - lastHeard_;
    }
    void send(std::string bytes, Socket::Send when);
    std::string take() { return std::exchange(incoming_, {}); }

    enum class Queue { Dropped, Sent };

    /// The owner's last call. The connection sees itself off in the background and deletes itself:
    /// it sends what is queued, if so wanted, ends the sending side, and reads until the server has
    /// closed too. Closing at once instead would answer the server's late reply to QUIT with a
    /// reset, which may make it drop the mail it has just accepted. Gives up when no byte has moved
    /// for a minute.
    void leave(Queue queue);

  private:
    enum class State { Connecting, Connected, Closing, Ended };

    void tryNextAddress(int error);
    void onWritable();
    void lookAgain();
    void finishConnect(int error);
    void sendQueued();
    void dropQueued();
    void receive();
    void end(int error);
    void report(int number, const std::string& description);

    SocketEvents* events_;
    std::uint16_t port_;
    QList<QHostAddress> addresses_;
    State state_ = State::Connecting;
    SystemSocket system_;
    QSocketNotifier readable_{QSocketNotifier::Read, this};
    QSocketNotifier writable_{QSocketNotifier::Write, this};
    QTimer timer_{this};
    // When the server was heard last; once closing, when a byte moved last.
    std::chrono::steady_clock::time_point lastHeard_ = std::chrono::steady_clock::now();
    std::string incoming_;
    std::deque<std::string> outgoing_;
    size_t sent_ = 0; // Of the first.
    // Of sending; reported when what has arrived before has been read.
    int failure_ = 0;
};

} // namespace turnpost
