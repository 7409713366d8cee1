#pragma once

#include "net/SystemSocket.h"

#include <QObject>
#include <QSocketNotifier>
#include <functional>

namespace turnpost::automation {

/// The server's end of one connection. When destroyed it closes; what has not been read becomes a
/// reset for the client.
class PeerSocket final : public QObject {
  public:
    using Received = std::function<void(const std::string& bytes)>;
    using Ended = std::function<void(bool byReset)>;

    /// Takes over a connected socket of the system. `onEnded` is called once, when the connection
    /// is closed by either side; not by the destructor.
    PeerSocket(std::intptr_t connected, Received onReceived, Ended onEnded);
    PeerSocket(const PeerSocket&) = delete;
    PeerSocket& operator=(const PeerSocket&) = delete;

    /// Sends in the background what the system does not take at once.
    void send(const std::string& bytes);

    /// Keeps bytes back until release(), or until the client has ended its side. They go out one by
    /// one.
    void keepBack(const std::string& bytes) { kept_ += bytes; }

    /// Sends what has been kept back, and reads again.
    void release();

    /// Leaves what the client sends in the system's buffers until release().
    void stopReading() { readable_.setEnabled(false); }

    /// An orderly end of stream; reading goes on.
    void endSending() { system_.endSending(); }

    /// Closes, by a reset if so wanted. What has not been sent yet is dropped.
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
