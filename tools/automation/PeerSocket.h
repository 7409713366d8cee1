#pragma once

#include "net/SystemSocket.h"

#include <QObject>
#include <QSocketNotifier>
#include <functional>

namespace turnpost::automation {

/// The server's end of one connection. The destructor closes it; if data is unread then, the client
/// gets a reset.
class PeerSocket final : public QObject {
  public:
    using Received = std::function<void(const std::string& bytes)>;
    using Ended = std::function<void(bool byReset)>;

    /// Takes over a connected socket of the system. `onEnded` is called once, when either side
    /// closes the connection; the destructor does not call it.
    PeerSocket(std::intptr_t connected, Received onReceived, Ended onEnded);
    PeerSocket(const PeerSocket&) = delete;
    PeerSocket& operator=(const PeerSocket&) = delete;

    /// Sends; what the system does not take at once goes out in the background.
    void send(const std::string& bytes);

    /// Keeps bytes back until release(), or until the client has ended its side. Then they are sent
    /// one by one.
    void keepBack(const std::string& bytes) { kept_ += bytes; }

    /// Sends the bytes that were kept back, and reads again.
    void release();

    /// Reads nothing until release(), so that what the client sends stays in the system's buffers.
    void stopReading() { readable_.setEnabled(false); }

    /// Sends an orderly end of stream, and goes on reading.
    void endSending() { system_.endSending(); }

    /// Closes in order or by a reset. Bytes that have not been sent yet are dropped.
    void close(bool byReset);

  private:
    void read();
    void write();
    void end(bool byReset);

    SystemSocket system_;
    Received received_;
    Ended ended_;
    QSocketNotifier readable_;
    QSocketNotifier writable_;
    std::string outgoing_;
    std::string kept_;
    bool readsWhenSent_ = false;
};

} // namespace turnpost::automation
