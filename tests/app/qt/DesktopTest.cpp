#include "desk/SampleGame.h"
#include "desk/ScriptedServer.h"
#include "desk/Waiting.h"
#include "fakes/FakeMail.h"
#include "support/WindowTest.h"

#include <QPushButton>
#include <QScreen>
#include <QTest>

namespace turnpost::desk {

namespace {

// Keeps the window's sizes, and how far its middle was from the screen's, while it closes.
class ClosingRecord final : public QObject {
  public:
    explicit ClosingRecord(QWidget& closed) : window(closed) {}
    void start() { window.installEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Move || event->type() == QEvent::Resize) {
            const QPoint off = window.geometry().center() - window.screen()->geometry().center();
            farthest = std::max(farthest, off.manhattanLength());
            sizes.push_back(window.width() + window.height());
        }
        return QObject::eventFilter(watched, event);
    }

    QWidget& window;
    std::vector<int> sizes;
    int farthest = 0;
};

} // namespace

class DesktopProgram : public WindowTest {
  protected:
    // The whole life of a program; one that does not end is ended with another exit status.
    static int run(const std::function<void()>& first) {
        QMetaObject::invokeMethod(qApp, first, Qt::QueuedConnection);
        QTimer guard;
        QObject::connect(&guard, &QTimer::timeout, [] { QCoreApplication::exit(1); });
        guard.start(20000);
        return QCoreApplication::exec();
    }
};

// The first time there are no settings yet.
TEST_F(DesktopProgram,
       GoesOnAfterTheFirstSettingsAndBothWaysOfClosingShrinkTheWindowOnceInItsPlace) {
    for (const bool firstTime : {true, false}) {
        start();
        if (firstTime) {
            host().watcher().expect("frmSettings", [this](QWidget& form) {
                EXPECT_FALSE(window().isVisible());
                host().click("butOK", &form);
            });
        }
        ClosingRecord record(window());
        EXPECT_EQ(run([&] {
                      host().desktop().startUp();
                      // Behind whatever the dialog's end has set off.
                      QTimer::singleShot(0, [&] {
                          record.start();
                          firstTime ? open("mnuExit") : void(window().close());
                      });
                  }),
                  0);
        EXPECT_FALSE(window().isVisible());
        EXPECT_LE(window().frameGeometry().width(), 2000 / 15);
        EXPECT_LE(window().height(), 30 / 15);
        EXPECT_TRUE(record.sizes.size() > 9U &&
                    std::is_sorted(record.sizes.rbegin(), record.sizes.rend()))
            << "grew again";
        // The line lies where the top edge of the last strip was, 500 twips high.
        EXPECT_LE(record.farthest, 20) << "not in the middle of the screen";
    }
}

TEST_F(DesktopProgram, ClosingTheWindowEndsASend) {
    ScriptedServer server([](Point, int, const std::string&) { return Answer(); });
    host().startGame(server.address(), {{1, 10}});
    host().click("butSend");
    ASSERT_TRUE(waitUntil([&] { return server.conversations().size() == 1; }));
    EXPECT_EQ(run([this] { window().close(); }), 0);
    EXPECT_TRUE(waitUntil([&] { return server.conversations()[0].ended; }));
}

TEST_F(DesktopProgram, OnlyTheFirstPressOfADoubleClickSendsButADeliberateSecondOneDoesToo) {
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

TEST_F(DesktopProgram, HasItsFoldersWhereTheProgramAndThePersonsConfigurationAre) {
    const ProgramFolders own = Desktop::ownFolders();
    EXPECT_EQ(own.program, QCoreApplication::applicationDirPath().toStdString());
    EXPECT_TRUE(own.configuration.ends_with("/nimbus-turnpost")) << own.configuration;
}

} // namespace turnpost::desk
