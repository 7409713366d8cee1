#include "desk/Host.h"
#include "platform/Files.h"

#include <QLineEdit>
#include <gtest/gtest.h>

namespace turnpost::desk {

namespace {

std::string settingsText(const Host& host) {
    return readFile(host.folder() + "/TURNPOST.INI");
}

} // namespace

TEST(EmailSettings, FirstStartAsksBeforeTheMainWindowAndOkWritesTheWholeFile) {
    Host host;
    host.watcher().expect("frmSettings", [&host](QWidget& form) {
        EXPECT_FALSE(host.window().isVisible());
        host.type("txtHostName", "  Bob \"The Host\" Smith", &form);
        host.type("txtHostEmail", "bob@example.org", &form);
        host.type("txtSMTP", " mail:2525 ", &form);
        host.click("butOK", &form);
    });
    host.desktop().startUp();
    ASSERT_TRUE(host.watcher().done());
    EXPECT_EQ(settingsText(host), "\"  Bob \"The Host\" Smith\"\r\n\"bob@example.org\"\r\n"
                                  "\" mail:2525 \"\r\n\" - Empty - \",\"\"\r\n"
                                  "\" - Empty - \",\"\"\r\n\" - Empty - \",\"\"\r\n"
                                  "\" - Empty - \",\"\"\r\n\"\"\r\n");
    EXPECT_TRUE(host.window().isVisible());
    Host again(host.folder());
    again.desktop().startUp();
    EXPECT_EQ(again.desktop().app().values().settings.HostName, "  Bob \"The Host\" Smith");
    EXPECT_TRUE(again.watcher().faults().empty());
}

TEST(EmailSettings, ClosingWithoutOkChangesNothingInMemoryOrOnDisk) {
    Host host;
    host.watcher().expect("frmSettings", [&host](QWidget& form) {
        host.type("txtSMTP", "lost", &form);
        form.close();
    });
    host.desktop().startUp();
    EXPECT_FALSE(findPath(host.folder() + "/TURNPOST.INI"));
    host.saveSettings("kept");
    const std::string before = settingsText(host);
    Host again(host.folder());
    again.desktop().startUp();
    again.watcher().expect("frmSettings", [&again](QWidget& form) {
        EXPECT_EQ(findControl<QLineEdit>(form, "txtSMTP")->text(), "kept");
        again.type("txtSMTP", "lost", &form);
        form.close();
    });
    again.chooseMenu("mnuEmailSets");
    EXPECT_EQ(again.desktop().app().values().settings.SmtpServer, "kept");
    EXPECT_EQ(settingsText(host), before);
}

TEST(EmailSettings, AFileThatCannotBeWrittenIsNamedAndTheValuesStayForTheRun) {
    Host host;
    host.saveSettings("before");
    host.desktop().startUp();
    std::filesystem::remove(host.folder() + "/TURNPOST.INI");
    std::filesystem::create_directory(host.folder() + "/TURNPOST.INI");
    host.watcher().expect("frmSettings", [&host](QWidget& form) {
        host.type("txtSMTP", "after", &form);
        host.click("butOK", &form);
    });
    host.watcher().expectMessage();
    host.chooseMenu("mnuEmailSets");
    ASSERT_TRUE(host.watcher().done());
    EXPECT_EQ(host.watcher().texts()[0],
              "Cannot write " + host.folder() + "/TURNPOST.INI\nIt is a folder, not a file");
    EXPECT_EQ(host.desktop().app().values().settings.SmtpServer, "after");
}

} // namespace turnpost::desk
