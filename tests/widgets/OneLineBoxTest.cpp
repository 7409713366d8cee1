#include "widgets/OneLineBox.h"

#include "automation/Waiting.h"
#include "widgets/Form.h"

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QTest>
#include <QWindow>
#include <gtest/gtest.h>

namespace turnpost::automation {

// A box, and how a text of another program comes in.
class Boxes : public testing::Test {
  protected:
    using Deed = std::function<void(const QString& text)>;

    Boxes() { form.show(); }

    Deed press(const QKeySequence& keys) {
        return [this, keys](const QString& text) {
            QApplication::clipboard()->setText(text);
            QTest::keySequence(box, keys);
        };
    }

    // An item of the right button's menu, if there is one with this access key.
    Deed choose(Qt::Key key) {
        return [this, key](const QString& text) {
            QApplication::clipboard()->setText(text);
            QTest::mouseClick(form.windowHandle(), Qt::RightButton, {}, box->geometry().center());
            QWidget* menu = QApplication::activePopupWidget();
            ASSERT_NE(menu, nullptr);
            QTest::keyClick(menu, key);
            if (QApplication::activePopupWidget() == menu) {
                menu->close(); // It has no such item.
            }
            runPendingEvents();
        };
    }

    // As the toolkit does it: a box that does not take what enters is not given it.
    const Deed drop = [this](const QString& text) {
        QMimeData dragged;
        dragged.setText(text);
        QDragEnterEvent enter({5, 5}, Qt::CopyAction, &dragged, Qt::LeftButton, {});
        QDropEvent event({5, 5}, Qt::CopyAction, &dragged, Qt::LeftButton, {});
        QApplication::sendEvent(box, &enter);
        QApplication::sendEvent(box, &event);
    };

    const Deed commit = [this](const QString& text) {
        QInputMethodEvent event;
        event.setCommitString(text);
        QApplication::sendEvent(box, &event);
    };

    QWidget form;
    QLineEdit* box = makeTextBox(&form, "box", QRect(0, 0, 100, 40), "Box");
};

TEST_F(Boxes, ThatAreReadOnlyTakeNothing) {
    std::vector<Deed> deeds = {press(Qt::Key_X), choose(Qt::Key_P),        drop,
                               commit,           press(QKeySequence::Cut), choose(Qt::Key_T)};
    for (const QKeySequence& keys : QKeySequence::keyBindings(QKeySequence::Paste)) {
        deeds.push_back(press(keys));
    }
    for (const bool readOnly : {false, true}) {
        for (size_t i = 0; i < deeds.size(); ++i) {
            box->setText("abc");
            box->selectAll();
            deeds[i]("other");
            EXPECT_EQ(box->text() == "abc", readOnly) << "deed " << i;
        }
        makeReadOnly(box);
    }
}

TEST_F(Boxes, MakeEachKindOfLineBreakOneBlank) {
    const Deed set = [this](const QString& text) { box->setText(text); };
    const Deed show = [this](const QString& text) { showLine(box, text.toStdString()); };
    for (const char* lineBreak : {"\r\n", "\n", "\r", "\u2028", "\u2029"}) {
        for (const Deed& deed :
             {press(QKeySequence::Paste), choose(Qt::Key_P), drop, commit, set, show}) {
            box->clear();
            deed(QString("x%1y").arg(lineBreak));
            EXPECT_EQ(box->text(), "x y");
        }
    }
}

TEST_F(Boxes, UndoAPasteAsAWhole) {
    QTest::keyClicks(box, "x");
    press(QKeySequence::Paste)("a b");
    EXPECT_EQ(box->text(), "xa b");
    QTest::keySequence(box, QKeySequence::Undo);
    EXPECT_EQ(box->text(), "x");
    EXPECT_GT(box->maxLength(), 1 << 24);
}

TEST_F(Boxes, ForAddressesDropForeignInvisibleCharacters) {
    const QString set = "\u200Bp\u200F1\u202A@\u202E\u2060e\u2064x\u2066.\u2069n\uFEFFet\u00AD";
    const QString foreign = set + QChar(0xA0);
    const Deed enters[] = {press(QKeySequence::Paste), choose(Qt::Key_P), drop};
    for (const QString& taken : {foreign, QString("p1@ex.net ")}) {
        for (const Deed& enter : enters) {
            box->clear();
            enter(foreign);
            EXPECT_EQ(box->text(), taken);
        }
        box->setText(set);
        EXPECT_EQ(box->text(), set) << "a text of the program stays";
        takeAddresses(box);
    }
    // Characters next to invisible ones in Unicode are kept.
    const QString neighbours = "\u009F\u00A1\u00AC\u00AE\u200A\u2010\u202F\u205F\u2065\u206A\uFEFE";
    box->clear();
    enters[0](neighbours);
    EXPECT_EQ(box->text(), neighbours);
}

} // namespace turnpost::automation
