#pragma once

#include <QHostAddress>
#include <QObject>
#include <QSocketNotifier>
#include <QTcpSocket>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace turnpost {

/// Makes one TCP connection: looks the host up, and tries its addresses one after another until one
/// answers. Calls back once, later, never from inside the constructor; not at all when it is
/// deleted before.
///
/// The toolkit's own way of connecting is not used where it can be avoided: when a server resets a
/// connection at once, it connects again, thousands of times a second and without an end.
class Connector final : public QObject {
  public:
    /// Takes over the connected socket.
    using Connected = std::function<void(QTcpSocket*)>;
    /// A Winsock number and the system's words.
    using Failed = std::function<void(int number, const std::string& description)>;

    Connector(const QString& host, std::uint16_t portNumber, Connected onConnected, Failed onFailed,
              QObject* parent);
    Connector(const Connector&) = delete;
    Connector& operator=(const Connector&) = delete;
    ~Connector() override;

  private:
    void tryNextAddress();
    bool beginConnect(const QHostAddress& address);
    void finishConnect();
    void giveUpAddress(int error);

    std::uint16_t port;
    Connected connected;
    Failed failed;
    QList<QHostAddress> addresses;
    std::unique_ptr<QSocketNotifier> writable;
    int descriptor = -1;
    int lastError = 0;
};

} // namespace turnpost
