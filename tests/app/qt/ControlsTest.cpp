#include "automation/Waiting.h"
#include "support/WindowTest.h"

#include <QFontDatabase>
#include <QLabel>
#include <QMenuBar>
#include <QScreen>

namespace turnpost::automation {

namespace {

// The controls of all rows of an array. %1 is the index of the row, %2 its number.
QString rows(int count, const QString& controls) {
    QString text;
    for (int index = 0; index < count; ++index) {
        text += controls.arg(index).arg(index + 1);
    }
    return text;
}

// Of each window: width and height in twips without the menu, title, the control with the focus;
// then all controls in the order of Tab, with their names for screen readers. The demo's pictures
// show the rest.
const QString mainWindow =
    "frmMain 9600 7200 Nimbus Turnpost Version 1.3.0, GameName: Label4, GameName (Game name), "
    "Label10, txtYear, Command1, butSend, butAtch, butSend2, Label5, txtGamePath read-only (Game "
    "path), GameChoose, Label8, Label6, Shape1 (Sending progress), Label7, PlaySel(0), PlaySel(1), "
    "PlaySel(2), Label1, Label2, Label9, Label3, " +
    rows(rowCount, "PlayNum(%1), IncludePlayer(%1) (Player %2 included), PlayerName(%1) (Player"
                   " %2 name), PlayerEmail(%1) (Player %2 e-mail address), AltEmail(%1) (Player"
                   " %2 alternate e-mail address), GameFile(%1) read-only (Player %2 turn "
                   "file), ");

// All menus and items in their order, with their names.
const char* const menuTable =
    "&File mnuFile: &New mnuNew, &Open mnuOpen, &Save mnuSave,  mnuSpace1, E&xit mnuExit, "
    "&Settings mnuSettings: &Email mnuEmailSets, &Message mnuMsg, "
    "&Stored Games mnuStored:  - Empty -  mnuStoredG(1),  - Empty -  mnuStoredG(2),  - Empty -  "
    "mnuStoredG(3),  - Empty -  mnuStoredG(4),  mnuSpace2, Configure mnuStoredCon, "
    "&Help mnuHelp: &About mnuAbout, ";

QList<QWidget*> controlsOf(const QWidget& form) {
    QList<QWidget*> controls;
    for (QWidget* next = form.nextInFocusChain(); next != &form; next = next->nextInFocusChain()) {
        const QString name = next->objectName();
        if (!name.isEmpty() && !name.startsWith("qt_")) { // Else it is the toolkit's own.
            controls += next;
        }
    }
    return controls;
}

// The window as the table describes it. What is the same for all windows is checked here.
QString describe(const QWidget& form) {
    const auto* menus = form.findChild<QMenuBar*>();
    const QSize size = form.size() - QSize(0, menus == nullptr ? 0 : menus->height());
    EXPECT_TRUE(form.minimumSize() == form.size() && form.maximumSize() == form.size());
    EXPECT_NE(form.windowFlags() & Qt::WindowCloseButtonHint, 0);
    EXPECT_EQ(form.isModal(), menus == nullptr);
    const QPoint off = form.frameGeometry().center() - form.screen()->availableGeometry().center();
    EXPECT_LE(off.manhattanLength(), 2) << "not in the middle of the screen";
    EXPECT_EQ(form.windowFlags() & Qt::WindowMinMaxButtonsHint,
              menus == nullptr ? Qt::WindowFlags() : Qt::WindowMinimizeButtonHint);
    QString text = QString("%1 %2 %3 %4, %5: ")
                       .arg(form.objectName())
                       .arg(size.width() * 15)
                       .arg(size.height() * 15)
                       .arg(form.windowTitle(), form.focusWidget()->objectName());
    for (const QWidget* control : controlsOf(form)) {
        const QString spoken = control->accessibleName();
        text += control->objectName() +
                (control->property("readOnly").toBool() ? " read-only" : "") +
                (spoken.isEmpty() ? "" : " (" + spoken + ")") + ", ";
    }
    return text;
}

// With the usual fonts. A caption that needs a second line must get one.
void expectCaptionsFit(const QWidget& form) {
    // The offscreen platform has no fonts on Windows.
    for (const QWidget* control :
         QFontDatabase::families().isEmpty() ? QList<QWidget*>() : controlsOf(form)) {
        const QString text = control->property("text").toString();
        if (text.isEmpty() || control->inherits("QLineEdit")) {
            continue;
        }
        const int mark = control->inherits("QLabel")        ? 0
                         : control->inherits("QPushButton") ? 2
                                                            : 17;
        const QRect inner(0, 0, control->width() - mark, 1000);
        for (const char* family : {"DejaVu Sans", "Liberation Sans"}) {
            QFont font = control->font();
            font.setFamily(family);
            const QFontMetrics metrics(font);
            const QSize needed = metrics.boundingRect(inner, Qt::TextWordWrap, text).size();
            EXPECT_LE(std::min(needed.width(), metrics.horizontalAdvance(text)), inner.width())
                << text.toStdString() << ", " << family;
            EXPECT_LE(needed.height(), control->height()) << text.toStdString() << ", " << family;
        }
    }
}

} // namespace

using Controls = WindowTest;

TEST_F(Controls, EveryWindowMatchesItsTable) {
    folder.write("GAME.NTP", "");
    host().saveSettings("localhost");
    Desktop& desk = host().desktop();
    desk.startUp();
    runPendingEvents();
    EXPECT_EQ(describe(window()), mainWindow);
    QString menus;
    for (const QAction* menu : window().findChild<QMenuBar*>()->actions()) {
        menus += menu->text() + " " + menu->menu()->objectName() + ": ";
        for (const QAction* item : menu->menu()->actions()) {
            menus += item->text() + " " + item->objectName() + ", ";
        }
    }
    EXPECT_EQ(menus, menuTable);
    expectCaptionsFit(window());
    const std::pair<QString, std::function<void()>> dialogs[] = {
        {"frmSettings 5700 2100 Email Settings, txtHostName: Label1, txtHostName (Your name), "
         "Label2, txtHostEmail (Your email address), Label3, txtSMTP (SMTP address), butOK, ",
         [&] { desk.openEmailSettings(); }},
        {"frmMessage 7200 5550 Edit Message, txtSubject: Label1, txtSubject (Subject), Label2, "
         "txtMessage (Your message), Label3, Label4, Label5, Label6, mnuOK, Default, ",
         [&] { desk.openMessageEditor(); }},
        {"frmAtch 5400 3105 Attachments, chkXY: chkXY, chkMx, " +
             rows(3, "txtFile(%1) (Extra file %2), butAddAtch(%1), butRemove(%1), ") + "butOK, ",
         [&] { desk.openAttachments(); }},
        {"frmStore 8115 2760 Where to store current game details?, txtStoreName(0): " +
             rows(
                 4,
                 "txtStoreName(%1) read-only (Slot %2 game name), txtStoreFile(%1) read-only (Slot "
                 "%2 file), butStore(%1), butClear(%1), ") +
             "mnuOK, ",
         [&] { desk.openStoredGames(); }},
        {"frmOpen 7155 4710 Locate File, File1: txtOpenMessage, Drive1 (Drive), Dir1 (Folder), "
         "File1 (File), butLoad, butCancel, LoadDef, ",
         [&] { desk.app().openGame(); }},
        {"frmProgRept 4770 4755 Turn Sending Report, txtReport: txtReport read-only (Sending "
         "report), ",
         [&] { desk.openReport(); }},
        {"frmAbout 6465 3555 About Nimbus Turnpost, cmdOK: lblTitle, lblVersion, lblDescription, "
         "cmdOK, ",
         [&] { desk.openAbout(); }},
    };
    for (const auto& [table, open] : dialogs) {
        host().watcher().expect(table.section(' ', 0, 0), [this, expected = table](QWidget& form) {
            EXPECT_EQ(form.parentWidget(), &window()) << "it might open behind the main window";
            EXPECT_EQ(describe(form), expected);
            expectCaptionsFit(form);
            form.close();
        });
        open();
    }
}

} // namespace turnpost::automation
