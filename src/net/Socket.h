#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <utility>

namespace turnpost {

/// What happens on a connection. Called on the user-interface thread, one event at a time, and
/// never from inside a call of Socket.
class SocketEvents {
  public:
    virtual ~SocketEvents() = default;

    /// Data has arrived; GetData returns it. Called once for each arrival.
    virtual void DataArrival() = 0;

    /// The connection failed or broke. `number` is the well-known Winsock number on every system
    /// (10061 refused, 11001 host not found, 10054 reset ...), `description` the socket's own
    /// words. An orderly close by the server is not an error and gives no event.
    virtual void Error(int number, const std::string& description) = 0;
};

/// A TCP client for one connection at a time. Events of a connection that has been closed, or
/// replaced by a new Connect, are never delivered.
class Socket {
  public:
    virtual ~Socket() = default;

    virtual void setEvents(SocketEvents* events) = 0;

    /// Requests a connection. The server's first data, or Error, tells whether it was made.
    virtual void Connect(const std::string& host, std::uint16_t port) = 0;

    /// True from Connect until the connection is closed by either side or has failed.
    virtual bool isOpen() const = 0;

    /// How long the server has sent nothing: the time since its last data, or since Connect.
    virtual std::chrono::steady_clock::duration silence() const = 0;

    enum class Send { Now, WithNext };

    /// Queues bytes for sending, in order. Bytes sent WithNext may wait for the next call and go
    /// out together with its bytes. Ignored without a connection.
    virtual void SendData(std::string bytes, Send when) = 0;
    void SendData(std::string bytes) { SendData(std::move(bytes), Send::Now); }

    /// All bytes that have arrived since the last call; empty when there are none.
    virtual std::string GetData() = 0;

    /// Ends the connection; does nothing when there is none. Bytes that the system has accepted are
    /// still delivered, followed by an orderly end of stream. Bytes still queued are dropped, so
    /// that an unfinished message is never completed after its send was ended.
    virtual void Close() = 0;

    /// Ends the connection for the caller at once, as Close does, but keeps the queued bytes: they
    /// are sent in the background, followed by an orderly end of stream. That is given up when no
    /// byte has moved for a minute, and when the program ends.
    virtual void CloseWhenSent() = 0;
};

} // namespace turnpost
