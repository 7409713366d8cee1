#include "automation/SampleGame.h"
#include "support/WindowTest.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHelpEvent>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QTest>
#include <QToolTip>

namespace turnpost::automation {

namespace {

const char* const markup = "&lt;a name that is too long for the list & looks like markup.hst";

QStringList shown(QWidget& form, const char* list) {
    const auto* model = findControl<QListView>(form, list)->model();
    QStringList names;
    for (int row = 0; row < model->rowCount(); ++row) {
        names += model->index(row, 0).data().toString();
    }
    return names;
}

bool canLoad(QWidget& form) {
    return findControl<QPushButton>(form, "butLoad")->isEnabled();
}

} // namespace

class Picker : public WindowTest {
  protected:
    Picker() {
        qputenv("HOME", folder.path().c_str());
        makeSampleGame(folder.path(".deep"), {{3, 10}});
        folder.write("other.hst", std::string(12, 'x') + '\x01' + '\0');
        folder.write(markup, "");
        folder.write(".HST", "hidden");
        folder.write("README", "no game");
        host().startGame("localhost", {{1, 10}});
    }

    // Of the program's folder.
    std::string drive() const {
#ifdef _WIN32
        return folder.path().substr(0, 3);
#else
        return folder.path();
#endif
    }
};

TEST_F(Picker, ListsMatchingFilesAndLoadsOnlyASelectedOne) {
    in("frmOpen", "GameChoose", [this](QWidget& form) {
        EXPECT_EQ(findControl<QLabel>(form, "txtOpenMessage")->text(),
                  "Find Stars! Host File (*.HST)");
        EXPECT_EQ(shown(form, "File1"), (QStringList{markup, "GAME.HST", "other.hst", ".HST"}));
        EXPECT_TRUE(findControl<QCheckBox>(form, "LoadDef")->isHidden());
        EXPECT_EQ(findControl<QComboBox>(form, "Drive1")->currentText().toStdString(), drive());
        auto* files = findControl<QListView>(form, "File1");
        QTest::keyClick(files, Qt::Key_Return);
        EXPECT_FALSE(canLoad(form));
        EXPECT_TRUE(form.isVisible()) << "no file was selected";
        const QPoint first = files->visualRect(files->model()->index(0, 0)).center();
        QHelpEvent tip(QEvent::ToolTip, first, files->viewport()->mapToGlobal(first));
        QApplication::sendEvent(files->viewport(), &tip);
        EXPECT_TRUE(QToolTip::text().contains("&amp;lt;a name")) << QToolTip::text().toStdString();
        host().selectFile(form, {}, "other.hst");
        EXPECT_TRUE(canLoad(form));
        QTest::mouseDClick(files->viewport(), Qt::LeftButton, {},
                           files->visualRect(files->currentIndex()).center());
    });
    EXPECT_EQ(values().game.GamePath + values().game.HostFileName, folder.path("other.hst"));
    EXPECT_EQ(values().game.GameYear, 2401);
}

TEST_F(Picker, ChangingTheFolderDisablesLoadAndTheCloseBoxCancels) {
    qputenv("HOME", folder.path("home").c_str());
    folder.makeFolder("home");
    host().desktop().app().game().GamePath = folder.path(".deep/");
    in("frmOpen", "GameChoose", [&](QWidget& form) {
        EXPECT_EQ(shown(form, "File1"), QStringList{"GAME.HST"}) << "opens in the game's folder";
        host().selectFile(form, QString::fromStdString(folder.path()), "other.hst");
        auto* drives = findControl<QComboBox>(form, "Drive1");
        emit drives->activated(1);
        EXPECT_FALSE(canLoad(form));
#ifndef _WIN32
        EXPECT_EQ(shown(form, "Dir1").back(), drives->itemText(1).section('/', -1));
        std::filesystem::remove(folder.path("home"));
        emit drives->activated(1);
        EXPECT_EQ(shown(form, "File1") + shown(form, "Dir1"), QStringList()) << "a drive is gone";
#else
        EXPECT_EQ(shown(form, "Dir1").front(), drives->itemText(1));
#endif
        form.close();
    });
    EXPECT_EQ(values().game.HostFileName, "GAME.HST");
}

TEST_F(Picker, KeysAloneOpenFoldersAndLoadFiles) {
    in("frmOpen", "GameChoose", [this](QWidget& form) {
        auto* folders = findControl<QListView>(form, "Dir1");
        auto* files = findControl<QListView>(form, "File1");
        EXPECT_EQ(QApplication::focusWidget(), files);
        const auto current = [folders] { return folders->currentIndex().data().toString(); };
        const QString start = current();
        QTest::keyClick(folders, Qt::Key_Left);
        EXPECT_NE(current(), start);
        QTest::keyClicks(folders, start);
        QTest::keyClick(folders, Qt::Key_Right);
        EXPECT_EQ(current(), start);
        QTest::keyClick(folders, Qt::Key_End);
        QTest::keyClick(folders, Qt::Key_Return);
        EXPECT_EQ(shown(form, "File1"), QStringList{"GAME.HST"});
        for (const auto key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_Home, Qt::Key_End}) {
            files->clearSelection();
            QTest::keyClick(files, key);
            EXPECT_TRUE(canLoad(form)) << key;
        }
        QTest::keyClick(files, Qt::Key_Enter);
    });
    EXPECT_EQ(values().game.GamePath, folder.path(".deep/"));
}

#ifndef _WIN32
TEST_F(Picker, UnusableNamesAreGreyedWithTheReason) {
    folder.write("!\xEB.hst", "");
    folder.makeFolder("~\xEB");
    in("frmOpen", "GameChoose", [this](QWidget& form) {
        auto* files = findControl<QListView>(form, "File1");
        auto* folders = findControl<QListView>(form, "Dir1");
        const auto lineAt = [](QListView* list, int row) { return list->model()->index(row, 0); };
        const QModelIndex broken = lineAt(files, 0);
        EXPECT_EQ(broken.flags(), Qt::NoItemFlags);
        EXPECT_TRUE(broken.data(Qt::AccessibleDescriptionRole).toString().contains("UTF-8"));
        const QPoint place = files->visualRect(broken).center();
        QHelpEvent tip(QEvent::ToolTip, place, files->viewport()->mapToGlobal(place));
        QApplication::sendEvent(files->viewport(), &tip);
        EXPECT_TRUE(QToolTip::text().contains("UTF-8")) << QToolTip::text().toStdString();
        QTest::mouseClick(files->viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(files->viewport(), Qt::LeftButton, {}, place);
        EXPECT_TRUE(!canLoad(form) && form.isVisible());
        QTest::keyClick(files, Qt::Key_Down);
        EXPECT_EQ(files->currentIndex(), lineAt(files, 1)) << "keys skip it";
        QTest::keyClick(files, Qt::Key_Home);
        QTest::keyClick(files, Qt::Key_Up);
        EXPECT_EQ(files->currentIndex(), lineAt(files, 1));
        EXPECT_TRUE(canLoad(form));
        const QModelIndex greyed = lineAt(folders, folders->model()->rowCount() - 2);
        EXPECT_EQ(greyed.flags(), Qt::NoItemFlags);
        QTest::keyClick(folders, Qt::Key_End);
        QTest::keyClick(folders, Qt::Key_Up);
        EXPECT_LT(folders->currentIndex().row(), greyed.row());
        form.close();
    });
}
#endif

TEST_F(Picker, OpenOffersTheDefaultGameUnticked) {
    host().type("GameName", "Cup");
    boxBy("mnuSave");
    for (const std::string button : {"butCancel", "butLoad"}) {
        in("frmOpen", "mnuOpen", [&](QWidget& form) {
            EXPECT_EQ(shown(form, "File1"), QStringList{"GAME.NTP"});
            EXPECT_FALSE(findControl<QCheckBox>(form, "LoadDef")->isChecked());
            host().selectFile(form, {}, "GAME.NTP");
            host().click("LoadDef", &form);
            host().click(button.c_str(), &form);
        });
        EXPECT_EQ(folder.read("TURNPOST.INI").ends_with("\"" + folder.path("GAME.NTP\"\r\n")),
                  button == "butLoad");
    }
}

} // namespace turnpost::automation
