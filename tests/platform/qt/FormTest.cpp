#include "platform/qt/Form.h"

#include "desk/ModalWatcher.h"
#include "platform/qt/QtMessageBox.h"

#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QTest>
#include <gtest/gtest.h>

namespace turnpost::desk {

TEST(Form, AOneLineBoxHoldsOneLineHoweverTheTextComesInAndAPasteCanBeUndone) {
    QWidget form;
    QLineEdit* box = makeTextBox(&form, "box", QRect(0, 80, 100, 20), "Box");
    form.show();
    const QString broken("a\r\nb\nc\rd\u2028e\u2029f");
    QApplication::clipboard()->setText(broken);
    QTest::keyClicks(box, "x");
    QTest::keySequence(box, QKeySequence::Paste);
    EXPECT_EQ(box->text(), "xa b c d e f");
    QTest::keySequence(box, QKeySequence::Undo);
    EXPECT_EQ(box->text(), "x");
    box->clear();
    QMimeData dragged;
    dragged.setText(broken);
    QDropEvent drop({5, 5}, Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    static_cast<QObject*>(box)->event(&drop);
    EXPECT_EQ(box->text(), "a b c d e f");
    box->setText(broken + "!");
    EXPECT_EQ(box->text(), "a b c d e f!");
    EXPECT_GT(box->maxLength(), 1 << 24);
}

TEST(Form, ForeignTextIsShownPlainInMessageBoxes) {
    ModalWatcher watcher;
    watcher.expect("", [](QWidget& window) {
        auto* box = qobject_cast<QMessageBox*>(&window);
        EXPECT_EQ(box->textFormat(), Qt::PlainText);
        EXPECT_EQ(box->text(), "<img src=x>\nsecond");
        EXPECT_EQ(box->windowTitle(), "Nimbus Turnpost");
        EXPECT_EQ(box->buttons().size(), 1);
        box->accept();
    });
    showMessageBox(nullptr, "<img src=x>\r\nsecond");
    EXPECT_TRUE(watcher.done() && watcher.faults().empty());
}

TEST(Form, ATextAreaGivesCrLfForEachKindOfReturn) {
    QPlainTextEdit area("a");
    QTest::keyClick(&area, Qt::Key_Return);
    QTest::keyClick(&area, Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(textOf(&area), "\r\n\r\na");
}

} // namespace turnpost::desk
