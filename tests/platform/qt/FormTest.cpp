#include "platform/qt/Form.h"

#include "desk/ModalWatcher.h"
#include "platform/qt/QtMessageBox.h"

#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
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
        addButton("button", "OK", QRect(110, 0, 60, 30));
    }

    QLabel* label;
    QPlainTextEdit* area;
    QLineEdit* box;
};

} // namespace

TEST(Form, HasTheSizeInPixelsAndNeitherEscapeNorEnterClosesIt) {
    SampleForm form;
    int closed = 0;
    QObject::connect(&form, &QDialog::finished, [&closed] { ++closed; });
    form.show();
    EXPECT_EQ(form.size(), QSize(200, 100));
    EXPECT_EQ(form.minimumSize(), form.maximumSize());
    QTest::keyClick(&form, Qt::Key_Escape);
    QTest::keyClick(&form, Qt::Key_Return);
    QTest::keyClick(form.box, Qt::Key_Enter);
    EXPECT_EQ(closed, 0);
    EXPECT_TRUE(form.isVisible());
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
