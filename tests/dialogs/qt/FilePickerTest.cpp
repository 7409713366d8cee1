#include "desk/Host.h"
#include "desk/SampleGame.h"
#include "desk/Waiting.h"
#include "platform/Files.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

namespace turnpost::desk {

namespace {

QStringList shownFiles(QWidget& form) {
    const auto* model = findControl<QListView>(form, "File1")->model();
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
        makeSampleGame(host.folder() + "/Deep", {{3, 10}});
        replaceFile(host.folder() + "/other.hst", std::string(12, 'x') + '\x01' + '\0');
        replaceFile(host.folder() + "/notes.txt", "no game");
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
        EXPECT_EQ(shownFiles(form), (QStringList{"GAME.HST", "other.hst"}));
        EXPECT_FALSE(findControl<QCheckBox>(form, "LoadDef")->isVisible());
        auto* load = findControl<QPushButton>(form, "butLoad");
        EXPECT_FALSE(load->isEnabled());
        host.selectFile(form, {}, "other.hst");
        EXPECT_TRUE(load->isEnabled());
        host.click("butLoad", &form);
    });
    EXPECT_EQ(game().HostFileName, "other.hst");
    EXPECT_EQ(game().GamePath, host.folder() + "/");
    EXPECT_EQ(game().GameYear, 2401);
}

TEST_F(Picker, ChoosingAFolderOrADriveMakesLoadUnavailableAndTheNextOpeningStartsInTheGame) {
    openBy("GameChoose", [this](QWidget& form) {
        auto* load = findControl<QPushButton>(form, "butLoad");
        host.selectFile(form, {}, "GAME.HST");
        host.selectFile(form, QString::fromStdString(host.folder() + "/Deep"), "GAME.HST");
        EXPECT_TRUE(load->isEnabled());
        auto* drives = findControl<QComboBox>(form, "Drive1");
        EXPECT_EQ(drives->itemText(0), "/");
        EXPECT_GE(drives->currentIndex(), 0);
        emit drives->activated(0);
        EXPECT_FALSE(load->isEnabled());
        host.selectFile(form, QString::fromStdString(host.folder() + "/Deep"), "GAME.HST");
        auto* files = findControl<QListView>(form, "File1");
        QTest::mouseDClick(files->viewport(), Qt::LeftButton, {},
                           files->visualRect(files->currentIndex()).center());
    });
    EXPECT_EQ(game().GamePath, host.folder() + "/Deep/");
    EXPECT_TRUE(game().rows[2].Shown);
    openBy("GameChoose", [](QWidget& form) {
        EXPECT_EQ(shownFiles(form), QStringList{"GAME.HST"});
        form.close();
    });
}

TEST_F(Picker, CancelAndTheCloseControlChangeNothing) {
    for (const bool byButton : {true, false}) {
        openBy("GameChoose", [this, byButton](QWidget& form) {
            host.selectFile(form, {}, "GAME.HST");
            if (byButton) {
                host.click("butCancel", &form);
            } else {
                form.close();
            }
        });
        EXPECT_EQ(game().HostFileName, "");
        EXPECT_EQ(host.desktop().app().values().picker.PickerCancelled, 1);
        EXPECT_EQ(host.desktop().app().values().picker.PickedFile, "");
    }
}

} // namespace turnpost::desk
