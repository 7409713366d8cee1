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
    void setEvents(SocketEvents* socketEvents) { events = socketEvents; }
    bool isOpen() const { return state == State::Connecting || state == State::Connected; }
    std::chrono::steady_clock::duration silence() const {
        return std::chrono::steady_clock::now() - lastHeard;
    }
    void send(std::string bytes, Socket::Send when);
    std::string take() { return std::exchange(incoming, {}); }

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

    SocketEvents* events;
    std::uint16_t port;
    QList<QHostAddress> addresses;
    State state = State::Connecting;
    SystemSocket system;
    QSocketNotifier readable{QSocketNotifier::Read, this};
    QSocketNotifier writable{QSocketNotifier::Write, this};
    QTimer timer{this};
    // When the server was heard last; once closing, when a byte moved last.
    std::chrono::steady_clock::time_point lastHeard = std::chrono::steady_clock::now();
    std::string incoming;
    std::deque<std::string> outgoing;
    size_t sent = 0; // Of the first.
    // Of sending; reported when what has arrived before has been read.
    int failure = 0;
};

} // namespace turnpost
