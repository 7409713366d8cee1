#include "platform/qt/Connector.h"

#include "platform/qt/QtText.h"
#include "platform/qt/SocketErrors.h"

#include <QHostInfo>
#include <arpa/inet.h>
#include <cerrno>
#include <cstring>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace turnpost {

namespace {

struct SocketAddress {
    sockaddr_storage storage{};
    socklen_t size = 0;

    SocketAddress(const QHostAddress& address, std::uint16_t port) {
        if (address.protocol() == QAbstractSocket::IPv6Protocol) {
            sockaddr_in6 v6{};
            v6.sin6_family = AF_INET6;
            v6.sin6_port = htons(port);
            const Q_IPV6ADDR bytes = address.toIPv6Address();
            std::memcpy(&v6.sin6_addr, &bytes, sizeof v6.sin6_addr);
            v6.sin6_scope_id = address.scopeId().toUInt();
            size = sizeof v6;
            std::memcpy(&storage, &v6, size);
        } else {
            sockaddr_in v4{};
            v4.sin_family = AF_INET;
            v4.sin_port = htons(port);
            v4.sin_addr.s_addr = htonl(address.toIPv4Address());
            size = sizeof v4;
            std::memcpy(&storage, &v4, size);
        }
    }
};

} // namespace

Connector::Connector(const QString& host, std::uint16_t portNumber, Connected onConnected,
                     Failed onFailed, QObject* parent)
    : QObject(parent), port(portNumber), connected(std::move(onConnected)),
      failed(std::move(onFailed)) {
    QHostAddress address;
    if (address.setAddress(host)) {
        // The toolkit would ask for the name of the address first, and wait where nobody answers.
        addresses = {address};
        QMetaObject::invokeMethod(this, &Connector::tryNextAddress, Qt::QueuedConnection);
        return;
    }
    QHostInfo::lookupHost(host, this, [this](const QHostInfo& found) {
        if (found.addresses().isEmpty()) {
            failed(hostNotFound, fromQt(found.errorString()));
            return;
        }
        addresses = found.addresses();
        tryNextAddress();
    });
}

Connector::~Connector() {
    if (descriptor >= 0) {
        close(descriptor);
    }
}

void Connector::tryNextAddress() {
    while (!addresses.isEmpty()) {
        if (beginConnect(addresses.takeFirst())) {
            return;
        }
    }
    failed(winsockNumber(lastError), std::generic_category().message(lastError));
}

bool Connector::beginConnect(const QHostAddress& address) {
    const SocketAddress target(address, port);
    const auto* generic = reinterpret_cast<const sockaddr*>(&target.storage);
    descriptor = socket(generic->sa_family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    if (descriptor < 0 ||
        (::connect(descriptor, generic, target.size) != 0 && errno != EINPROGRESS)) {
        giveUpAddress(errno);
        return false;
    }
    writable = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Write);
    QObject::connect(writable.get(), &QSocketNotifier::activated, this, &Connector::finishConnect);
    return true;
}

void Connector::finishConnect() {
    // The notifier is calling, so it can't go yet.
    writable->setEnabled(false);
    writable.release()->deleteLater();
    int error = 0;
    socklen_t size = sizeof error;
    getsockopt(descriptor, SOL_SOCKET, SO_ERROR, &error, &size);
    if (error != 0) {
        giveUpAddress(error);
        tryNextAddress();
        return;
    }
    auto made = std::make_unique<QTcpSocket>();
    if (!made->setSocketDescriptor(descriptor)) {
        giveUpAddress(ECONNRESET);
        tryNextAddress();
        return;
    }
    descriptor = -1;
    connected(made.release());
}

void Connector::giveUpAddress(int error) {
    lastError = error;
    if (descriptor >= 0) {
        close(descriptor);
        descriptor = -1;
    }
}

} // namespace turnpost
