#include "desk/SampleGame.h"
#include "support/WindowTest.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QRegularExpression>
#include <QScreen>

namespace turnpost::desk {

namespace {

// Each window as it is read, from the top down: title, menus, then what every control says; in
// brackets, to a screen reader; the number before it is its place in the order of Tab. The first of
// an array stands for all. Blanks count once.
const char* const pictures = R"text(
"Nimbus Turnpost Version 1.3.0"
&File &New &Open &Save E&xit
&Settings &Email &Message
&Stored Games - Empty - - Empty - - Empty - - Empty - Configure
&Help &About
2"Send via MAPI" 3"Send via SMTP" 4"Attachments"
"Game Name:" 1[Game name] "Year:" "2405"
"Game Path:" 5[Game path],readOnly 6"Find Game"
"Sending Progress"
"0%" [Sending progress] "100%"
7"All" 8"None" 9"Invert"
"Player Name " "Player Email Address" "Alternate Email" "Turn File"
"1" 10[Player 1 included],checked 11[Player 1 name] 12[Player 1 e-mail address]
13[Player 1 alternate e-mail address] 14[Player 1 turn file],readOnly

"Email Settings"
"Your Name:" 1[Your name]
"Your Email Address:" 2[Your email address]
"SMTP Address:" 3[SMTP address]
4"OK"

"Edit Message"
1[Subject] "Subject:"
"Your Message:" 2[Your message]
"<<GN>> - Game Name" "<<FN>> - Player First Name"
"<<PN>> - Player Number" "<<GY>> - Game Year"
3"OK" 4"Default"

"Attachments"
1"Send XY File?" 2"Send M Files?",checked
3[Extra file 1] 4"Add..." 5"Remove"
12"OK"

"Where to store current game details?"
3"Store" 4"Clear" 1[Slot 1 game name],readOnly 2[Slot 1 file],readOnly
17"OK"

"Locate File"
"Find Nimbus Turnpost File (*.NTP)"
2"Load",unavailable 5[Drive] 1[File] 3"Cancel" 6[Folder]
4"Load as Default?"

"Turn Sending Report"
1[Sending report],readOnly

"About Nimbus Turnpost"
"Nimbus Turnpost"
"Version 1.3.0"
"..."
1"OK"
)text";

bool isFirst(const QWidget& control) {
    const QString name = control.objectName();
    return !name.endsWith(')') || name.endsWith("(0)") || name.startsWith("PlaySel");
}

QWidget& clientOf(const QWidget& form) {
    return *form.findChild<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
}

QList<QWidget*> visibleControls(const QWidget& form) {
    auto controls = clientOf(form).findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
    controls.removeIf([](const QWidget* control) { return control->isHidden(); });
    std::sort(controls.begin(), controls.end(), [](const QWidget* a, const QWidget* b) {
        return std::pair(a->y(), a->x()) < std::pair(b->y(), b->x());
    });
    return controls;
}

QList<const QWidget*> tabOrderOf(const QWidget& form) {
    QList<const QWidget*> order;
    const QWidget* control = form.focusWidget();
    while (!order.contains(control)) {
        if ((control->focusPolicy() & Qt::TabFocus) != 0 && !control->isHidden()) {
            order += control;
        }
        control = control->nextInFocusChain();
    }
    return order;
}

QString saidBy(const QWidget& control, qsizetype tabPlace) {
    const QString text = control.property("text").toString();
    const QString spoken = control.accessibleName();
    QString said = tabPlace == 0 ? QString() : QString::number(tabPlace);
    said += spoken.isEmpty() ? "\"" + QString(text.contains('\n') ? "..." : text) + "\""
                             : "[" + spoken + "]";
    said += control.isEnabled() ? "" : ",unavailable";
    said += control.property("readOnly").toBool() ? ",readOnly" : "";
    return said + (control.property("checked").toBool() ? ",checked" : "");
}

std::string pictureOf(const QWidget& form) {
    QStringList parts = {"\"" + form.windowTitle() + "\""};
    for (const QMenu* menu : form.findChildren<QMenu*>(QRegularExpression("mnu"))) {
        parts += menu->title();
        for (const QAction* item : menu->actions()) {
            parts += item->text();
        }
    }
    const auto tabOrder = tabOrderOf(form);
    for (const QWidget* control : visibleControls(form)) {
        if (isFirst(*control)) {
            parts += saidBy(*control, tabOrder.indexOf(control) + 1);
        }
    }
    return parts.join(' ').simplified().toStdString();
}

void expectFixedInTheMiddle(const QWidget& form, Qt::WindowFlags minimiseBox) {
    EXPECT_TRUE(form.minimumSize() == form.size() && form.maximumSize() == form.size());
    EXPECT_EQ(form.rect().bottomRight(), clientOf(form).geometry().bottomRight());
    EXPECT_EQ(form.windowFlags() & (Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint),
              Qt::WindowCloseButtonHint | minimiseBox);
    const QPoint off = form.frameGeometry().center() - form.screen()->availableGeometry().center();
    EXPECT_LE(off.manhattanLength(), 2) << "not in the middle of the screen";
}

// With the usual fonts. A caption that needs a second line must get one.
void expectCaptionFits(QWidget& control) {
    const QString text = control.property("text").toString();
    const int markWidth = control.inherits("QLabel") ? 0 : control.inherits("QPushButton") ? 2 : 17;
    const QRect place = control.rect().adjusted(0, 0, -markWidth, 0);
    for (const char* family : {"DejaVu Sans", "Liberation Sans"}) {
        QFont font = control.font();
        font.setFamily(family);
        const QFontMetrics metrics(font);
        const QSize needed = metrics.boundingRect(place, Qt::TextWordWrap, text).size();
        EXPECT_TRUE(std::min(needed.width(), metrics.horizontalAdvance(text)) <= place.width() &&
                    needed.height() <= place.height())
            << family << ": " << text.toStdString();
    }
    auto* button = qobject_cast<QAbstractButton*>(&control);
    if (button != nullptr && control.fontMetrics().horizontalAdvance(text) > place.width()) {
        const QImage before = button->grab().toImage();
        button->setText(QString(text).replace(text.lastIndexOf(' '), 1, "\n"));
        EXPECT_EQ(before, button->grab().toImage()) << "does not wrap: " << text.toStdString();
    }
}

void expectUsable(QWidget& form) {
    QRegion taken;
    for (QWidget* control : visibleControls(form)) {
        const std::string name = control->objectName().toStdString();
        const QRect inner = control->geometry().adjusted(1, 1, -1, -1);
        EXPECT_TRUE(clientOf(form).rect().contains(inner)) << name;
        if (const auto* label = qobject_cast<QLabel*>(control)) {
            EXPECT_EQ(label->textFormat(), Qt::PlainText) << name;
        } else {
            EXPECT_FALSE(taken.intersects(inner)) << name << " lies over another";
            taken += inner;
        }
        if (const auto* box = qobject_cast<QLineEdit*>(control)) {
            EXPECT_GT(box->maxLength(), 1 << 24) << name;
        } else {
            expectCaptionFits(*control);
        }
    }
}

} // namespace

class Controls : public WindowTest {};

TEST_F(Controls, OfEveryWindowAreWhereAndAsTheHostNeedsThem) {
    host().startGame("localhost", {{1, 1}, {2, 1}, {16, 1}});
    host().type("GameName", "Cup");
    QStringList expected = QString(pictures).split("\n\n");
    EXPECT_EQ(pictureOf(window()), expected.takeFirst().simplified().toStdString());
    expectFixedInTheMiddle(window(), Qt::WindowMinimizeButtonHint);
    boxBy("mnuSave");
    host().click("PlaySel(1)");
    const std::pair<const char*, const char*> dialogs[] = {
        {"frmSettings", "mnuEmailSets"}, {"frmMessage", "mnuMsg"}, {"frmAtch", "butAtch"},
        {"frmStore", "mnuStoredCon"},    {"frmOpen", "mnuOpen"},   {"frmProgRept", "butSend"},
        {"frmAbout", "mnuAbout"},
    };
    for (const auto& [name, opener] : dialogs) {
        in(name, opener, [&](QWidget& form) {
            EXPECT_EQ(form.parentWidget(), &window()) << "it might open behind the main window";
            EXPECT_EQ(pictureOf(form), expected.takeFirst().simplified().toStdString());
            expectFixedInTheMiddle(form, {});
            expectUsable(form);
            form.close();
        });
    }
    host().desktop().setProgress(1);
    EXPECT_EQ(findControl<QFrame>(window(), "Shape1")->width(), 2640 / 15);
    expectUsable(window());
}

} // namespace turnpost::desk
