#include "app/qt/Desktop.h"

#include <QApplication>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    turnpost::Desktop::prepareToolkit();
    turnpost::Desktop desktop;
    QMetaObject::invokeMethod(
        &application, [&desktop] { desktop.startUp(); }, Qt::QueuedConnection);
    return QApplication::exec();
}
