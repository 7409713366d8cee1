#include "automation/SampleGame.h"
#include "compose/ExpandTemplate.h"
#include "support/WindowTest.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QMenu>
#include <QTest>
#include <QTextDocumentFragment>

namespace turnpost::automation {

namespace {

const char* const settings = "frmSettings mnuEmailSets";
const char* const message = "frmMessage mnuMsg";
const char* const attachments = "frmAtch butAtch";

// The texts of all boxes and the ticks ("x" or "o") of a dialog, in the order of its controls.
std::string shownBy(const QWidget& form) {
    QStringList values;
    for (const QWidget* control : form.findChildren<QWidget*>()) {
        if (control->inherits("QCheckBox")) {
            values += control->property("checked").toBool() ? "x" : "o";
        } else if (control->property("readOnly").isValid()) { // Only text boxes have it.
            values +=
                control->property("text").toString() + control->property("plainText").toString();
        }
    }
    return values.join('|').toStdString();
}

} // namespace

class Dialogs : public WindowTest {
  protected:
    Dialogs() {
        makeSampleGame(folder.path(), {{1, 10}, {2, 10}});
        folder.write("README", "a file without a period");
        Settings values{"Game Host", "host@example.org", "localhost", {}, {}};
        values.StoredGames = {{{"A", "/A.NTP"}, {"B", "/B.NTP"}, {"C", "/C.NTP"}, {"D", "/D.NTP"}}};
        folder.write("TURNPOST.INI", printSettings(values));
        host().desktop().startUp();
    }

    // A step in a dialog: "control=text" types, "control>file" picks a file in the picker that the
    // button opens ("control>" cancels it), "control" clicks.
    void act(QWidget& form, const QString& deed) {
        const QString control = deed.section(QRegularExpression("[=>]"), 0, 0);
        const QString value = deed.mid(control.size() + 1);
        if (deed.contains('=')) {
            host().type(control, value, &form);
            return;
        }
        if (deed.contains('>')) {
            host().watcher().expect("frmOpen", [this, value, &form](QWidget& picker) {
                EXPECT_EQ(picker.parentWidget(), &form) << "it might open behind this dialog";
                EXPECT_EQ(findControl<QLabel>(picker, "txtOpenMessage")->text(),
                          "Find file to send as an extra attachment");
                host().selectFile(picker, {}, value.isEmpty() ? "GAME.M2" : value);
                host().click(value.isEmpty() ? "butCancel" : "butLoad", &picker);
            });
        }
        host().click(control, &form);
    }

    // Opens a dialog, compares what it shows ("%" is the game's folder), and closes it by a button.
    // Without a button it uses the close box, which must not write anything.
    void visit(const QString& dialog, QString shown, const QStringList& deeds, const QString& end) {
        const std::string before = folder.read("TURNPOST.INI");
        shown.replace("%/", QString::fromStdString(folder.path("")));
        in(dialog.section(' ', 0, 0), dialog.section(' ', 1), [&](QWidget& form) {
            EXPECT_EQ(shownBy(form), shown.toStdString());
            for (const QString& deed : deeds) {
                act(form, deed);
            }
            end.isEmpty() ? void(form.close()) : host().click(end, &form);
        });
        EXPECT_TRUE(!end.isEmpty() || folder.read("TURNPOST.INI") == before);
    }
};

TEST_F(Dialogs, OnlyOkStoresEmailSettings) {
    const char* const typed = "  Bob \"The Host\" Smith|bob@example.org| mail:2525 ";
    visit(settings, "Game Host|host@example.org|localhost",
          {"txtHostName=  Bob \"The Host\" Smith", "txtHostEmail=bob@example.org",
           "txtSMTP= mail:2525 "},
          "butOK");
    visit(settings, typed, {"txtHostName=lost", "txtHostEmail=lost", "txtSMTP=lost"}, "");
    in("frmSettings", "mnuEmailSets", [&](QWidget& form) {
        EXPECT_EQ(shownBy(form), typed);
        QApplication::clipboard()->setText("\u200B");
        for (const char* box : {"txtHostName", "txtHostEmail", "txtSMTP"}) {
            QTest::keySequence(findControl<QWidget>(form, box), QKeySequence::Paste);
        }
        EXPECT_EQ(shownBy(form), "  Bob \"The Host\" Smith\u200B|bob@example.org| mail:2525 ");
        // Most code pages could not store it.
        QTest::keyClick(findControl<QWidget>(form, "txtHostName"), Qt::Key_Backspace);
        QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, {}, true);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        findControl<QWidget>(form, "butOK")->setFocus();
        QApplication::sendEvent(QApplication::focusWidget(), &held);
        EXPECT_TRUE(form.isVisible()) << "only a fresh Enter on the button presses it";
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        EXPECT_FALSE(form.isVisible());
        form.close();
    });
}

TEST_F(Dialogs, OnlyOkStoresTheMessageAsTyped) {
    const QString hard(QChar(0xa0));
    visit(message, "|", {"txtSubject= Turn <<gn>> & more ", "txtMessage= one\n\n.two" + hard},
          "mnuOK");
    EXPECT_EQ(values().message.MessageBody, " one\r\n\r\n.two\u00a0");
    visit(message, " Turn <<gn>> & more | one\n\n.two ", {"Default"}, "");
    in("frmMessage", "mnuMsg", [this](QWidget& form) {
        EXPECT_EQ(shownBy(form), " Turn <<gn>> & more | one\n\n.two ");
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget()->objectName(), "mnuOK");
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        EXPECT_TRUE(form.isVisible());
        host().click("Default", &form);
        host().click("mnuOK", &form);
    });
    EXPECT_EQ(values().message.MessageSubject, "Turn <<GY>> for <<GN>> - Player <<PN>>");
    EXPECT_EQ(values().message.MessageBody,
              "Hello <<FN>>,\r\n\r\nAttached is turn <<GY>> for <<GN>>\r\n\r\n"
              "Please make sure that you Save & Submit, and return your X<<PN>> file\r\n\r\n\r\n"
              "This message has been sent to you using Nimbus Turnpost Version 1.3.0");
    open("mnuNew");
    visit(message, "|", {}, "");
}

TEST_F(Dialogs, UntouchedMessageTextsStayUnchanged) {
    const MessageTemplate odd{"a\rb\nc\u2028d\u2029e\uFDD0f",
                              "a\rb\nc\u2028d\u2029e\uFDD0f\uFDD1g\r\n"};
    const auto after = [&](const QStringList& deeds) {
        host().desktop().app().storeMessage(odd);
        in("frmMessage", "mnuMsg", [&](QWidget& form) {
            for (const QString& deed : deeds) {
                act(form, deed);
            }
            host().click("mnuOK", &form);
        });
        return values().message;
    };
    EXPECT_EQ(after({}), odd);
    EXPECT_EQ(after({"txtSubject=x"}), (MessageTemplate{"x", odd.MessageBody}));
    EXPECT_EQ(after({"txtMessage=x"}), (MessageTemplate{odd.MessageSubject, "x"}));
    EXPECT_EQ(after({"txtMessage=x", "Default"}), defaultTemplate());
}

TEST_F(Dialogs, OnlyOkStoresAttachments) {
    visit(attachments, "o|x|||",
          {"chkXY", "butAddAtch(0)>GAME.M1", "butAddAtch(1)>", "txtFile(1)= no such file ",
           "butAddAtch(2)>README"},
          "butOK");
    visit(attachments, "x|x|%/GAME.M1| no such file |%/README",
          {"chkXY", "chkMx", "butRemove(0)", "txtFile(1)=lost", "butAddAtch(2)>GAME.M2"}, "");
    visit(attachments, "x|x|%/GAME.M1| no such file |%/README",
          {"butRemove(1)", "chkMx", "butAddAtch(0)>", "butAddAtch(2)>GAME.HST"}, "butOK");
    visit(attachments, "x|o|%/GAME.M1||%/GAME.HST", {"chkXY", "chkMx", "butRemove(0)"}, "butOK");
    visit(attachments, "o|x|||%/GAME.HST", {"chkXY", "chkMx"}, "butOK");
    open("mnuNew");
    visit(attachments, "o|x|||", {}, "");
}

TEST_F(Dialogs, OnlyOkStoresGamesAndShowsThemInTheMenu) {
    const auto games = [this](const char* shown, const QStringList& deeds, const char* end,
                              const char* entries) {
        visit("frmStore mnuStoredCon", shown, deeds, end);
        QString found;
        for (const auto* entry : window().findChildren<QAction*>(QRegularExpression("StoredG"))) {
            found += entry->text() + '|';
        }
        EXPECT_EQ(found.toStdString(), entries);
    };
    host().findGame();
    host().type("GameName", "Spring & \"Cup\"");
    boxBy("mnuSave");
    games("A|/A.NTP|B|/B.NTP|C|/C.NTP|D|/D.NTP", {"butStore(0)", "butClear(1)"}, "", "A|B|C|D|");
    games("A|/A.NTP|B|/B.NTP|C|/C.NTP|D|/D.NTP", {"butStore(1)", "butClear(2)"}, "mnuOK",
          "A|Spring && \"Cup\"| - Empty - |D|");
    games("A|/A.NTP|Spring & \"Cup\"|%/GAME.NTP| - Empty - ||D|/D.NTP",
          {"butStore(0)", "butClear(0)", "butClear(3)", "butStore(3)"}, "mnuOK",
          " - Empty - |Spring && \"Cup\"| - Empty - |Spring && \"Cup\"|");
    start().desktop().startUp();
    open("mnuStoredG(1)");
    EXPECT_EQ(host().textOf("GameName"), "");
    open("mnuStoredG(4)");
    EXPECT_EQ(host().textOf("GameName"), "Spring & \"Cup\"");
}

TEST_F(Dialogs, LongGameNamesFitTheMenuAndItsTooltip) {
    const std::string name = "<b>&\t" + std::string(500, 'x') + "\t&</b>";
    Settings stored = values().settings;
    stored.StoredGames[0].StoredGameName = name;
    stored.StoredGames[1].StoredGameName = " -\tEmpty - ";
    folder.write("TURNPOST.INI", printSettings(stored));
    start().desktop().startUp();
    const auto* item = window().findChild<QAction*>("mnuStoredG(1)");
    const QRegularExpression cut("^<b>&& x{5,}…x{5,} &&</b>$");
    EXPECT_TRUE(cut.match(item->text()).hasMatch()) << item->text().toStdString();
    EXPECT_LT(findControl<QMenu>(window(), "mnuStored")->sizeHint().width(), window().width());
    EXPECT_TRUE(findControl<QMenu>(window(), "mnuStored")->toolTipsVisible());
    EXPECT_EQ(
        QTextDocumentFragment::fromHtml(item->toolTip()).toPlainText().remove('\n').toStdString(),
        name);
    EXPECT_EQ(window().findChild<QAction*>("mnuStoredG(2)")->text(), " - Empty - ");
    EXPECT_EQ(boxBy("mnuStoredG(2)"), "Game details not found");
}

TEST_F(Dialogs, AboutShowsCreditsAndClosesByEnterAndEscape) {
    for (const auto key : {Qt::Key_Escape, Qt::Key_Return}) {
        in("frmAbout", "mnuAbout", [key](QWidget& form) {
            const QString credits = findControl<QLabel>(form, "lblDescription")->text();
            EXPECT_TRUE(QRegularExpression("^(.+\n){3}\n.+$").match(credits).hasMatch());
            QTest::keyClick(&form, key);
            EXPECT_FALSE(form.isVisible());
            form.close();
        });
    }
}

} // namespace turnpost::automation
