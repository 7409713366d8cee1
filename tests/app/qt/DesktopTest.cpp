#include "desk/Host.h"
#include "fakes/FakeMail.h"

#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
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

TEST(DesktopProgram, OnlyTheFirstPressOfADoubleClickSendsButADeliberateSecondOneDoesToo) {
    FakeMail::Record calls;
    Host host({}, [&calls](const Settings&) {
        return MailSystem{std::make_unique<FakeMail>(calls), std::make_unique<FakeMail>(calls)};
    });
    host.startGame("localhost", {{1, 10}});
    host.click("PlaySel(1)");
    for (const char* button : {"butSend", "Command1"}) {
        auto* control = findControl<QPushButton>(host.window(), button);
        host.watcher().expectReport();
        QTest::mouseDClick(host.window().windowHandle(), Qt::LeftButton, {},
                           control->mapTo(&host.window(), QPoint(10, 10)));
        host.watcher().expectReport();
        host.click(button);
        EXPECT_TRUE(host.watcher().done()) << button;
        EXPECT_EQ(host.watcher().faults(), std::vector<std::string>{});
    }
}

} // namespace turnpost::desk
