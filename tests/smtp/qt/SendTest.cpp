#include "desk/Host.h"
#include "desk/ScriptedServer.h"
#include "desk/Waiting.h"
#include "smtp/qt/frmProgRept.h"

#include <QElapsedTimer>
#include <QPlainTextEdit>
#include <QTest>
#include <gtest/gtest.h>

namespace turnpost::desk {

TEST(Sending, ARefusedConnectionIsAMessageBoxAndNoReport) {
    std::string address;
    {
        const ScriptedServer gone(
            [](Point point, int, const std::string&) { return goodAnswer(point); });
        address = gone.address();
    }
    Host host;
    host.startGame(address, {{1, 10}});
    host.watcher().expectMessage();
    host.click("butSend");
    ASSERT_TRUE(waitUntil([&] { return host.watcher().done(); }));
    runPendingEvents();
    EXPECT_EQ(host.watcher().texts(),
              std::vector<std::string>{"Winsock Error number 10061\nConnection refused"});
    EXPECT_EQ(host.watcher().faults(), std::vector<std::string>{});
}

TEST(SendingReport, AMegabyteWithoutABlankHidesNoLineBehindItAndDoesNotHoldTheWindowUp) {
    const SendReport report = {"SMTP Error: 5" + std::string(1 << 20, '\0'), "Email sent OK"};
    ModalWatcher watcher;
    watcher.expect("frmProgRept", [&watcher](QWidget& form) {
        auto* text = findControl<QPlainTextEdit>(form, "txtReport");
        QTest::keyClick(text, Qt::Key_End, Qt::ControlModifier);
        EXPECT_TRUE(text->textCursor().atEnd());
        EXPECT_TRUE(text->viewport()->rect().intersects(text->cursorRect()));
        EXPECT_TRUE(text->isReadOnly());
        watcher.readReport(form);
    });
    QElapsedTimer timer;
    timer.start();
    frmProgRept(nullptr, report).exec();
    EXPECT_LT(timer.elapsed(), 20000);
    EXPECT_TRUE(watcher.texts().at(0).starts_with("Player 1: " + report[0] +
                                                  "\nPlayer 2: Email sent OK\nPlayer 3: \n"));
}

} // namespace turnpost::desk
