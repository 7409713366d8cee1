#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <functional>
#include <string>

namespace turnpost::desk {

/// The server's end of one connection. Works on a plain descriptor, since only that tells an end of
/// stream from a reset.
class PeerSocket final : public QObject {
  public:
    using Received = std::function<void(const std::string& bytes)>;
    using Ended = std::function<void(bool byReset)>;

    /// Takes over a connected descriptor. `onEnded` is called once, when the connection is closed
    /// by either side; not by the destructor.
    PeerSocket(int connectedDescriptor, Received onReceived, Ended onEnded);
    PeerSocket(const PeerSocket&) = delete;
    PeerSocket& operator=(const PeerSocket&) = delete;

    /// Closes; what has not been read becomes a reset for the client.
    ~PeerSocket() override;

    /// Sends in the background what the system does not take at once.
    void send(const std::string& bytes);

    /// Keeps bytes back until release(), or until the client has ended its side. They go out one by
    /// one.
    void keepBack(const std::string& bytes) { kept += bytes; }

    /// Sends what has been kept back, and reads again.
    void release();

    /// Leaves what the client sends in the system's buffers until release().
    void stopReading() { readable.setEnabled(false); }

    /// An orderly end of stream; reading goes on.
    void endSending();

    /// Closes, by a reset if so wanted. What has not been sent yet is dropped.
    void close(bool byReset);

  private:
    void read();
    void write();
    void end(bool byReset);

    int descriptor;
    Received received;
    Ended ended;
    QSocketNotifier readable;
    QSocketNotifier writable;
    std::string outgoing;
    std::string kept;
    bool readsWhenSent = false;
};

} // namespace turnpost::desk
