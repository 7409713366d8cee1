#pragma once

#include "net/Socket.h"
#include "net/SystemSocket.h"

#include <QHostAddress>
#include <QObject>
#include <QSocketNotifier>
#include <QTimer>
#include <deque>

namespace turnpost {

/// One TCP connection, from the look-up of the host to its end. QTcpSocket is not used: it
/// reconnects silently after an early reset. Events come from the event loop, never from inside a
/// call, and none after leave(). The notifiers and the timer are off during the look-up; then:
///
/// | state      | readable             | writable       | timer, 100 ms       | leave() leads to |
/// |------------|----------------------|----------------|---------------------|------------------|
/// | Connecting | off                  | on             | asks for the result | Ended, deletion  |
/// | Connected  | on, except from an   | on while the   | receives while      | Closing          |
/// |            | arrival to its event | system is full | readable is on      |                  |
/// | Closing    | on; what arrives     | the same       | the same; Ended     | (never called)   |
/// |            | is dropped           |                | when a minute still |                  |
/// | Ended      | off                  | off            | off                 | deletion         |
///
/// The server's end of stream and errors lead to Ended; a failed connect only after the last
/// address. From Closing, deletion follows.
class TcpConnection final : public QObject {
  public:
    /// Looks the host up, and tries its addresses one after another until one answers.
    TcpConnection(const std::string& host, std::uint16_t serverPort, SocketEvents* socketEvents,
                  QObject* parent);
    TcpConnection(const TcpConnection&) = delete;
    TcpConnection& operator=(const TcpConnection&) = delete;

    /// At the program's end, a connection that is closing gets a moment to do so in order.
    ~TcpConnection() override;

    // The same operations as in Socket.
    void setEvents(SocketEvents* socketEvents) { events_ = socketEvents; }
    bool isOpen() const { return state_ == State::Connecting || state_ == State::Connected; }
    std::chrono::steady_clock::duration silence() const {
        return std::chrono::steady_clock::now() - lastHeard_;
    }
    void send(std::string bytes, Socket::Send when);
    std::string take() { return std::exchange(incoming_, {}); }

    enum class Queue { Dropped, Sent };

    /// The owner's last call. The connection closes in the background and deletes itself: it sends
    /// or drops what is queued, ends the sending side, and reads until the server has closed too.
    /// If it closed at once, the system would answer the server's late reply to QUIT with a reset,
    /// and the server might then drop the mail that it has just accepted. Gives up when no byte has
    /// moved for a minute.
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
    // When data arrived last; in Closing, when a byte moved last in either direction.
    std::chrono::steady_clock::time_point lastHeard_ = std::chrono::steady_clock::now();
    std::string incoming_;
    std::deque<std::string> outgoing_;
    size_t sent_ = 0; // Bytes of outgoing_.front() that the system has taken.
    // The error of the last send; reported once all received data has been read.
    int failure_ = 0;
};

} // namespace turnpost
