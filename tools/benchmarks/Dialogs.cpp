// Opens every dialog of the program for the first time, in a folder with a game, and prints for
// each its name and the milliseconds from the click until the display has drawn it: bench_dialogs
// FOLDER
#include "app/qt/Desktop.h"

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QPushButton>
#include <QTimer>
#include <iostream>

using namespace turnpost;

namespace {

// Waits until the next dialog has painted itself and the display has drawn that; then closes it.
class FirstPaint final : public QObject {
  public:
    explicit FirstPaint(const QElapsedTimer& sinceClick) : timer(sinceClick) {}

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint && !seen &&
            watched == QApplication::activeModalWidget()) {
            seen = true;
            QTimer::singleShot(0, this, [dialog = QApplication::activeModalWidget(), this] {
                QGuiApplication::sync();
                std::cout << qPrintable(dialog->objectName().isEmpty() ? "message box"
                                                                       : dialog->objectName())
                          << ' ' << static_cast<double>(timer.nsecsElapsed()) / 1e6 << '\n';
                dialog->close();
            });
        }
        return false;
    }

    bool seen = false;

  private:
    const QElapsedTimer& timer;
};

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    Desktop::prepareToolkit();
    const std::string folder = argv[1];
    Desktop desktop({folder, folder});
    desktop.startUp();
    frmMain& window = desktop.mainWindow();
    const auto openReport = [&desktop] { desktop.openReport(); };
    const auto open = [&](const char* opener) {
        if (auto* button = window.findChild<QPushButton*>(opener)) {
            button->click();
        } else {
            window.findChild<QAction*>(opener)->trigger();
        }
    };
    QTimer::singleShot(300, &window, [&] {
        for (const char* opener : {"GameChoose", "mnuEmailSets", "mnuMsg", "butAtch",
                                   "mnuStoredCon", "mnuAbout", "mnuSave", ""}) {
            QElapsedTimer timer;
            FirstPaint paint(timer);
            QApplication::instance()->installEventFilter(&paint);
            timer.start();
            *opener == '\0' ? openReport() : open(opener);
            QApplication::processEvents();
        }
        QApplication::quit();
    });
    return QApplication::exec();
}
