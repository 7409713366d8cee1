#include "Sending.h"

#include "net/qt/TcpSocket.h"
#include "smtp/SendDriver.h"

#include <QCoreApplication>

namespace turnpost::bench {

namespace {

class Watch final : public SendDisplay, public MessageBox {
  public:
    void setProgress(double) override {}
    void showBreak(const SendReport&) override {}
    void openReport() override { done = true; }
    void show(const std::string& text) override { throw std::runtime_error(text); }

    bool done = false;
};

class NoNetwork final : public Socket {
  public:
    void setEvents(SocketEvents* newEvents) override { events = newEvents; }
    void Connect(const std::string&, std::uint16_t) override {}
    bool isOpen() const override { return false; }
    std::chrono::steady_clock::duration silence() const override { return {}; }
    void SendData(std::string, Send) override {}
    std::string GetData() override { return "250 OK\r\n"; }
    void Close() override {}
    void CloseWhenSent() override {}

    SocketEvents* events = nullptr;
};

template <typename Step>
void send(const GameDetails& game, std::uint16_t port, Socket& socket, const Step& step) {
    Settings settings;
    settings.HostName = "Game Host";
    settings.HostEmail = "host@example.org";
    settings.SmtpServer = "127.0.0.1:" + std::to_string(port);
    const MessageTemplate message{"Turn <<GY>> of <<GN>>", "Hello,\r\n\r\nhere is your turn.\r\n"};
    const AttachmentChoices attachments{1, 0, {}};
    SendReport report;
    Watch watch;
    SendDriver driver({game, message, attachments}, settings, report, socket, watch, watch);
    driver.butSend_Click();
    while (!watch.done) {
        step();
    }
    for (size_t row = 0; row < game.rows.size(); ++row) {
        if (report[row] != "Email sent OK") {
            throw std::runtime_error(report[row]);
        }
    }
}

} // namespace

void sendTurnpost(const GameDetails& game, std::uint16_t port) {
    TcpSocket socket;
    send(game, port, socket,
         [] { QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents); });
}

void sendToNobody(const GameDetails& game) {
    NoNetwork network;
    send(game, 25, network, [&network] { network.events->DataArrival(); });
}

} // namespace turnpost::bench
