#include "desk/Host.h"
#include "desk/SampleGame.h"
#include "platform/Files.h"

#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <gtest/gtest.h>

namespace turnpost::desk {

class Dialogs : public testing::Test {
  protected:
    Dialogs() {
        makeSampleGame(host.folder(), {{1, 10}, {2, 10}});
        host.saveSettings("localhost");
        host.desktop().startUp();
    }

    void in(const QString& form, ModalWatcher::Action action) {
        host.watcher().expect(form, std::move(action));
    }

    const SharedValues& values() { return host.desktop().app().values(); }

    Host host;
};

TEST_F(Dialogs, ClosingAttachmentsOrStoredGamesWithoutOkStoresNothing) {
    in("frmAtch", [this](QWidget& form) {
        EXPECT_FALSE(findControl<QCheckBox>(form, "chkXY")->isChecked());
        host.click("chkXY", &form);
        host.click("chkMx", &form);
        host.type("txtFile(1)", "/x", &form);
        form.close();
    });
    host.click("butAtch");
    EXPECT_EQ(values().attachments, AttachmentChoices());
    host.findGame();
    host.type("GameName", "Alpha");
    host.watcher().expectMessage();
    host.chooseMenu("mnuSave");
    const std::string before = readFile(host.folder() + "/TURNPOST.INI");
    in("frmStore", [this](QWidget& form) {
        const auto* name = findControl<QLineEdit>(form, "txtStoreName(0)");
        const auto* file = findControl<QLineEdit>(form, "txtStoreFile(0)");
        EXPECT_TRUE(name->isReadOnly() && file->isReadOnly());
        host.click("butStore(0)", &form);
        EXPECT_EQ(name->text(), "Alpha");
        host.click("butClear(0)", &form);
        EXPECT_EQ(name->text() + file->text(), " - Empty - ");
        host.click("butStore(3)", &form);
        form.close();
    });
    host.chooseMenu("mnuStoredCon");
    EXPECT_EQ(host.window().findChild<QAction*>("mnuStoredG(4)")->text(), " - Empty - ");
    EXPECT_EQ(readFile(host.folder() + "/TURNPOST.INI"), before);
    EXPECT_EQ(host.watcher().faults(), std::vector<std::string>{});
}

TEST_F(Dialogs, AttachmentChoicesAreStoredAsTypedAndACancelledPickerKeepsTheField) {
    in("frmAtch", [this](QWidget& form) {
        host.click("chkXY", &form);
        host.click("chkMx", &form);
        host.type("txtFile(1)", " no such file ", &form);
        in("frmOpen", [this](QWidget& picker) { host.click("butCancel", &picker); });
        host.click("butAddAtch(1)", &form);
        host.click("butOK", &form);
    });
    host.click("butAtch");
    EXPECT_EQ(values().attachments, (AttachmentChoices{0, 1, {"", " no such file ", ""}}));
    EXPECT_EQ(values().picker.PickerPattern, "*.*");
}

TEST_F(Dialogs, AboutShowsTitleVersionAndCreditsAndClosesByEveryKeyAndTheButton) {
    for (const int key : {0, int(Qt::Key_Escape), int(Qt::Key_Return)}) {
        in("frmAbout", [this, key](QWidget& form) {
            EXPECT_EQ(form.windowTitle(), "About Nimbus Turnpost");
            EXPECT_EQ(findControl<QLabel>(form, "lblVersion")->text(), "Version 1.3.0");
            const auto* text = findControl<QLabel>(form, "lblDescription");
            const QStringList lines = text->text().split('\n');
            ASSERT_EQ(lines.size(), 5);
            EXPECT_TRUE(lines[3].isEmpty() && !lines[4].isEmpty());
            EXPECT_LE(text->heightForWidth(text->width()), text->height());
            if (key == 0) {
                host.click("cmdOK", &form);
            } else {
                QTest::keyClick(&form, static_cast<Qt::Key>(key));
            }
            EXPECT_FALSE(form.isVisible());
            form.close();
        });
        host.chooseMenu("mnuAbout");
    }
    EXPECT_EQ(host.watcher().faults(), std::vector<std::string>{});
}

} // namespace turnpost::desk
