#include "LastingRun.h"
#include "TurnServer.h"

#include <QApplication>
#include <algorithm>
#include <iostream>

namespace {

constexpr int sendsForEachOpening = 5;

int serve(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const turnpost::lasting::TurnServer server;
    return QCoreApplication::exec();
}

bool run(int sends) {
    turnpost::lasting::LastingRun lasting;
    const bool flatSends = lasting.send(sends);
    const bool flatDialogs = lasting.openDialogs(std::max(1, sends / sendsForEachOpening));
    return flatSends && flatDialogs;
}

} // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    if (arguments == std::vector<std::string>{"--server"}) {
        return serve(argc, argv);
    }
    const int sends = arguments.size() == 1 ? std::atoi(arguments[0].c_str()) : 0;
    if (sends < 1) {
        std::cerr << "usage: turnpost_lasting SENDS\n";
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    QApplication::setStyle("Fusion");
    QApplication::setQuitOnLastWindowClosed(false);
    bool good = false;
    try {
        good = run(sends);
    } catch (const std::exception& failure) {
        std::cerr << "endurance: " << failure.what() << '\n';
    }
    std::cout << (good ? "Endurance: nothing grew\n" : "Endurance: FAILED\n");
    return good ? 0 : 1;
}
