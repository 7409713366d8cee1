#include "widgets/Form.h"

#include "automation/ModalWatcher.h"
#include "automation/Waiting.h"
#include "widgets/QtMessageBox.h"

#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QTest>
#include <QWindow>
#include <gtest/gtest.h>

namespace turnpost::automation {

class OneLineBoxes : public testing::Test {
  protected:
    OneLineBoxes() { form.show(); }

    // The item of the context menu with this access key.
    void chooseByRightButton(Qt::Key key) {
        QTest::mouseClick(form.windowHandle(), Qt::RightButton, {}, box->geometry().center());
        QWidget* menu = QApplication::activePopupWidget();
        ASSERT_NE(menu, nullptr);
        QTest::keyClick(menu, key);
        runPendingEvents();
    }

    void drop(const QString& text) {
        QMimeData dragged;
        dragged.setText(text);
        QDropEvent event({5, 5}, Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
        static_cast<QObject*>(box)->event(&event);
    }

    QWidget form;
    QLineEdit* box = makeTextBox(&form, "box", QRect(0, 80, 100, 20), "Box");
    QClipboard& clipboard = *QApplication::clipboard();
};

TEST_F(OneLineBoxes, HoldOneLineAndUndoAPasteAsAWhole) {
    const QString broken("a\r\nb\nc\rd\u2028e\u2029f");
    clipboard.setText(broken);
    QTest::keyClicks(box, "x");
    for (const bool byKeys : {true, false}) {
        byKeys ? QTest::keySequence(box, QKeySequence::Paste) : chooseByRightButton(Qt::Key_P);
        EXPECT_EQ(box->text(), "xa b c d e f");
        byKeys ? QTest::keySequence(box, QKeySequence::Undo) : chooseByRightButton(Qt::Key_U);
        EXPECT_EQ(box->text(), "x");
    }
    box->clear();
    drop(broken);
    EXPECT_EQ(box->text(), "a b c d e f");
    box->setText(broken + "!");
    EXPECT_EQ(box->text(), "a b c d e f!");
    EXPECT_GT(box->maxLength(), 1 << 24);
}

TEST_F(OneLineBoxes, ReadOnlyBoxesTakeNoDeadKeyPasteOrDrop) {
    box->setText("GAME.M1");
    makeReadOnly(box);
    clipboard.setText("pasted");
    QInputMethodEvent deadKey;
    deadKey.setCommitString("é");
    QApplication::sendEvent(box, &deadKey);
    QTest::keyClicks(box, "x");
    QTest::keySequence(box, QKeySequence::Paste);
    QTest::keySequence(box, QKeySequence::Cut);
    drop("dropped");
    EXPECT_EQ(box->text(), "GAME.M1");
}

TEST_F(OneLineBoxes, AddressBoxesDropForeignInvisibleCharacters) {
    const QString address = "\u200Bp\u200F1\u202A@\u202E\u2060e\u2064x\u2066.\u2069n\uFEFFet\u00AD";
    const auto texts = [&] {
        QStringList shown;
        clipboard.setText(address + QChar(0xA0));
        QTest::keySequence(box, QKeySequence::Paste);
        shown += box->text();
        box->clear();
        chooseByRightButton(Qt::Key_P);
        shown += box->text();
        box->clear();
        drop(address + QChar(0xA0));
        return shown += box->text();
    };
    EXPECT_EQ(texts(), QStringList(3, address + QChar(0xA0)));
    takeAddresses(box);
    box->clear();
    EXPECT_EQ(texts(), QStringList(3, "p1@ex.net "));
    box->setText(address);
    EXPECT_EQ(box->text(), address);
    // Characters next to invisible ones in Unicode are kept.
    clipboard.setText("\u009F\u00A1\u00AC\u00AE\u200A\u2010\u202F\u205F\u2065\u206A\uFEFE");
    box->clear();
    QTest::keySequence(box, QKeySequence::Paste);
    EXPECT_EQ(box->text(), clipboard.text());
}

TEST(Form, MessageBoxesShowForeignTextPlain) {
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

TEST(Form, TextAreasReturnCrLfLineEnds) {
    QPlainTextEdit area("a");
    QTest::keyClick(&area, Qt::Key_Return);
    QTest::keyClick(&area, Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(textOf(&area), "\r\n\r\na");
}

} // namespace turnpost::automation
