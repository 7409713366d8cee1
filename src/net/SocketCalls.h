#pragma once

// The socket calls of the systems have the same names, arguments and results. The differences are
// here, for SystemSocket and for the test tools, which have sockets of their own.

#ifdef _WIN32
#include <winsock2.h>
#include <ws2tcpip.h>
#else
#include <cerrno>
#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#endif

namespace turnpost {

#ifdef _WIN32
using SocketHandle = SOCKET;
using SocketLength = int;
inline constexpr int addressError = WSAEADDRNOTAVAIL;
inline constexpr int resetError = WSAECONNRESET;
inline constexpr int brokenPipeError = WSAESHUTDOWN;
inline constexpr int noSignal = 0;
#else
using SocketHandle = int;
using SocketLength = size_t;
inline constexpr int addressError = EADDRNOTAVAIL;
inline constexpr int resetError = ECONNRESET;
inline constexpr int brokenPipeError = EPIPE;
inline constexpr int noSignal = MSG_NOSIGNAL;
#endif

/// The error of the last call.
int lastSocketError();

/// True for EAGAIN, EINPROGRESS, WSAEWOULDBLOCK.
bool isInProgress(int error);

/// Makes the socket's calls return at once, and keeps programs that are started from inheriting it.
void makeNonBlocking(SocketHandle handle);

void closeSocket(SocketHandle handle);

/// poll(2) for one socket; `timeout` in milliseconds.
int pollSocket(pollfd& polled, int timeout);

} // namespace turnpost
