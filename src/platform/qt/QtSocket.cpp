#include "platform/qt/QtSocket.h"

#include "platform/qt/ClosingSocket.h"
#include "platform/qt/QtText.h"
#include "platform/qt/SocketErrors.h"

#include <QPointer>
#include <utility>

namespace turnpost {

void QtSocket::Connect(const std::string& host, std::uint16_t port) {
    Close();
    lastHeard = std::chrono::steady_clock::now();
    connector = new Connector(
        toQt(host), port, [this](QTcpSocket* made) { onConnected(made); },
        [this](int number, const std::string& description) { onFailed(number, description); },
        this);
}

void QtSocket::onFailed(int number, const std::string& description) {
    // Queued, so that the connector is not in the middle of something while a modal window is open.
    QMetaObject::invokeMethod(
        connector,
        [this, number, description] {
            std::exchange(connector, nullptr)->deleteLater();
            if (events != nullptr) {
                events->Error(number, description);
            }
        },
        Qt::QueuedConnection);
}

void QtSocket::onConnected(QTcpSocket* made) {
    std::exchange(connector, nullptr)->deleteLater();
    socket = made;
    socket->setParent(this);
    ended = false;
    connect(socket, &QTcpSocket::readyRead, this, &QtSocket::onReadyRead);
    connect(socket, &QTcpSocket::errorOccurred, this, &QtSocket::onError);
    // Without it each small mail waits 40 ms for a delayed acknowledgement.
    socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    probe.watch(socket->socketDescriptor());
}

// Queued, for two reasons: writing can find an error too, and no event may come from inside a call;
// and an event may open a modal window, whose event loop would delete the socket while it is still
// announcing the data. By then the connection may have been closed or replaced.
void QtSocket::deliver(const std::function<void()>& event) {
    QMetaObject::invokeMethod(
        this,
        [this, sender = QPointer<QTcpSocket>(socket), event] {
            if (events != nullptr && !sender.isNull() && sender == socket) {
                event();
            }
        },
        Qt::QueuedConnection);
}

void QtSocket::onReadyRead() {
    lastHeard = std::chrono::steady_clock::now();
    deliver([this] {
        if (socket->bytesAvailable() > 0) {
            events->DataArrival();
        }
    });
}

void QtSocket::onError(QAbstractSocket::SocketError error) {
    ended = true;
    if (error == QAbstractSocket::RemoteHostClosedError && !probe.wasReset()) {
        return;
    }
    const int number = winsockNumber(error, socket->errorString());
    const std::string description = number == connectionReset
                                        ? std::string("Connection reset by peer")
                                        : fromQt(socket->errorString());
    deliver([this, number, description] { events->Error(number, description); });
}

void QtSocket::SendData(const std::string& bytes) {
    if (socket == nullptr || socket->state() != QAbstractSocket::ConnectedState) {
        return;
    }
    socket->write(bytes.data(), static_cast<qint64>(bytes.size()));
    // To the system at once: what it has taken is delivered even when Close follows.
    socket->flush();
}

std::string QtSocket::GetData() {
    return socket == nullptr ? std::string() : socket->readAll().toStdString();
}

void QtSocket::close(Queue queue) {
    delete std::exchange(connector, nullptr);
    if (socket == nullptr) {
        return;
    }
    QTcpSocket* old = std::exchange(socket, nullptr);
    old->disconnect(this);
    probe.release();
    const bool keepsQueue = queue == Queue::Sent || old->bytesToWrite() == 0;
    if (old->state() == QAbstractSocket::ConnectedState && keepsQueue) {
        new ClosingSocket(old, this);
    } else {
        old->abort();
        old->deleteLater();
    }
}

} // namespace turnpost
