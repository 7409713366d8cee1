#include "platform/qt/ClosingSocket.h"

#include <QTcpSocket>

#ifdef _WIN32
#include <winsock2.h>
#else
#include <sys/socket.h>
#endif

namespace turnpost {

namespace {

constexpr int longestSilence = 60000;     // milliseconds
constexpr int farewellAtProgramEnd = 100; // milliseconds

void endSending(qintptr descriptor) {
#ifdef _WIN32
    shutdown(static_cast<SOCKET>(descriptor), SD_SEND);
#else
    shutdown(static_cast<int>(descriptor), SHUT_WR);
#endif
}

} // namespace

ClosingSocket::ClosingSocket(QTcpSocket* closedSocket, QObject* parent)
    : QObject(parent), socket(closedSocket) {
    socket->setParent(this);
    connect(socket, &QTcpSocket::readyRead, this, [this] {
        socket->readAll();
        startWaiting();
    });
    connect(socket, &QTcpSocket::bytesWritten, this, [this] {
        endSendingWhenSent();
        startWaiting();
    });
    connect(socket, &QTcpSocket::disconnected, this, &QObject::deleteLater);
    startWaiting();
    endSendingWhenSent();
    socket->readAll();
}

void ClosingSocket::endSendingWhenSent() {
    if (socket->bytesToWrite() == 0) {
        endSending(socket->socketDescriptor());
    }
}

// Not QTimer::singleShot, whose timer would outlive this object by the rest of the minute.
void ClosingSocket::startWaiting() {
    timer.start(longestSilence, this);
}

void ClosingSocket::timerEvent(QTimerEvent*) {
    deleteLater();
}

ClosingSocket::~ClosingSocket() {
    socket->disconnect(this);
    if (socket->state() == QAbstractSocket::ConnectedState) {
        socket->waitForDisconnected(farewellAtProgramEnd);
    }
}

} // namespace turnpost
