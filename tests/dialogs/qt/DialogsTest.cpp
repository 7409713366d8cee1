#include "automation/SampleGame.h"
#include "support/WindowTest.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

namespace turnpost::automation {

class Dialogs : public WindowTest {
  protected:
    Dialogs() {
        makeSampleGame(folder.path(), {{1, 10}, {2, 10}});
        folder.write("README", "a file without a period");
        const Settings settings{
            .HostName = "Game Host",
            .HostEmail = "host@example.org",
            .SmtpServer = "localhost",
            .StoredGames = {{{"A", "/A.NTP"}, {"B", "/B.NTP"}, {"C", "/C.NTP"}, {"D", "/D.NTP"}}},
            .DefaultGameFile = {}};
        folder.write("TURNPOST.INI", printSettings(settings));
        host().desktop().startUp();
    }

    // The texts of all boxes and the ticks ("x" or "o") of a dialog, in the order of its controls;
    // "%/" is the game's folder.
    QString shownBy(const QWidget& form) const {
        QStringList values;
        for (const QWidget* control : form.findChildren<QWidget*>()) {
            if (control->inherits("QCheckBox")) {
                values += control->property("checked").toBool() ? "x" : "o";
            } else if (control->property("readOnly").isValid()) { // Only text boxes have it.
                values += control->property("text").toString() +
                          control->property("plainText").toString();
            }
        }
        return values.join('|').replace(QString::fromStdString(folder.path("")), "%/");
    }

    // Presses a key where the focus is.
    static void press(Qt::Key key) {
        QWidget* focus = QApplication::focusWidget();
        ASSERT_NE(focus, nullptr);
        QTest::keyClick(focus, key);
    }
};

TEST_F(Dialogs, EmailSettingsAreStoredAsTyped) {
    in("frmSettings", "mnuEmailSets", [&](QWidget& form) {
        QApplication::clipboard()->setText("\u200B");
        for (const char* box : {"txtHostName", "txtHostEmail", "txtSMTP"}) {
            QTest::keySequence(findControl<QWidget>(form, box), QKeySequence::Paste);
        }
        EXPECT_EQ(shownBy(form), "Game Host\u200B|host@example.org|localhost");
        host().type("txtHostName", "  Bob \"The Host\" Smith", &form);
        host().type("txtHostEmail", "bob@example.org ", &form);
        host().type("txtSMTP", " mail:2525 ", &form);
        host().click("butOK", &form);
    });
    const Settings& stored = values().settings;
    EXPECT_EQ(stored.HostName, "  Bob \"The Host\" Smith");
    EXPECT_EQ(stored.HostEmail, "bob@example.org ");
    EXPECT_EQ(stored.SmtpServer, " mail:2525 ");
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
            EXPECT_TRUE(QRegularExpression("^(.+\n){3}\n.+$").match(credits).hasMatch());
            press(key);
            EXPECT_FALSE(form.isVisible());
            form.close();
        });
    }
}

TEST_F(Dialogs, MessageTextsChangeOnlyWhereTyped) {
    const MessageTemplate odd{"a\rb\nc\u2028d\u2029e\uFDD0f",
                              "a\rb\nc\u2028d\u2029e\uFDD0f\uFDD1g\r\n"};
    // Types what is not empty.
    const auto after = [&](const QString& subject, const QString& body, bool byDefault = false) {
        host().desktop().app().storeMessage(odd);
        in("frmMessage", "mnuMsg", [&](QWidget& form) {
            EXPECT_EQ(shownBy(form), "a b c d e\uFDD0f|a\nb\nc\nd\ne\nf\ng\n");
            if (!subject.isEmpty()) {
                host().type("txtSubject", subject, &form);
            }
            if (!body.isEmpty()) {
                host().type("txtMessage", body, &form);
            }
            if (byDefault) {
                host().click("Default", &form);
            }
            host().click("mnuOK", &form);
        });
        return values().message;
    };
    EXPECT_EQ(after("", ""), odd);
    EXPECT_EQ(after(" <<gn>> & x ", ""), (MessageTemplate{" <<gn>> & x ", odd.MessageBody}));
    EXPECT_EQ(after("", " one\n\n.two\u00a0"),
              (MessageTemplate{odd.MessageSubject, " one\r\n\r\n.two\u00a0"}));
    EXPECT_EQ(
        after("x", "x", true),
        (MessageTemplate{"Turn <<GY>> for <<GN>> - Player <<PN>>",
                         "Hello <<FN>>,\r\n\r\nAttached is turn <<GY>> for <<GN>>\r\n\r\n"
                         "Please make sure that you Save & Submit, and return your X<<PN>> file"
                         "\r\n\r\n\r\nThis message has been sent to you using Nimbus Turnpost "
                         "Version 1.3.0"}));
}

TEST_F(Dialogs, AttachmentsArePickedIntoTheirOwnBox) {
    in("frmAtch", "butAtch", [&](QWidget& form) {
        EXPECT_EQ(shownBy(form), "o|x|||");
        for (const char* box : {"(0)", "(1)", "(2)"}) {
            host().watcher().expect("frmOpen", [&](QWidget& picker) {
                EXPECT_EQ(picker.parentWidget(), &form) << "it might open behind this dialog";
                EXPECT_EQ(findControl<QLabel>(picker, "txtOpenMessage")->text(),
                          "Find file to send as an extra attachment");
                host().selectFile(picker, {}, "README");
                host().click("butLoad", &picker);
            });
            host().click(QString("butAddAtch") + box, &form);
        }
        host().click("butRemove(0)", &form);
        host().type("txtFile(1)", " no such file ", &form);
        EXPECT_EQ(shownBy(form), "o|x|| no such file |%/README");
        host().click("butOK", &form);
    });
    EXPECT_EQ(values().attachments.ExtraAttachments[1], " no such file ");
}

TEST_F(Dialogs, StoredGamesFillAndEmptyTheirOwnSlots) {
    host().findGame();
    host().type("GameName", "Cup");
    boxBy("mnuSave");
    in("frmStore", "mnuStoredCon", [&](QWidget& form) {
        for (const char* button : {"butStore(0)", "butClear(0)", "butClear(2)", "butStore(3)"}) {
            host().click(button, &form);
        }
        EXPECT_EQ(shownBy(form), " - Empty - ||B|/B.NTP| - Empty - ||Cup|%/GAME.NTP");
        EXPECT_EQ(findControl<QLineEdit>(form, "txtStoreFile(3)")->cursorPosition(), 0);
        form.close();
    });
}

} // namespace turnpost::automation
