#include "platform/qt/Form.h"

#include "desk/ModalWatcher.h"
#include "platform/qt/QtMessageBox.h"

#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

namespace turnpost::desk {

namespace {

class SampleForm final : public Form {
  public:
    SampleForm() : Form(nullptr, "sample", "Sample", {3000, 1500}) {
        label = addLabel("label", "<b>no</b> & plain", QRect(0, 0, 100, 20));
        area = addTextArea("area", QRect(0, 30, 100, 40), "Area");
        box = addTextBox("box", QRect(0, 80, 100, 20), "Box");
        button = addButton("button", "OK", QRect(110, 0, 60, 30));
    }

    QLabel* label;
    QPlainTextEdit* area;
    QLineEdit* box;
    QPushButton* button;
};

} // namespace

TEST(Form, HasTheSizeInPixelsAndEnterPressesTheFocusedButtonOnceAndClosesNothing) {
    SampleForm form;
    int closed = 0;
    QObject::connect(&form, &QDialog::finished, [&closed] { ++closed; });
    form.show();
    EXPECT_EQ(form.size(), QSize(200, 100));
    EXPECT_EQ(form.minimumSize(), form.maximumSize());
    QTest::keyClick(&form, Qt::Key_Escape);
    QTest::keyClick(&form, Qt::Key_Return);
    QTest::keyClick(form.box, Qt::Key_Enter);
    int pressed = 0;
    QObject::connect(form.button, &QPushButton::clicked, [&pressed] { ++pressed; });
    form.button->setFocus();
    QTest::keyClick(form.button, Qt::Key_Return);
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, {}, true);
    QApplication::sendEvent(form.button, &held);
    EXPECT_EQ(pressed, 1);
    EXPECT_EQ(closed, 0);
    EXPECT_TRUE(form.isVisible());
}

TEST(Form, AOneLineBoxHoldsOneLineHoweverTheTextComesInAndAPasteCanBeUndone) {
    SampleForm form;
    form.show();
    const QString broken("a\r\nb\nc\rd\u2028e\u2029f");
    QApplication::clipboard()->setText(broken);
    QTest::keyClicks(form.box, "x");
    QTest::keySequence(form.box, QKeySequence::Paste);
    EXPECT_EQ(form.box->text(), "xa b c d e f");
    QTest::keySequence(form.box, QKeySequence::Undo);
    EXPECT_EQ(form.box->text(), "x");
    form.box->clear();
    QMimeData dragged;
    dragged.setText(broken);
    QDropEvent drop({5, 5}, Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    static_cast<QObject*>(form.box)->event(&drop);
    EXPECT_EQ(form.box->text(), "a b c d e f");
    form.box->setText(broken + "!");
    EXPECT_EQ(form.box->text(), "a b c d e f!");
}

TEST(Form, ForeignTextIsShownPlainInLabelsAndMessageBoxes) {
    const SampleForm form;
    EXPECT_EQ(form.label->textFormat(), Qt::PlainText);
    ModalWatcher watcher;
    Qt::TextFormat format = Qt::RichText;
    watcher.expect("", [&format](QWidget& window) {
        auto* box = qobject_cast<QMessageBox*>(&window);
        format = box->textFormat();
        EXPECT_EQ(box->text(), "<img src=x>\nsecond");
        EXPECT_EQ(box->windowTitle(), "Nimbus Turnpost");
        EXPECT_EQ(box->icon(), QMessageBox::NoIcon);
        EXPECT_EQ(box->buttons().size(), 1);
        box->accept();
    });
    showMessageBox(nullptr, "<img src=x>\r\nsecond");
    EXPECT_EQ(format, Qt::PlainText);
    EXPECT_TRUE(watcher.faults().empty());
}

TEST(Form, TextAreaKeepsHardBlanksAndGivesCrLf) {
    SampleForm form;
    form.area->setPlainText(QString("a\u00a0b\n\n.c"));
    QTest::keyClick(form.area, Qt::Key_End, Qt::ControlModifier);
    QTest::keyClick(form.area, Qt::Key_Return);
    QTest::keyClicks(form.area, "d");
    QTest::keyClick(form.area, Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(textOf(form.area), "a\u00a0b\r\n\r\n.c\r\nd\r\n");
}

} // namespace turnpost::desk
