#include "desk/Host.h"
#include "desk/SampleGame.h"

#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <gtest/gtest.h>

namespace turnpost::desk {

namespace {

QString rowName(const char* control, int row) {
    return QString("%1(%2)").arg(control).arg(row);
}

} // namespace

class MainWindow : public testing::Test {
  protected:
    MainWindow() {
        host.saveSettings("localhost");
        makeSampleGame(host.folder(), {{1, 10}, {2, 10}, {4, 10}});
        host.desktop().startUp();
    }

    template <typename Control> Control* at(const char* control, int row) {
        return findControl<Control>(host.window(), rowName(control, row));
    }

    // Ticks of rows 1, 2 and 4, and of hidden row 3.
    std::vector<int> ticks() {
        const auto& rows = host.desktop().app().values().game.rows;
        std::vector<int> result;
        for (const size_t row : {0U, 1U, 3U, 2U}) {
            result.push_back(rows[row].IncludePlayer);
            const auto* box = at<QCheckBox>("IncludePlayer", static_cast<int>(row));
            EXPECT_EQ(box->isChecked(), rows[row].IncludePlayer != 0);
        }
        return result;
    }

    Host host;
};

// Places are in pixels: twips divided by 15.
TEST_F(MainWindow, ControlsLieWhereTheLayoutPutsThemBelowTheMenuBar) {
    const auto placeOf = [this](const QString& name) {
        auto* control = findControl<QWidget>(host.window(), name);
        return QRect(control->mapTo(&host.window(), QPoint()), control->size());
    };
    const int menu = host.window().findChild<QMenuBar*>()->height();
    EXPECT_EQ(host.window().size(), QSize(640, 480 + menu));
    EXPECT_EQ(placeOf("GameName"), QRect(96, 8 + menu, 197, 23));
    EXPECT_EQ(placeOf("Command1"), QRect(384, 4 + menu, 65, 33));
    EXPECT_EQ(placeOf("GameFile(15)"), QRect(540, 456 + menu, 85, 19));
    EXPECT_EQ(placeOf("Shape1").topLeft(), QPoint(416, 52 + menu));
}

TEST_F(MainWindow, NoCaptionIsWiderThanItsControl) {
    for (const char* family : {"DejaVu Sans", "Liberation Sans"}) {
        for (auto* label : host.window().findChildren<QLabel*>()) {
            QFont font = label->font();
            font.setFamily(family);
            const QFontMetrics metrics(font);
            EXPECT_LE(metrics.horizontalAdvance(label->text()), label->width())
                << family << ": " << label->text().toStdString();
            EXPECT_LE(metrics.height(), label->height());
        }
        for (auto* button : host.window().findChildren<QPushButton*>()) {
            if (!button->isVisible()) {
                continue;
            }
            QFont font = button->font();
            font.setFamily(family);
            const QRect inner(0, 0, button->width() - 2, 1000);
            const QRect text = QFontMetrics(font).boundingRect(
                inner, Qt::AlignCenter | Qt::TextWordWrap, button->text());
            EXPECT_LE(text.width(), inner.width()) << button->text().toStdString();
            EXPECT_LE(text.height(), button->height()) << button->text().toStdString();
        }
    }
}

TEST_F(MainWindow, FindGameShowsTheRowsOfItsPlayersAndTypingReachesTheModelAtOnce) {
    host.findGame();
    EXPECT_EQ(host.textOf("txtGamePath").toStdString(), host.folder() + "/");
    EXPECT_EQ(findControl<QLabel>(host.window(), "txtYear")->text(), "2405");
    for (int row = 0; row < rowCount; ++row) {
        const bool shown = row == 0 || row == 1 || row == 3;
        for (const char* control :
             {"PlayNum", "IncludePlayer", "PlayerName", "PlayerEmail", "AltEmail", "GameFile"}) {
            EXPECT_EQ(at<QWidget>(control, row)->isVisible(), shown) << control << row;
        }
    }
    EXPECT_EQ(at<QLineEdit>("GameFile", 3)->text(), "GAME.M4");
    EXPECT_TRUE(at<QLineEdit>("GameFile", 3)->isReadOnly());
    host.type("GameName", "Alpha & Beta");
    host.type("PlayerName(3)", "Red Leader");
    host.type("PlayerEmail(3)", "red@example.org");
    host.type("AltEmail(3)", "alt@example.org");
    QTest::mouseClick(at<QCheckBox>("IncludePlayer", 3), Qt::LeftButton, {}, QPoint(6, 8));
    const GameDetails& game = host.desktop().app().values().game;
    EXPECT_EQ(game.GameName, "Alpha & Beta");
    EXPECT_EQ(game.rows[3].PlayerName, "Red Leader");
    EXPECT_EQ(game.rows[3].PlayerEmail, "red@example.org");
    EXPECT_EQ(game.rows[3].AltEmail, "alt@example.org");
    EXPECT_EQ(game.rows[3].IncludePlayer, 0);
    auto* name = findControl<QLineEdit>(host.window(), "GameName");
    name->setCursorPosition(3);
    host.findGame();
    EXPECT_TRUE(name->cursorPosition() == 3 && name->isUndoAvailable());
    EXPECT_EQ(host.textOf("PlayerName(3)"), "");
    EXPECT_TRUE(at<QCheckBox>("IncludePlayer", 3)->isChecked());
    EXPECT_EQ(host.textOf("GameName"), "Alpha & Beta");
}

TEST_F(MainWindow, EveryMousePressOnASelectionCountsAndTheKeyboardDoesNothing) {
    auto* all = findControl<QRadioButton>(host.window(), "PlaySel(0)");
    auto* none = findControl<QRadioButton>(host.window(), "PlaySel(1)");
    auto* invert = findControl<QRadioButton>(host.window(), "PlaySel(2)");
    QTest::mousePress(all, Qt::LeftButton);
    EXPECT_EQ(ticks(), (std::vector<int>{0, 0, 0, 0})) << "hidden rows were ticked";
    host.findGame();
    host.desktop().app().game().rows[2].IncludePlayer = 1;
    host.desktop().showValues();
    QTest::mouseClick(none, Qt::LeftButton);
    EXPECT_EQ(ticks(), (std::vector<int>{0, 0, 0, 1}));
    QTest::mouseClick(at<QCheckBox>("IncludePlayer", 1), Qt::LeftButton, {}, QPoint(6, 8));
    QTest::mousePress(invert, Qt::RightButton);
    EXPECT_EQ(ticks(), (std::vector<int>{1, 0, 1, 1}));
    // Through the window, which turns the second press into what a real double-click sends.
    QTest::mouseDClick(host.window().windowHandle(), Qt::LeftButton, {},
                       invert->mapTo(&host.window(), QPoint(10, 10)));
    EXPECT_EQ(ticks(), (std::vector<int>{1, 0, 1, 1})) << "a double-click is two presses";
    QTest::mouseClick(none, Qt::LeftButton);
    QTest::mouseClick(none, Qt::LeftButton);
    EXPECT_EQ(ticks(), (std::vector<int>{0, 0, 0, 1}));
    none->setFocus();
    QTest::keyClick(none, Qt::Key_Left);
    QTest::keyClick(all, Qt::Key_Space);
    EXPECT_EQ(ticks(), (std::vector<int>{0, 0, 0, 1}));
}

TEST_F(MainWindow, TabGoesLineByLineAndEveryBoxHasANameForScreenReaders) {
    host.findGame();
    EXPECT_EQ(at<QLineEdit>("PlayerEmail", 2)->accessibleName(), "Player 3 e-mail address");
    for (auto* box : host.window().findChildren<QLineEdit*>()) {
        EXPECT_FALSE(box->accessibleName().isEmpty()) << box->objectName().toStdString();
    }
    QStringList order;
    auto* from = findControl<QWidget>(host.window(), "GameName");
    QWidget* next = from;
    do {
        if (next->isVisible() && (next->focusPolicy() & Qt::TabFocus) != 0) {
            order += next->objectName();
        }
        next = next->nextInFocusChain();
    } while (order.size() < 15 && next != from);
    EXPECT_EQ(order.join(' '),
              "GameName Command1 butSend butAtch txtGamePath GameChoose PlaySel(0) "
              "PlaySel(1) PlaySel(2) IncludePlayer(0) PlayerName(0) "
              "PlayerEmail(0) AltEmail(0) GameFile(0) IncludePlayer(1)");
}

} // namespace turnpost::desk
