#include "automation/SampleGame.h"
#include "automation/ScriptedServer.h"
#include "automation/Waiting.h"
#include "fakes/FakeMail.h"
#include "support/WindowTest.h"

#include <QAction>
#include <QFrame>
#include <QPushButton>
#include <QScreen>
#include <QTest>

namespace turnpost::automation {

class DesktopProgram : public WindowTest {
  protected:
    // Runs the program to its end. After 20 seconds it is stopped with exit status 1.
    void expectToEnd(const std::function<void()>& first) {
        QMetaObject::invokeMethod(qApp, first, Qt::QueuedConnection);
        QTimer::singleShot(20000, &window(), [] { QCoreApplication::exit(1); });
        EXPECT_EQ(QCoreApplication::exec(), 0);
        EXPECT_FALSE(window().isVisible());
        EXPECT_LE(window().frameGeometry().width(), 2000 / 15);
        EXPECT_LE(window().height(), 30 / 15);
        // The last strip was 500 twips high, and the line lies at its top edge.
        const QPoint off = window().geometry().center() - window().screen()->geometry().center();
        EXPECT_LE(off.manhattanLength(), 20) << "not in the middle of the screen";
    }
};

TEST_F(DesktopProgram, RunsFromFirstSettingsToClosingAnimation) {
    host().watcher().expect("frmSettings", [this](QWidget& form) {
        EXPECT_FALSE(window().isVisible());
        host().type("txtHostName", "Host", &form);
        host().click("butOK", &form);
    });
    expectToEnd([this] {
        host().desktop().startUp();
        EXPECT_EQ(findControl<QAction>(window(), "mnuStoredG(1)")->text(), " - Empty - ");
        EXPECT_EQ(findControl<QFrame>(window(), "Shape1")->width(), 0);
        // After the events that closing the dialog has queued.
        QTimer::singleShot(0, [this] { open("mnuExit"); });
    });
    EXPECT_TRUE(folder.read("TURNPOST.INI").starts_with("\"Host\"\r\n\"\"\r\n"));
}

TEST_F(DesktopProgram, ClosingTheWindowEndsASend) {
    ScriptedServer server([](Point, int, const std::string&) { return Answer(); });
    host().startGame(server.address(), {{1, 10}});
    host().click("butSend");
    ASSERT_TRUE(waitUntil([&] { return server.conversations().size() == 1; }));
    expectToEnd([this] { window().close(); });
    EXPECT_TRUE(waitUntil([&] { return server.conversations()[0].ended; }));
}

TEST_F(DesktopProgram, DoubleClickSendsOnceAndSecondClickSendsAgain) {
    FakeMail::Record calls;
    start([&calls](const Settings&) {
        return MailSystem{std::make_unique<FakeMail>(calls), std::make_unique<FakeMail>(calls)};
    });
    host().startGame("localhost", {{1, 10}});
    host().click("PlaySel(1)");
    for (const char* button : {"butSend", "Command1"}) {
        auto* control = findControl<QPushButton>(window(), button);
        host().watcher().expectReport();
        QTest::mouseDClick(window().windowHandle(), Qt::LeftButton, {},
                           control->mapTo(&window(), QPoint(10, 10)));
        host().watcher().expectReport();
        host().click(button);
        EXPECT_EQ(host().watcher().takeTexts().size(), 2U) << button;
    }
    host().click("PlaySel(0)");
    host().watcher().expectReport();
    host().click("Command1");
    EXPECT_FALSE(calls.empty()) << "the mail system got no message";
}

TEST_F(DesktopProgram, FindsProgramAndConfigurationFolders) {
    const ProgramFolders own = Desktop::ownFolders();
    const QString program = QDir::toNativeSeparators(QCoreApplication::applicationDirPath());
    EXPECT_EQ(own.program, program.toStdString());
    const QString name = QDir(QString::fromStdString(own.configuration)).dirName();
    EXPECT_EQ(name.toLower().replace(' ', '-'), "nimbus-turnpost");
}

} // namespace turnpost::automation
