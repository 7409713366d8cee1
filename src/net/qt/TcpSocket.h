#pragma once

#include "net/qt/TcpConnection.h"

namespace turnpost {

/// The program's TCP client. Each connection is a fresh object that carries no state over.
class TcpSocket final : public QObject, public Socket {
  public:
    explicit TcpSocket(QObject* parent = nullptr) : QObject(parent) {}

    void setEvents(SocketEvents* socketEvents) override {
        events_ = socketEvents;
        if (connection_ != nullptr) {
            connection_->setEvents(events_);
        }
    }
    void Connect(const std::string& host, std::uint16_t port) override {
        Close();
        connection_ = new TcpConnection(host, port, events_, this);
    }
    bool isOpen() const override { return connection_ != nullptr && connection_->isOpen(); }
    std::chrono::steady_clock::duration silence() const override {
        return connection_ == nullptr ? std::chrono::steady_clock::duration::max()
                                      : connection_->silence();
    }
    using Socket::SendData;
    void SendData(std::string bytes, Send when) override {
        if (connection_ != nullptr) {
            connection_->send(std::move(bytes), when);
        }
    }
    std::string GetData() override {
        return connection_ == nullptr ? std::string() : connection_->take();
    }
    void Close() override { leave(TcpConnection::Queue::Dropped); }
    void CloseWhenSent() override { leave(TcpConnection::Queue::Sent); }

  private:
    void leave(TcpConnection::Queue queue) {
        if (connection_ != nullptr) {
            std::exchange(connection_, nullptr)->leave(queue);
        }
    }

    SocketEvents* events_ = nullptr;
    TcpConnection* connection_ = nullptr;
};

} // namespace turnpost
