#include "DemoRun.h"

#include <QApplication>
#include <QFileInfo>
#include <iostream>

namespace {

constexpr int pauseForAPerson = 1200; // milliseconds

bool hasDisplay() {
    return !qEnvironmentVariableIsEmpty("DISPLAY") ||
           !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

} // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    if (arguments.empty() || (arguments.size() > 1 && arguments[0] != "--headless")) {
        std::cerr << "usage: turnpost_demo [--headless] FOLDER\n";
        return 2;
    }
    const bool headless = arguments[0] == "--headless" || !hasDisplay();
    if (headless) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication application(argc, argv);
    turnpost::Desktop::prepareToolkit();
    const QString folder = QFileInfo(QString::fromStdString(arguments.back())).absoluteFilePath();
    turnpost::demo::DemoRun demo(folder.toStdString());
    bool good = false;
    try {
        good = demo.play(headless ? 0 : pauseForAPerson);
    } catch (const std::exception& failure) {
        std::cerr << "demo: " << failure.what() << '\n';
    }
    if (!headless && good) {
        std::cout << "The window stays open on the sample game; its mail server runs until you "
                     "close the window.\n";
        demo.host().release();
        QApplication::exec();
    }
    std::cout << (good ? "Demo: every message arrived as it should; see " : "Demo: FAILED; see ")
              << folder.toStdString() << '\n';
    return good ? 0 : 1;
}
