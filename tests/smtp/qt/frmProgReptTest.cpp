#include "smtp/qt/frmProgRept.h"
#include "automation/Host.h"

#include <QPlainTextEdit>
#include <QTest>
#include <gtest/gtest.h>

namespace turnpost::automation {

TEST(SendingReport, MegabyteWithoutBlanksShowsQuicklyAndHidesNothing) {
    SendReport report = {"SMTP Error: 5" + std::string(1 << 20, '\0')};
    report[15] = "Email sent OK";
    ModalWatcher watcher;
    watcher.expect("frmProgRept", [&](QWidget& form) {
        auto* text = findControl<QPlainTextEdit>(form, "txtReport");
        QTest::keyClick(text, Qt::Key_End, Qt::ControlModifier);
        EXPECT_TRUE(text->textCursor().atEnd());
        EXPECT_TRUE(text->viewport()->rect().intersects(text->cursorRect()));
        EXPECT_TRUE(text->isReadOnly());
        watcher.readReport(form);
    });
    frmProgRept(nullptr, report).exec();
    ASSERT_TRUE(watcher.done());
    EXPECT_EQ(watcher.faults(), std::vector<std::string>());
    EXPECT_TRUE(watcher.texts()[0].starts_with("Player 1: " + report[0] + "\nPlayer 2: \nPlayer "));
    EXPECT_TRUE(watcher.texts()[0].ends_with("\nPlayer 15: \nPlayer 16: Email sent OK\n"));
}

} // namespace turnpost::automation
