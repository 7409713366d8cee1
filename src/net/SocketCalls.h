#pragma once

// The systems' socket calls have the same names, arguments and results. What differs is here, for
// SystemSocket and whoever sets up sockets of another kind.

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

/// True for the "errors" of a call that did not wait.
bool isInProgress(int error);

/// Makes the socket's calls never wait, and keeps it from programs that are started.
void makeNonBlocking(SocketHandle handle);

void closeSocket(SocketHandle handle);

/// As poll(2).
int pollSocket(pollfd& polled, int timeout);

} // namespace turnpost
