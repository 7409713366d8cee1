#include "widgets/Form.h"

#include "automation/ModalWatcher.h"
#include "widgets/QtMessageBox.h"

#include <QMessageBox>
#include <QPlainTextEdit>
#include <QTest>
#include <gtest/gtest.h>

namespace turnpost::automation {

TEST(Form, MessageBoxesShowForeignTextPlain) {
    ModalWatcher watcher;
    watcher.expect("", [](QWidget& window) {
        auto& box = dynamic_cast<QMessageBox&>(window);
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.text(), "<img src=x>\nsecond");
        EXPECT_EQ(box.windowTitle(), "Nimbus Turnpost");
        EXPECT_EQ(box.buttons().size(), 1);
        box.accept();
    });
    showMessageBox(nullptr, "<img src=x>\r\nsecond");
    EXPECT_TRUE(watcher.done() && watcher.faults().empty());
}

TEST(Form, TextAreasReturnCrLfLineEnds) {
    QPlainTextEdit area("a");
    QTest::keyClick(&area, Qt::Key_Return);
    QTest::keyClick(&area, Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(textOf(&area), "\r\n\r\na");
}

} // namespace turnpost::automation
