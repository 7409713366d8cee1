#pragma once

#include "automation/Host.h"
#include "fakes/TempFolder.h"

#include <gtest/gtest.h>
#include <optional>

namespace turnpost::automation {

/// Runs the program with an automated host in a folder of its own. Only one may exist at a time,
/// because its watcher closes the windows of any other. At the end every expected window must have
/// been opened and closed, and no other.
class WindowTest : public testing::Test {
  protected:
    WindowTest() { start(); }
    void TearDown() override { leave(); }

    /// Ends the program and starts it again in the same folder.
    Host& start(const Application::MailSystemMaker& makeMail = makeMailSystem) {
        leave();
        return desk_.emplace(folder.path(), makeMail);
    }

    Host& host() { return *desk_; }
    frmMain& window() { return desk_->window(); }
    const SharedValues& values() { return desk_->desktop().app().values(); }

    void open(const QString& opener) {
        opener.startsWith("mnu") ? host().chooseMenu(opener) : host().click(opener);
    }

    /// Opens a dialog by a menu item or button of the main window. Returns when it has closed.
    void in(const QString& form, const QString& opener, ModalWatcher::Action action) {
        host().watcher().expect(form, std::move(action));
        open(opener);
    }

    /// The text of the message box that this menu item or button opens.
    std::string boxBy(const QString& opener) {
        host().watcher().expectMessage();
        open(opener);
        const auto texts = host().watcher().takeTexts();
        return texts.size() == 1 ? texts[0] : "not one box";
    }

    TempFolder folder;

  private:
    void leave() {
        if (desk_) {
            EXPECT_TRUE(desk_->watcher().done()) << "an expected window did not open";
            EXPECT_EQ(desk_->watcher().faults(), std::vector<std::string>{});
            desk_.reset();
        }
    }

    std::optional<Host> desk_;
};

} // namespace turnpost::automation
