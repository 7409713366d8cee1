// Sends a game, and prints for each time: milliseconds, and the longest time in which the event
// loop did nothing else. Then the memory in KiB: before the first send, and at most.
//   bench_send turnpost|blocking SERVER FOLDER PLAYERS BYTES TIMES
#include "BenchGame.h"
#include "BlockingClient.h"
#include "platform/qt/TcpSocket.h"
#include "smtp/SendDriver.h"
#include "smtp/ServerAddress.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <iostream>

using namespace turnpost;

namespace {

class Watch final : public SendDisplay, public MessageBox {
  public:
    void setProgress(double) override {}
    void openReport() override { QCoreApplication::quit(); }
    void show(const std::string& text) override { throw std::runtime_error(text); }
};

// The most so far, as the system counts it.
long peakMemory() {
    QFile status("/proc/self/status");
    status.open(QIODevice::ReadOnly);
    const QByteArray text = status.readAll();
    return text.mid(text.indexOf("VmHWM:") + 6).trimmed().split(' ').first().toLong();
}

double milliseconds(const QElapsedTimer& timer) {
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

// Gives the longest time between two turns of the event loop.
double sendTurnpost(const GameDetails& game, const std::string& server) {
    const MessageTemplate message{"Turn <<GY>> of <<GN>>", bench::body};
    const AttachmentChoices attachments{1, 0, {}};
    const Settings settings = bench::benchSettings(server);
    SendReport report;
    TcpSocket socket;
    Watch watch;
    SendDriver driver({game, message, attachments}, settings, report, socket, watch, watch);
    double longest = 0;
    QElapsedTimer turn;
    QTimer pulse;
    pulse.setTimerType(Qt::PreciseTimer);
    QObject::connect(&pulse, &QTimer::timeout, [&] {
        longest = std::max(longest, milliseconds(turn));
        turn.start();
    });
    turn.start();
    pulse.start(1);
    driver.butSend_Click();
    QCoreApplication::exec();
    longest = std::max(longest, milliseconds(turn));
    for (size_t i = 0; i < game.rows.size(); ++i) {
        if (game.rows[i].IncludePlayer == 1 && report[i] != "Email sent OK") {
            throw std::runtime_error(report[i]);
        }
    }
    return longest;
}

void measure(char** arguments) {
    const bool blocking = arguments[0] == std::string("blocking");
    const std::string server = arguments[1];
    const int players = std::stoi(arguments[3]);
    bench::makeBenchGame(arguments[2], players, std::stoul(arguments[4]));
    const GameDetails game = bench::benchGame(arguments[2], players);
    // What making the files took does not count.
    QFile forget("/proc/self/clear_refs");
    forget.open(QIODevice::WriteOnly);
    forget.write("5");
    forget.close();
    const long before = peakMemory();
    for (int time = 0; time < std::stoi(arguments[5]); ++time) {
        QElapsedTimer timer;
        timer.start();
        double gap = 0;
        if (blocking) {
            bench::sendBlocking(game, parseServerAddress(server).value().port);
        } else {
            gap = sendTurnpost(game, server);
        }
        std::cout << milliseconds(timer) << ' ' << gap << '\n';
    }
    std::cout << before << ' ' << peakMemory() << '\n';
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    try {
        if (argc == 7) {
            measure(argv + 1);
            return 0;
        }
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n';
    }
    return 1;
}
