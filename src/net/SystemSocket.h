#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace turnpost {

/// A TCP socket of the system. No call waits, except wait(). An error is the system's own number, 0
/// for none.
class SystemSocket {
  public:
    /// The result of sending or receiving: bytes have moved; none can move now; the peer has ended
    /// its sending in good order; or it failed with `error`.
    struct Transfer {
        enum State { Moved, WouldBlock, Ended, Failed } state = WouldBlock;
        size_t count = 0;
        int error = 0;
    };

    SystemSocket() = default;
    /// Takes ownership of a socket of the system; a negative number stands for none. Turns off the
    /// delay of small messages (TCP_NODELAY), which would also wait for a delayed acknowledgement.
    explicit SystemSocket(std::intptr_t opened);
    SystemSocket& operator=(SystemSocket&& other) noexcept {
        std::swap(handle_, other.handle_);
        std::swap(endedSending_, other.endedSending_);
        return *this;
    }
    ~SystemSocket() { close(); }

    bool isOpen() const { return handle_ >= 0; }
    std::intptr_t descriptor() const { return handle_; }

    /// Begins to connect a new socket to a numeric address (IPv4 or IPv6); returns an error that
    /// occurs at once. When the socket is writable, pendingError() tells whether it is connected.
    int connect(const std::string& address, std::uint16_t port);

    /// Returns and clears the pending error (SO_ERROR).
    int pendingError();

    /// Passes bytes to the system until it accepts no more. Moved when it has accepted all of them,
    /// else WouldBlock or Failed; `count` is the number of accepted bytes in any case.
    Transfer send(std::string_view bytes);

    /// Appends what has arrived, at most 64 KiB.
    Transfer receive(std::string& bytes);

    /// Ends the sending side in good order; receiving is still possible.
    void endSending();

    /// Waits at most `timeout` milliseconds until there is something to receive or, with `forRoom`,
    /// room for sending. The end and a break of the connection count as something to receive. False
    /// after a time-out.
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
