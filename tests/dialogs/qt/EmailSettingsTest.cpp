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

TEST(EmailSettings, FirstStartAsksBeforeTheMainWindowAndOkAloneWritesTheWholeFile) {
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
    again.watcher().expect("frmSettings", [&again](QWidget& form) {
        again.type("txtHostName", "lost", &form);
        form.close();
    });
    again.chooseMenu("mnuEmailSets");
    EXPECT_EQ(again.desktop().app().values().settings.HostName, "  Bob \"The Host\" Smith");
    EXPECT_TRUE(again.watcher().faults().empty());
}

} // namespace turnpost::desk
