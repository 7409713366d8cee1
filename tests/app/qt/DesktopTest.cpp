#include "desk/Host.h"

#include <QSignalSpy>
#include <gtest/gtest.h>

namespace turnpost::desk {

TEST(DesktopProgram, BothWaysOfClosingShrinkTheWindowAndEndTheProgram) {
    for (const bool byMenu : {true, false}) {
        Host host;
        host.saveSettings("localhost");
        host.desktop().startUp();
        const QSignalSpy quitting(qApp, &QCoreApplication::aboutToQuit);
        if (byMenu) {
            QMetaObject::invokeMethod(
                qApp, [&host] { host.chooseMenu("mnuExit"); }, Qt::QueuedConnection);
        } else {
            QMetaObject::invokeMethod(
                qApp, [&host] { host.window().close(); }, Qt::QueuedConnection);
        }
        // A program that does not end is ended here, with another exit status.
        QTimer::singleShot(20000, qApp, [] { QCoreApplication::exit(1); });
        EXPECT_EQ(QCoreApplication::exec(), 0);
        EXPECT_EQ(quitting.count(), 1);
        EXPECT_FALSE(host.window().isVisible());
        EXPECT_LE(host.window().frameGeometry().width(), 2000 / 15);
        EXPECT_LE(host.window().height(), 30 / 15);
    }
}

} // namespace turnpost::desk
