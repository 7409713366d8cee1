#pragma once

#include "net/qt/TcpConnection.h"

namespace turnpost {

/// The program's TCP client. Every connection is an object of its own, with nothing of the one
/// before it.
class TcpSocket final : public QObject, public Socket {
  public:
    explicit TcpSocket(QObject* parent = nullptr) : QObject(parent) {}

    void setEvents(SocketEvents* socketEvents) override {
        events = socketEvents;
        if (connection != nullptr) {
            connection->setEvents(events);
        }
    }
    void Connect(const std::string& host, std::uint16_t port) override {
        Close();
        connection = new TcpConnection(host, port, events, this);
    }
    bool isOpen() const override { return connection != nullptr && connection->isOpen(); }
    std::chrono::steady_clock::duration silence() const override {
        return connection == nullptr ? std::chrono::steady_clock::duration::max()
                                     : connection->silence();
    }
    using Socket::SendData;
    void SendData(std::string bytes, Send when) override {
        if (connection != nullptr) {
            connection->send(std::move(bytes), when);
        }
    }
    std::string GetData() override {
        return connection == nullptr ? std::string() : connection->take();
    }
    void Close() override { leave(TcpConnection::Queue::Dropped); }
    void CloseWhenSent() override { leave(TcpConnection::Queue::Sent); }

  private:
    void leave(TcpConnection::Queue queue) {
        if (connection != nullptr) {
            std::exchange(connection, nullptr)->leave(queue);
        }
    }

    SocketEvents* events = nullptr;
    TcpConnection* connection = nullptr;
};

} // namespace turnpost
