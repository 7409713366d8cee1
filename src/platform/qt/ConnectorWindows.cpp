#include "platform/qt/Connector.h"

#include "platform/qt/QtText.h"
#include "platform/qt/SocketErrors.h"

#include <QNetworkProxy>

namespace turnpost {

// A reset socket can't be connected again there, so the toolkit's own way does.
Connector::Connector(const QString& host, std::uint16_t portNumber, Connected onConnected,
                     Failed onFailed, QObject* parent)
    : QObject(parent), port(portNumber), connected(std::move(onConnected)),
      failed(std::move(onFailed)) {
    auto* made = new QTcpSocket(this);
    made->setProxy(QNetworkProxy::NoProxy);
    connect(made, &QTcpSocket::connected, this, [this, made] {
        made->disconnect(this);
        connected(made);
    });
    connect(
        made, &QTcpSocket::errorOccurred, this,
        [this, made](QAbstractSocket::SocketError error) {
            failed(winsockNumber(error, made->errorString()), fromQt(made->errorString()));
        },
        Qt::QueuedConnection);
    QMetaObject::invokeMethod(
        made, [this, made, host] { made->connectToHost(host, port); }, Qt::QueuedConnection);
}

Connector::~Connector() = default;

} // namespace turnpost
