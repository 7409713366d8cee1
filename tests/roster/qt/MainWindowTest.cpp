#include "support/WindowTest.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QTest>

namespace turnpost::automation {

class MainWindow : public WindowTest {
  protected:
    MainWindow() { host().startGame("localhost", {{1, 10}, {2, 10}, {4, 10}}); }

    GameDetails& game() { return host().desktop().app().game(); }

    template <typename Control> Control* at(const char* control, int row) {
        return findControl<Control>(window(), QString("%1(%2)").arg(control).arg(row));
    }

    void clickTick(int row) {
        QTest::mouseClick(at<QCheckBox>("IncludePlayer", row), Qt::LeftButton, {}, QPoint(6, 8));
    }

    // Ticks of rows 1, 2 and 4, and of hidden row 3.
    std::vector<int> ticks() {
        std::vector<int> result;
        for (const int row : {0, 1, 3, 2}) {
            result.push_back(game().rows[static_cast<size_t>(row)].IncludePlayer);
            EXPECT_EQ(at<QCheckBox>("IncludePlayer", row)->isChecked(), result.back() != 0);
        }
        return result;
    }
};

TEST_F(MainWindow, FindGameShowsItsRowsAndTypingReachesTheModel) {
    EXPECT_EQ(host().textOf("txtGamePath").toStdString(), folder.path(""));
    EXPECT_EQ(findControl<QLineEdit>(window(), "txtGamePath")->cursorPosition(), 0);
    EXPECT_EQ(findControl<QLabel>(window(), "txtYear")->text(), "2405");
    for (int row = 0; row < rowCount; ++row) {
        EXPECT_EQ(at<QLabel>("PlayNum", row)->text(), QString::number(row + 1));
        for (const char* control :
             {"PlayNum", "IncludePlayer", "PlayerName", "PlayerEmail", "AltEmail", "GameFile"}) {
            EXPECT_EQ(at<QWidget>(control, row)->isVisible(), row == 0 || row == 1 || row == 3)
                << control << row;
        }
    }
    host().type("GameName", " Alpha & Beta ");
    host().type("PlayerName(3)", "Red Leader");
    host().type("AltEmail(3)", "alt@example.org");
    clickTick(3);
    EXPECT_EQ(game().GameName, " Alpha & Beta ");
    EXPECT_EQ(game().rows[3],
              (PlayerSlot{0, "Red Leader", "p4@example.org", "alt@example.org", "GAME.M4", true}));
    boxBy("mnuSave");
    auto* name = findControl<QLineEdit>(window(), "GameName");
    name->setCursorPosition(3);
    host().findGame();
    EXPECT_TRUE(name->cursorPosition() == 3 && name->isUndoAvailable());
    EXPECT_EQ(host().textOf("PlayerName(3)") + host().textOf("AltEmail(3)"), "");
    EXPECT_EQ(ticks(), (std::vector<int>{1, 1, 1, 0}));
    host().expectPicker("GAME.NTP");
    open("mnuOpen");
    EXPECT_EQ(host().textOf("PlayerName(3)") + host().textOf("PlayerEmail(3)") +
                  host().textOf("AltEmail(3)") + host().textOf("GameFile(3)"),
              "Red Leaderp4@example.orgalt@example.orgGAME.M4");
    open("mnuNew");
    EXPECT_EQ(host().textOf("GameName") + host().textOf("txtGamePath"), "");
    EXPECT_EQ(boxBy("mnuSave"), "No game details entered");
}

TEST_F(MainWindow, OnlyPastedAddressesLoseInvisibleCharacters) {
    const std::string address = "\u200Bp1@example.net";
    QApplication::clipboard()->setText(QString::fromStdString(address));
    for (const char* control : {"PlayerName", "PlayerEmail", "AltEmail"}) {
        QTest::keySequence(at<QLineEdit>(control, 1), QKeySequence::Paste);
    }
    EXPECT_EQ(game().rows[1], (PlayerSlot{1, address, "p2@example.orgp1@example.net",
                                          "p1@example.net", "GAME.M2", true}));
    game().rows[1].PlayerEmail = address;
    host().desktop().showValues();
    EXPECT_EQ(at<QLineEdit>("PlayerEmail", 1)->text().toStdString(), address);
    EXPECT_EQ(game().rows[1].PlayerEmail, address);
}

TEST_F(MainWindow, SelectionActsOnEveryMousePressNotOnKeys) {
    auto* all = findControl<QRadioButton>(window(), "PlaySel(0)");
    auto* none = findControl<QRadioButton>(window(), "PlaySel(1)");
    auto* invert = findControl<QRadioButton>(window(), "PlaySel(2)");
    QTest::mouseClick(none, Qt::LeftButton);
    // As a details file may hold them.
    game().rows[0].IncludePlayer = game().rows[2].IncludePlayer = 2;
    host().desktop().showValues();
    EXPECT_EQ(ticks(), (std::vector<int>{2, 0, 0, 2}));
    QTest::mousePress(invert, Qt::RightButton);
    EXPECT_EQ(ticks(), (std::vector<int>{1, 1, 1, 2}));
    clickTick(1);
    // Sent to the window, so that Qt makes a double-click event of the second press.
    QTest::mouseDClick(window().windowHandle(), Qt::LeftButton, {},
                       invert->mapTo(&window(), QPoint(10, 10)));
    EXPECT_EQ(ticks(), (std::vector<int>{1, 0, 1, 2})) << "a double-click is two presses";
    for (int press = 0; press < 2; ++press) {
        QTest::mouseClick(none, Qt::LeftButton);
        EXPECT_EQ(ticks(), (std::vector<int>{0, 0, 0, 2}));
        clickTick(1);
    }
    none->setFocus();
    QTest::keyClick(none, Qt::Key_Left);
    QTest::keyClick(all, Qt::Key_Space);
    EXPECT_EQ(ticks(), (std::vector<int>{0, 1, 0, 2}));
    QTest::mouseClick(all, Qt::LeftButton);
    EXPECT_EQ(ticks(), (std::vector<int>{1, 1, 1, 2}));
}

} // namespace turnpost::automation
