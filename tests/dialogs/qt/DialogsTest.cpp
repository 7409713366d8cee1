#include "compose/ExpandTemplate.h"
#include "support/WindowTest.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QTest>

namespace turnpost::automation {

class Dialogs : public WindowTest {
  protected:
    Dialogs() {
        host().saveSettings("localhost");
        host().desktop().startUp();
    }

    // Presses a key where the focus is.
    static void press(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }
};

TEST_F(Dialogs, EmailSettingsCleanOnlyPastedAddresses) {
    QString shown;
    in("frmSettings", "mnuEmailSets", [&](QWidget& form) {
        QApplication::clipboard()->setText("\u200B");
        for (const char* box : {"txtHostName", "txtHostEmail", "txtSMTP"}) {
            host().type(box, "  \"x\" ", &form);
            QTest::keySequence(findControl<QWidget>(form, box), QKeySequence::Paste);
            shown += findControl<QWidget>(form, box)->property("text").toString();
        }
        form.close();
    });
    EXPECT_EQ(shown, "  \"x\" \u200B  \"x\"   \"x\" ");
}

TEST_F(Dialogs, OnlyAFreshEnterOnAButtonPressesIt) {
    in("frmSettings", "mnuEmailSets", [](QWidget& form) {
        press(Qt::Key_Escape);
        press(Qt::Key_Return);
        auto* ok = findControl<QWidget>(form, "butOK");
        ok->setFocus();
        QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, {}, true);
        QApplication::sendEvent(ok, &held);
        EXPECT_TRUE(form.isVisible());
        press(Qt::Key_Return);
        EXPECT_FALSE(form.isVisible());
        form.close();
    });
    in("frmMessage", "mnuMsg", [](QWidget& form) {
        press(Qt::Key_Tab);
        press(Qt::Key_Tab);
        EXPECT_EQ(form.focusWidget(), findControl<QWidget>(form, "mnuOK"));
        press(Qt::Key_Return);
        press(Qt::Key_Escape);
        EXPECT_TRUE(form.isVisible()) << "Enter belongs to the text";
        form.close();
    });
}

TEST_F(Dialogs, AboutShowsCreditsAndClosesByEnterAndEscape) {
    for (const auto key : {Qt::Key_Escape, Qt::Key_Return}) {
        in("frmAbout", "mnuAbout", [key](QWidget& form) {
            const QString credits = findControl<QLabel>(form, "lblDescription")->text();
            EXPECT_TRUE(credits.contains(QRegularExpression("^(.+\n){3}\n.+$")));
            press(key);
            EXPECT_FALSE(form.isVisible());
            form.close();
        });
    }
}

TEST_F(Dialogs, MessageTextsChangeOnlyWhereTyped) {
    const MessageTemplate odd{"a\rb\nc\u2028d\u2029e\uFDD0f",
                              "a\rb\nc\u2028d\u2029e\uFDD0f\uFDD1g\r\n"};
    const auto afterTyping = [&](const QString& box, const QString& text) {
        host().desktop().app().storeMessage(odd);
        in("frmMessage", "mnuMsg", [&](QWidget& form) {
            if (!box.isEmpty()) {
                host().type(box, text, &form);
                QTest::keyClick(form.focusWidget(), Qt::Key_Return, Qt::ShiftModifier);
            }
            host().click("mnuOK", &form);
        });
        return values().message;
    };
    EXPECT_EQ(afterTyping({}, {}), odd);
    EXPECT_EQ(afterTyping("txtSubject", " <<gn>> & x "),
              (MessageTemplate{" <<gn>> & x ", odd.MessageBody}));
    EXPECT_EQ(afterTyping("txtMessage", " one\n\n.two\u00a0"),
              (MessageTemplate{odd.MessageSubject, " one\r\n\r\n.two\u00a0\r\n"}));
    EXPECT_EQ(defaultTemplate().MessageBody,
              "Hello <<FN>>,\r\n\r\nAttached is turn <<GY>> for <<GN>>\r\n\r\n"
              "Please make sure that you Save & Submit, and return your X<<PN>> file"
              "\r\n\r\n\r\nThis message has been sent to you using Nimbus Turnpost "
              "Version 1.3.0");
}

TEST_F(Dialogs, AttachmentsArePickedFromAllFiles) {
    folder.write("README", "a file without a period");
    in("frmAtch", "butAtch", [&](QWidget& form) {
        for (const char* button : {"butAddAtch(0)", "butAddAtch(2)"}) {
            host().watcher().expect("frmOpen", [&](QWidget& picker) {
                EXPECT_EQ(picker.parentWidget(), &form) << "it might open behind this dialog";
                EXPECT_EQ(findControl<QLabel>(picker, "txtOpenMessage")->text(),
                          "Find file to send as an extra attachment");
                host().selectFile(picker, {}, "README");
                host().click("butLoad", &picker);
            });
            host().click(button, &form);
        }
        host().click("butRemove(0)", &form);
        host().type("txtFile(1)", " no such file ", &form);
        host().click("butOK", &form);
    });
    EXPECT_EQ(values().attachments.ExtraAttachments,
              (std::array<std::string, 3>{"", " no such file ", folder.path("README")}));
}

} // namespace turnpost::automation
