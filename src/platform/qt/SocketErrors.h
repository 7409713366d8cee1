#pragma once

#include <QAbstractSocket>

namespace turnpost {

inline constexpr int connectionReset = 10054;
inline constexpr int hostNotFound = 11001;

/// The well-known Winsock number of a socket error, the same on every system. `description` is the
/// socket's own: the toolkit has one code for several network errors and tells them apart only
/// there.
int winsockNumber(QAbstractSocket::SocketError error, const QString& description);

/// The same for the system's own error number (errno).
int winsockNumber(int systemError);

} // namespace turnpost
