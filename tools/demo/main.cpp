#include "DemoRun.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <iostream>

namespace {

constexpr int pauseForAPerson = 1200; // milliseconds

bool hasDisplay() {
#ifdef _WIN32
    return true;
#else
    return !qEnvironmentVariableIsEmpty("DISPLAY") ||
           !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
#endif
}

} // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    const std::string mode = arguments.size() > 1 ? arguments[0] : std::string();
    if (arguments.empty() ||
        !(mode.empty() || mode == "--headless" || mode == "--alone" || mode == "--from-screen")) {
        std::cerr
            << "usage: turnpost_demo [--headless | --alone | --from-screen] FOLDER\n"
               "--headless needs no display, --alone no person; --from-screen is alone too and "
               "takes the pictures with the windows' frames\n";
        return 2;
    }
    const bool fromScreen = mode == "--from-screen";
    const bool headless = mode == "--headless" || !hasDisplay();
    const bool alone = headless || fromScreen || mode == "--alone";
    if (headless) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    if (qEnvironmentVariableIsEmpty("QT_LOGGING_RULES")) {
        // Qt warns of what is missing without a screen or a session.
        qputenv("QT_LOGGING_RULES", "*.warning=false");
    }
    QApplication application(argc, argv);
    turnpost::Desktop::prepareToolkit();
    const QString folder = QDir::toNativeSeparators(
        QFileInfo(QString::fromStdString(arguments.back())).absoluteFilePath());
    turnpost::demo::DemoRun demo(folder.toStdString());
    bool good = false;
    try {
        good = demo.play(alone ? 0 : pauseForAPerson, fromScreen && !headless);
    } catch (const std::exception& failure) {
        std::cerr << "demo: " << failure.what() << '\n';
    }
    if (!alone && good) {
        std::cout << "The window stays open on the sample game; its mail server runs until you "
                     "close the window.\n";
        demo.host().release();
        QApplication::exec();
    }
    std::cout << (good ? "Demo: every message arrived as it should; see " : "Demo: FAILED; see ")
              << folder.toStdString() << '\n';
    return good ? 0 : 1;
}
