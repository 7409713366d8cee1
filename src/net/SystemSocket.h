#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace turnpost {

/// A TCP socket of the system whose calls never wait, but for wait(). An error is the system's own
/// number, 0 for none.
class SystemSocket {
  public:
    /// What came of sending or receiving: bytes have moved; not now; the other side has ended its
    /// sending in good order; or `error`.
    struct Transfer {
        enum State { Moved, WouldBlock, Ended, Failed } state = WouldBlock;
        size_t count = 0;
        int error = 0;
    };

    SystemSocket() = default;
    /// Takes over a socket of the system; a negative one is none. Its bytes go out at once: a small
    /// message that waits for more to join it would wait for a delayed acknowledgement, too.
    explicit SystemSocket(std::intptr_t opened);
    SystemSocket& operator=(SystemSocket&& other) noexcept {
        std::swap(handle_, other.handle_);
        std::swap(endedSending_, other.endedSending_);
        return *this;
    }
    ~SystemSocket() { close(); }

    bool isOpen() const { return handle_ >= 0; }
    std::intptr_t descriptor() const { return handle_; }

    /// Begins a connection to a numeric address, IPv4 or IPv6, by a fresh socket. Once that is
    /// writable, pendingError() tells how it went.
    int connect(const std::string& address, std::uint16_t port);

    /// What has happened to the connection since the last call of any kind, and forgets it.
    int pendingError();

    /// Hands bytes to the system until it takes no more. Moved when it has taken all of them, else
    /// WouldBlock or Failed; `count` tells how many it took in any case.
    Transfer send(std::string_view bytes);

    /// Appends what has arrived, a limited piece at a time.
    Transfer receive(std::string& bytes);

    /// Ends the sending side in good order; reading goes on.
    void endSending();

    /// Waits until there is something to receive, the other side's end and a broken connection
    /// included, or room for sending if so wanted; no longer than this many milliseconds. True when
    /// there is.
    bool wait(bool forRoom, int timeout);

    void close();

  private:
    std::intptr_t handle_ = -1;
    bool endedSending_ = false;
};

/// The well-known Winsock number of an error, the same on every system.
int winsockNumber(int error);

/// The system's own words for an error, in its language.
std::string socketErrorText(int error);

} // namespace turnpost
