#include "automation/SampleGame.h"
#include "automation/ScriptedServer.h"
#include "automation/Waiting.h"
#include "fakes/FakeMail.h"
#include "support/WindowTest.h"

#include <QDir>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <set>

namespace turnpost::automation {

using DesktopProgram = WindowTest;

TEST_F(DesktopProgram, RunsFromFirstSettingsToExitDuringASend) {
    ScriptedServer server([](Point, int, const std::string&) { return Answer(); });
    makeSampleGame(folder.path(), {{1, 10}});
    host().watcher().expect("frmSettings", [&](QWidget& form) {
        EXPECT_FALSE(window().isVisible());
        host().type("txtSMTP", QString::fromStdString(server.address()), &form);
        host().click("butOK", &form);
    });
    // It fires whenever the window gets time to repaint.
    QTimer repaints;
    std::set<std::pair<int, int>> sizes;
    repaints.callOnTimeout([&] { sizes.emplace(window().width(), window().height()); });
    const auto sendAndExit = [&] {
        host().findGame();
        host().type("PlayerEmail(0)", "p1@example.org");
        host().click("butSend");
        EXPECT_TRUE(waitUntil([&] { return server.conversations().size() == 1; }));
        // So that steps of 100 twips reach both limits exactly, whatever frame the system adds.
        window().setFixedSize(QSize(640, 500) - window().frameGeometry().size() + window().size());
        repaints.start(0);
        open("mnuExit");
    };
    QTimer::singleShot(0, &window(), [&] {
        host().desktop().startUp();
        // After the events that closing the dialog has queued.
        QTimer::singleShot(0, &window(), sendAndExit);
    });
    QTimer::singleShot(20000, &window(), [] { QCoreApplication::exit(1); });
    EXPECT_EQ(QCoreApplication::exec(), 0);
    ASSERT_EQ(server.conversations().size(), 1U);
    EXPECT_TRUE(waitUntil([&] { return server.conversations()[0].ended; }));
    EXPECT_FALSE(window().isVisible());
    EXPECT_EQ(window().frameGeometry().width(), 2000 / 15);
    EXPECT_EQ(sizes.size(), 70U + 76U) << "not every step of 100 twips is seen";
    EXPECT_LE(window().height(), 30 / 15);
    // The last strip was 500 twips high, and the line lies at its top edge.
    const QPoint off = window().geometry().center() - window().screen()->geometry().center();
    EXPECT_LE(off.manhattanLength(), 20) << "not in the middle of the screen";
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
}

TEST_F(DesktopProgram, FindsProgramAndConfigurationFolders) {
    const ProgramFolders own = Desktop::ownFolders();
    EXPECT_EQ(QDir(own.program.c_str()), QDir(QCoreApplication::applicationDirPath()));
    EXPECT_TRUE(own.configuration.ends_with("turnpost") || own.configuration.ends_with("Turnpost"));
}

} // namespace turnpost::automation
