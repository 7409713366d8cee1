#pragma once

#include "net/Socket.h"

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace turnpost {

/// Records every connection with what was sent over it, and lets a test speak as the server. Throws
/// when the program uses the socket in a way that is not allowed.
class FakeSocket final : public Socket {
  public:
    /// "host:port" of each connection, and what was sent over it.
    std::vector<std::string> servers;
    std::vector<std::string> sent;
    std::chrono::seconds silent{0};

    void setEvents(SocketEvents* newEvents) override { events_ = newEvents; }

    void Connect(const std::string& host, std::uint16_t port) override {
        require(!open_, "Connect without closing the connection before");
        servers.push_back(host + ":" + std::to_string(port));
        sent.emplace_back();
        open_ = true;
    }

    using Socket::SendData;
    void SendData(std::string bytes, Send) override {
        require(open_, "SendData without a connection");
        sent.back() += bytes;
    }

    std::string GetData() override { return std::exchange(waiting_, {}); }

    void Close() override {
        open_ = false;
        waiting_.clear();
    }

    std::chrono::steady_clock::duration silence() const override { return silent; }

    void CloseWhenSent() override {
        require(sent.back().ends_with("QUIT\r\n"), "CloseWhenSent before the conversation's end");
        Close();
    }

    bool isOpen() const override { return open_; }

    /// One arrival of data. Delivered without a connection too, because late data must do no harm.
    void arrive(const std::string& bytes) {
        waiting_ += bytes;
        events_->DataArrival();
    }

    void fail(int number, const std::string& description) { events_->Error(number, description); }

  private:
    static void require(bool holds, const char* misuse) {
        if (!holds) {
            throw std::logic_error(misuse);
        }
    }

    SocketEvents* events_ = nullptr;
    std::string waiting_;
    bool open_ = false;
};

} // namespace turnpost
