#include "desk/Host.h"
#include "desk/SampleGame.h"
#include "platform/Files.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

namespace turnpost::desk {

namespace {

QStringList shown(QWidget& form, const char* list) {
    const auto* model = findControl<QListView>(form, list)->model();
    QStringList names;
    for (int row = 0; row < model->rowCount(); ++row) {
        names += model->index(row, 0).data().toString();
    }
    return names;
}

} // namespace

class Picker : public testing::Test {
  protected:
    Picker() {
        host.saveSettings("localhost");
        makeSampleGame(host.folder(), {{1, 10}});
        makeSampleGame(host.folder() + "/.deep", {{3, 10}});
        replaceFile(host.folder() + "/other.hst", std::string(12, 'x') + '\x01' + '\0');
        replaceFile(host.folder() + "/notes.txt", "no game");
        replaceFile(host.folder() + "/.HST", "hidden");
        host.desktop().startUp();
    }

    void openBy(const QString& button, ModalWatcher::Action action) {
        host.watcher().expect("frmOpen", std::move(action));
        host.click(button);
        EXPECT_TRUE(host.watcher().done());
        EXPECT_EQ(host.watcher().faults(), std::vector<std::string>{});
    }

    const GameDetails& game() { return host.desktop().app().values().game; }

    Host host;
};

TEST_F(Picker, ListsMatchingFilesOfAnyCaseAndLoadsOnlyASelectedOne) {
    openBy("GameChoose", [this](QWidget& form) {
        EXPECT_EQ(findControl<QLabel>(form, "txtOpenMessage")->text(),
                  "Find Stars! Host File (*.HST)");
        EXPECT_EQ(shown(form, "File1"), (QStringList{"GAME.HST", "other.hst", ".HST"}));
        EXPECT_FALSE(findControl<QCheckBox>(form, "LoadDef")->isVisible());
        auto* load = findControl<QPushButton>(form, "butLoad");
        EXPECT_FALSE(load->isEnabled());
        host.selectFile(form, {}, "other.hst");
        EXPECT_TRUE(load->isEnabled());
        auto* files = findControl<QListView>(form, "File1");
        QTest::mouseDClick(files->viewport(), Qt::LeftButton, {},
                           files->visualRect(files->currentIndex()).center());
    });
    EXPECT_EQ(game().HostFileName, "other.hst");
    EXPECT_EQ(game().GamePath, host.folder() + "/");
    EXPECT_EQ(game().GameYear, 2401);
}

TEST_F(Picker, ChoosingAFolderOrADriveMakesLoadUnavailableAndAGoneDriveEmptiesTheLists) {
    const QTemporaryDir home;
    qputenv("HOME", home.filePath("home").toUtf8());
    QDir(home.path()).mkdir("home");
    openBy("GameChoose", [&](QWidget& form) {
        auto* load = findControl<QPushButton>(form, "butLoad");
        auto* drives = findControl<QComboBox>(form, "Drive1");
        EXPECT_EQ(drives->itemText(1), home.filePath("home"));
        emit drives->activated(1);
        host.selectFile(form, QString::fromStdString(host.folder() + "/.deep"), "GAME.HST");
        EXPECT_TRUE(load->isEnabled());
        QDir(home.path()).rmdir("home");
        emit drives->activated(1);
        EXPECT_FALSE(load->isEnabled());
        EXPECT_EQ(shown(form, "File1") + shown(form, "Dir1"), QStringList());
        form.close();
    });
}

TEST_F(Picker, KeysAloneOpenFoldersSelectFromTheFirstPressAndLoad) {
    openBy("GameChoose", [this](QWidget& form) {
        auto* folders = findControl<QListView>(form, "Dir1");
        auto* files = findControl<QListView>(form, "File1");
        const auto current = [folders] { return folders->currentIndex().data().toString(); };
        const QString start = current();
        QTest::keyClick(folders, Qt::Key_Left);
        QTest::keyClicks(folders, start);
        QTest::keyClick(folders, Qt::Key_Right);
        EXPECT_EQ(current(), QString::fromStdString(host.folder()).section('/', -1));
        QTest::keyClick(folders, Qt::Key_End);
        QTest::keyClick(folders, Qt::Key_Return);
        EXPECT_EQ(shown(form, "File1"), QStringList{"GAME.HST"});
        for (const auto key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_Home, Qt::Key_End}) {
            files->clearSelection();
            QTest::keyClick(files, key);
            EXPECT_TRUE(findControl<QPushButton>(form, "butLoad")->isEnabled()) << key;
        }
        QTest::keyClick(files, Qt::Key_Enter);
    });
    EXPECT_EQ(game().GamePath, host.folder() + "/.deep/");
    EXPECT_TRUE(game().rows[2].Shown);
}

TEST_F(Picker, TheCloseControlChangesNothing) {
    openBy("GameChoose", [this](QWidget& form) {
        host.selectFile(form, {}, "GAME.HST");
        form.close();
    });
    EXPECT_EQ(game().HostFileName, "");
    EXPECT_EQ(host.desktop().app().values().picker.PickerCancelled, 1);
}

} // namespace turnpost::desk
