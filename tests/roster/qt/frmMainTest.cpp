#include "roster/qt/frmMain.h"

#include "support/WindowTest.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QCloseEvent>
#include <QLineEdit>
#include <QMenu>
#include <QRadioButton>
#include <QTest>
#include <QTextDocumentFragment>

namespace turnpost::automation {

class MainForm : public WindowTest {
  protected:
    MainForm() { host().startGame("localhost", {{1, 10}, {2, 10}, {4, 10}}); }

    GameDetails& game() { return host().desktop().app().game(); }

    template <typename Control> Control* at(const char* control, int row) {
        return findControl<Control>(window(), QString("%1(%2)").arg(control).arg(row));
    }

    // Ticks of rows 1, 2 and 4, and of hidden row 3.
    std::vector<int> ticks() {
        std::vector<int> result;
        for (const int row : {0, 1, 3, 2}) {
            result.push_back(game().row(row).IncludePlayer);
            EXPECT_EQ(at<QCheckBox>("IncludePlayer", row)->isChecked(), result.back() != 0);
        }
        return result;
    }
};

TEST_F(MainForm, KeepsTextAsTypedWithCursorAndUndo) {
    host().type("GameName", " Alpha & Beta ");
    auto* name = findControl<QLineEdit>(window(), "GameName");
    name->setCursorPosition(3);
    host().findGame();
    EXPECT_EQ(game().GameName, " Alpha & Beta ");
    EXPECT_EQ(name->cursorPosition(), 3);
    EXPECT_TRUE(name->isUndoAvailable());
    EXPECT_EQ(findControl<QLineEdit>(window(), "txtGamePath")->cursorPosition(), 0);
}

TEST_F(MainForm, CleansOnlyPastedAddresses) {
    const std::string address = "\u200Bp1@example.net";
    QApplication::clipboard()->setText(QString::fromStdString(address));
    for (const char* control : {"PlayerName", "PlayerEmail", "AltEmail"}) {
        QTest::keySequence(at<QLineEdit>(control, 1), QKeySequence::Paste);
    }
    const PlayerSlot& row = game().row(1);
    EXPECT_EQ(row.PlayerName + "|" + row.PlayerEmail + "|" + row.AltEmail,
              address + "|p2@example.orgp1@example.net|p1@example.net");
}

TEST_F(MainForm, SelectsAtEveryMousePressAndNoKey) {
    auto* none = at<QRadioButton>("PlaySel", 1);
    auto* invert = at<QRadioButton>("PlaySel", 2);
    // As a details file may hold them.
    game().row(0).IncludePlayer = game().row(2).IncludePlayer = 2;
    host().desktop().showValues();
    EXPECT_EQ(ticks(), (std::vector{2, 1, 1, 2}));
    QTest::mousePress(invert, Qt::RightButton);
    EXPECT_EQ(ticks(), (std::vector{1, 0, 0, 2}));
    // Sent to the window, so that Qt makes a double-click event of the second press.
    QTest::mouseDClick(window().windowHandle(), Qt::LeftButton, {},
                       invert->mapTo(&window(), QPoint(10, 10)));
    EXPECT_EQ(ticks(), (std::vector{1, 0, 0, 2})) << "a double-click is two presses";
    for (int press = 0; press < 2; ++press) {
        QTest::mouseClick(none, Qt::LeftButton);
        EXPECT_EQ(ticks(), (std::vector{0, 0, 0, 2}));
        at<QCheckBox>("IncludePlayer", 1)->setChecked(true);
    }
    none->setFocus();
    QTest::keyClick(none, Qt::Key_Left);
    QTest::keyClick(at<QRadioButton>("PlaySel", 0), Qt::Key_Space);
    EXPECT_EQ(ticks(), (std::vector{0, 1, 0, 2}));
}

TEST_F(MainForm, ShowsForeignTextPlainInMenuAndTooltips) {
    const std::string name = "<b>&\t" + std::string(500, 'x') + "\t&</b>";
    window().showValues({name, " -\tEm\npty - ", "", ""});
    const auto* item = window().findChild<QAction*>("mnuStoredG(1)");
    const QRegularExpression cut("^<b>&& x{5,}…x{5,} &&</b>$");
    EXPECT_TRUE(cut.match(item->text()).hasMatch()) << item->text().toStdString();
    const auto* menu = findControl<QMenu>(window(), "mnuStored");
    EXPECT_LT(menu->sizeHint().width(), window().width());
    EXPECT_TRUE(menu->toolTipsVisible());
    const QString tip = QTextDocumentFragment::fromHtml(item->toolTip()).toPlainText();
    EXPECT_EQ(QString(tip).remove('\n').toStdString(), name);
    EXPECT_EQ(window().findChild<QAction*>("mnuStoredG(2)")->text(), " - Em pty - ");
    window().showNotes({"", "550 <b>full</b> &\r\n gone\r\n"});
    for (const char* control : {"PlayNum", "IncludePlayer"}) {
        const auto* noted = at<QWidget>(control, 1);
        EXPECT_EQ(noted->toolTip(),
                  "<p style='white-space:pre'>550 &lt;b&gt;full&lt;/b&gt; &amp;<br> gone</p>");
        EXPECT_EQ(noted->accessibleDescription(), "550 <b>full</b> &\n gone");
    }
}

TEST_F(MainForm, ClosedAgainWhileItClosesClosesOnce) {
    int played = 0;
    frmMain form(host().desktop().app(), [&played](QWidget* window) {
        // The animation lets events run; the toolkit need not hold this one back.
        if (++played < 3) {
            QCloseEvent again;
            QApplication::sendEvent(window, &again);
        }
    });
    form.show();
    form.close();
    EXPECT_EQ(played, 1);
    EXPECT_FALSE(form.isVisible());
}

} // namespace turnpost::automation
