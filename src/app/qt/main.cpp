#include "app/qt/Desktop.h"
#include "platform/Folders.h"
#include "platform/Version.h"

#include <QApplication>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(turnpost::applicationTitle);
    // The layouts are exact to the pixel; other styles' margins would clip captions.
    QApplication::setStyle("Fusion");
    QApplication::setQuitOnLastWindowClosed(false);
    turnpost::Desktop desktop({turnpost::programFolder(), turnpost::configurationFolder()});
    QMetaObject::invokeMethod(
        &application, [&desktop] { desktop.startUp(); }, Qt::QueuedConnection);
    return QApplication::exec();
}
