#include "desk/Host.h"
#include "desk/SampleGame.h"
#include "desk/ScriptedServer.h"
#include "desk/UuDecoder.h"
#include "desk/Waiting.h"

#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <gtest/gtest.h>

namespace turnpost::desk {

class Evening : public testing::Test {
  protected:
    Evening()
        : files(makeSampleGame(folder.path().toStdString(), {{1, 45}, {2, 100}, {4, 14}})),
          server([](Point point, int, const std::string&) { return goodAnswer(point); }) {}

    void firstStart(Host& host) {
        host.watcher().expect("frmSettings", [&](QWidget& form) {
            host.type("txtHostName", "Game Host", &form);
            host.type("txtHostEmail", "host@example.org", &form);
            host.type("txtSMTP", QString::fromStdString(server.address()), &form);
            host.click("butOK", &form);
        });
        host.desktop().startUp();
        host.findGame();
        host.type("GameName", "Spring & \"Cup\"");
        for (const int row : {0, 1, 3}) {
            host.type(QString("PlayerName(%1)").arg(row), QString("Name %1").arg(row + 1));
            host.type(QString("PlayerEmail(%1)").arg(row), QString("p%1@x").arg(row + 1));
        }
        host.watcher().expect("frmMessage", [&host](QWidget& form) {
            host.click("Default", &form);
            host.click("mnuOK", &form);
        });
        host.chooseMenu("mnuMsg");
    }

    void saveAndStore(Host& host) {
        host.watcher().expectMessage();
        host.chooseMenu("mnuSave");
        EXPECT_EQ(host.watcher().texts().back(), "Details saved to " + host.folder() + "/GAME.NTP");
        host.watcher().expect("frmStore", [&host](QWidget& form) {
            host.click("butStore(1)", &form);
            EXPECT_EQ(findControl<QLineEdit>(form, "txtStoreFile(1)")->text().toStdString(),
                      host.folder() + "/GAME.NTP");
            host.click("mnuOK", &form);
        });
        host.chooseMenu("mnuStoredCon");
        host.watcher().expect("frmOpen", [&host](QWidget& form) {
            host.selectFile(form, {}, "GAME.NTP");
            host.click("LoadDef", &form);
            host.click("butLoad", &form);
        });
        host.chooseMenu("mnuOpen");
    }

    void expectGame(Host& host) {
        EXPECT_EQ(host.textOf("GameName"), "Spring & \"Cup\"");
        EXPECT_EQ(host.textOf("PlayerEmail(3)"), "p4@x");
        EXPECT_EQ(host.textOf("GameFile(3)"), "GAME.M4");
        EXPECT_TRUE(findControl<QLineEdit>(host.window(), "PlayerName(3)")->isVisible());
        EXPECT_FALSE(findControl<QLineEdit>(host.window(), "PlayerName(2)")->isVisible());
        EXPECT_EQ(findControl<QLabel>(host.window(), "txtYear")->text(), "2405");
        EXPECT_EQ(host.desktop().app().values().message.MessageSubject,
                  "Turn <<GY>> for <<GN>> - Player <<PN>>");
    }

    void attachAndSend(Host& host) {
        host.watcher().expect("frmAtch", [&host](QWidget& form) {
            EXPECT_TRUE(findControl<QCheckBox>(form, "chkMx")->isChecked());
            host.watcher().expect("frmOpen", [&host](QWidget& picker) {
                host.selectFile(picker, {}, "GAME.HST");
                host.click("butLoad", &picker);
            });
            host.click("butAddAtch(2)", &form);
            host.type("txtFile(0)", "gone", &form);
            host.click("butRemove(0)", &form);
            host.click("butOK", &form);
        });
        host.click("butAtch");
        host.watcher().expectReport();
        host.click("butSend");
        ASSERT_TRUE(waitUntil([&host] { return host.watcher().done(); }));
        EXPECT_TRUE(host.watcher().texts().back().starts_with(
            "Player 1: Email sent OK\nPlayer 2: Email sent OK\nPlayer 3: Player Skipped\n"));
    }

    QTemporaryDir folder;
    std::map<int, std::string> files;
    ScriptedServer server;
};

TEST_F(Evening, AGameIsEnteredSavedStoredLoadedAtTheNextStartAndSent) {
    {
        Host host(folder.path().toStdString());
        firstStart(host);
        saveAndStore(host);
        expectGame(host);
        EXPECT_EQ(host.watcher().faults(), std::vector<std::string>{});
    }
    Host host(folder.path().toStdString());
    host.desktop().startUp();
    expectGame(host);
    attachAndSend(host);
    ASSERT_EQ(server.conversations().size(), 3U);
    const auto sent = decodeUuBlocks(withoutDoubledPeriods(server.conversations()[2].message));
    ASSERT_TRUE(sent && sent->size() == 2);
    EXPECT_EQ((*sent)[0].bytes, files[4]);
    EXPECT_EQ((*sent)[1].name, "GAME.HST");
    host.chooseMenu("mnuNew");
    EXPECT_EQ(host.textOf("GameName"), "");
    host.watcher().expectMessage();
    host.chooseMenu("mnuSave");
    EXPECT_EQ(host.watcher().texts().back(), "No game details entered");
    EXPECT_EQ(host.window().findChild<QAction*>("mnuStoredG(2)")->text(), "Spring && \"Cup\"");
    host.chooseMenu("mnuStoredG(1)");
    EXPECT_EQ(host.textOf("GameName"), "");
    host.chooseMenu("mnuStoredG(2)");
    expectGame(host);
    EXPECT_EQ(host.watcher().faults(), std::vector<std::string>{});
}

} // namespace turnpost::desk
