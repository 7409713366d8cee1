#include "platform/qt/SocketErrors.h"

#include <cerrno>

namespace turnpost {

namespace {

constexpr int accessDenied = 10013;
constexpr int addressInUse = 10048;
constexpr int addressNotAvailable = 10049;
constexpr int networkDown = 10050;
constexpr int networkUnreachable = 10051;
constexpr int noBufferSpace = 10055;
constexpr int operationNotSupported = 10045;
constexpr int timedOut = 10060;
constexpr int refused = 10061;
constexpr int hostUnreachable = 10065;

} // namespace

int winsockNumber(QAbstractSocket::SocketError error, const QString& description) {
    switch (error) {
    case QAbstractSocket::ConnectionRefusedError:
        return refused;
    case QAbstractSocket::RemoteHostClosedError:
        return connectionReset;
    case QAbstractSocket::HostNotFoundError:
        return hostNotFound;
    case QAbstractSocket::SocketAccessError:
        return accessDenied;
    case QAbstractSocket::SocketResourceError:
        return noBufferSpace;
    case QAbstractSocket::SocketTimeoutError:
        return timedOut;
    case QAbstractSocket::AddressInUseError:
        return addressInUse;
    case QAbstractSocket::SocketAddressNotAvailableError:
        return addressNotAvailable;
    case QAbstractSocket::UnsupportedSocketOperationError:
        return operationNotSupported;
    default:
        break;
    }
    if (description == "Network unreachable") {
        return networkUnreachable;
    }
    if (description == "Connection timed out") {
        return timedOut;
    }
    if (description == "Host unreachable" || description == "No route to host") {
        return hostUnreachable;
    }
    return networkDown;
}

int winsockNumber(int systemError) {
    switch (systemError) {
    case ECONNREFUSED:
        return refused;
    case ECONNRESET:
        return connectionReset;
    case ETIMEDOUT:
        return timedOut;
    case EHOSTUNREACH:
        return hostUnreachable;
    case ENETUNREACH:
        return networkUnreachable;
    case EADDRNOTAVAIL:
        return addressNotAvailable;
    case EACCES:
    case EPERM:
        return accessDenied;
    case EMFILE:
    case ENFILE:
    case ENOBUFS:
        return noBufferSpace;
    default:
        return networkDown;
    }
}

} // namespace turnpost
