#pragma once

#include "platform/Socket.h"
#include "platform/qt/ConnectionProbe.h"
#include "platform/qt/Connector.h"

#include <QObject>
#include <QTcpSocket>
#include <functional>

namespace turnpost {

/// The program's TCP client. Every connection gets a fresh socket; what an old one still reports
/// falls away with it.
class QtSocket final : public QObject, public Socket {
  public:
    explicit QtSocket(QObject* parent = nullptr) : QObject(parent) {}

    void setEvents(SocketEvents* socketEvents) override { events = socketEvents; }
    void Connect(const std::string& host, std::uint16_t port) override;
    bool isOpen() const override { return connector != nullptr || (socket != nullptr && !ended); }
    std::chrono::steady_clock::duration silence() const override {
        return std::chrono::steady_clock::now() - lastHeard;
    }
    void SendData(const std::string& bytes) override;
    std::string GetData() override;
    void Close() override { close(Queue::Dropped); }
    void CloseWhenSent() override { close(Queue::Sent); }

  private:
    enum class Queue { Dropped, Sent };

    void close(Queue queue);
    void deliver(const std::function<void()>& event);
    void onConnected(QTcpSocket* made);
    void onFailed(int number, const std::string& description);
    void onReadyRead();
    void onError(QAbstractSocket::SocketError error);

    SocketEvents* events = nullptr;
    // There while the connection is being made.
    Connector* connector = nullptr;
    QTcpSocket* socket = nullptr;
    bool ended = false;
    std::chrono::steady_clock::time_point lastHeard;
    ConnectionProbe probe;
};

} // namespace turnpost
