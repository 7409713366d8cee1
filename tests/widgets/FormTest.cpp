#include "widgets/Form.h"

#include "automation/ModalWatcher.h"
#include "widgets/QtMessageBox.h"

#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QTest>
#include <QTextOption>
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
        EXPECT_EQ(box.windowFlags() & (Qt::WindowMinMaxButtonsHint | Qt::CustomizeWindowHint),
                  Qt::CustomizeWindowHint);
        EXPECT_GT(box.width(), QFontMetrics(box.font()).horizontalAdvance(box.windowTitle()) + 60);
        box.accept();
    });
    showMessageBox(nullptr, "<img src=x>\r\nsecond");
    EXPECT_TRUE(watcher.done() && watcher.faults().empty());
}

TEST(Form, ReadOnlyBoxesLookSoAndAreReadByKeys) {
    QLineEdit line;
    QPlainTextEdit area;
    makeReadOnly(&line);
    makeReadOnly(&area);
    for (const QPalette& colours : {line.palette(), area.palette()}) {
        EXPECT_EQ(colours.color(QPalette::Base), colours.color(QPalette::Window));
    }
    EXPECT_TRUE(area.textInteractionFlags() & Qt::TextSelectableByKeyboard);
}

TEST(Form, TextsWithoutBlanksWrapAnywhere) {
    QPlainTextEdit area;
    showText(&area, QString(99'999, 'x'));
    EXPECT_EQ(area.wordWrapMode(), QTextOption::WrapAnywhere) << "Qt would take minutes";
    showText(&area, QString("a b\n").repeated(9'999));
    EXPECT_EQ(area.wordWrapMode(), QTextOption::WrapAtWordBoundaryOrAnywhere);
}

TEST(Form, TextAreasReturnCrLfLineEnds) {
    QPlainTextEdit area("a");
    QTest::keyClick(&area, Qt::Key_Return);
    QTest::keyClick(&area, Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(textOf(&area), "\r\n\r\na");
}

} // namespace turnpost::automation
