#include "DemoRun.h"
#include "PictureCheck.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <iostream>

namespace {

constexpr int pauseForAPerson = 1200; // milliseconds
const char* const pictureFont = "DejaVu Sans";

bool hasDisplay() {
#ifdef _WIN32
    return true;
#else
    return !qEnvironmentVariableIsEmpty("DISPLAY") ||
           !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
#endif
}

// All of the demo, and its start in dark colours. True if also every window looks as in the guide.
bool playHeadless(const QString& folder) {
    turnpost::demo::PictureCheck check(folder);
    turnpost::demo::drawAsInPictures(pictureFont, false);
    const bool good = turnpost::demo::DemoRun(folder.toStdString(), &check).play(0, false);
    turnpost::demo::drawAsInPictures(pictureFont, true);
    turnpost::demo::DemoRun((folder + "/dark").toStdString(), &check, "-dark").playStart();
    return check.finish() && good;
}

// True if the demo ran well. It runs with the settings of the desktop, and in the end the window
// stays open for a person.
bool playOnDesktop(const QString& folder, bool alone) {
    turnpost::demo::DemoRun demo(folder.toStdString());
    const bool good = demo.play(alone ? 0 : pauseForAPerson, false);
    std::cout << "The windows were not compared with the guide's pictures: they have the colours "
                 "and fonts of this desktop.\n";
    if (!alone && good) {
        std::cout << "The window stays open on the sample game; its mail server runs until you "
                     "close the window.\n";
        demo.host().release();
        QApplication::exec();
    }
    return good;
}

} // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    const std::string mode = arguments.size() > 1 ? arguments[0] : std::string();
    const bool fromScreen = mode == "--from-screen";
    if (arguments.size() != (fromScreen     ? 4U
                             : mode.empty() ? 1U
                                            : 2U) ||
        !(mode.empty() || mode == "--headless" || mode == "--alone" || fromScreen)) {
        std::cerr << "usage: turnpost_demo [--headless | --alone | --from-screen light|dark FONT] "
                     "FOLDER\n"
                     "--headless needs no display, --alone no person; --from-screen is alone too "
                     "and takes the pictures with the windows' frames\n";
        return 2;
    }
    const bool headless = mode == "--headless" || !hasDisplay();
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
    bool good = false;
    try {
        if (headless) {
            good = playHeadless(folder);
        } else if (fromScreen) {
            turnpost::demo::drawAsInPictures(QString::fromStdString(arguments[2]),
                                             arguments[1] == "dark");
            good = turnpost::demo::DemoRun(folder.toStdString()).play(0, true);
        } else {
            good = playOnDesktop(folder, mode == "--alone");
        }
    } catch (const std::exception& failure) {
        std::cerr << "demo: " << failure.what() << '\n';
    }
    std::cout << (good ? "Demo: every message arrived as it should; see " : "Demo: FAILED; see ")
              << folder.toStdString() << '\n';
    return good ? 0 : 1;
}
