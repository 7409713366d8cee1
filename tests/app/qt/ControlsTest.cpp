#include "app/qt/ControlTable.h"
#include "automation/Waiting.h"
#include "support/WindowTest.h"

#include <QAbstractButton>
#include <QFontDatabase>
#include <QLabel>
#include <QMenuBar>
#include <QScreen>

namespace turnpost::automation {

namespace {

QString kindOf(const QWidget& control) {
    QString kind = control.metaObject()->className();
    kind += control.isHidden() ? ",hidden" : "";
    kind += control.isEnabled() ? "" : ",unavailable";
    kind += control.property("readOnly").toBool() ? ",readOnly" : "";
    return kind + (control.property("checked").toBool() ? ",checked" : "");
}

// Gives the line of the first control for every control of an array.
QString lineOf(const QWidget& control, int arrayPitch) {
    const QString name = control.objectName();
    const int index = name.startsWith("PlaySel") ? 0 : name.section('(', 1).remove(')').toInt();
    const auto asFirst = [index](QString text) {
        return index == 0 ? text : text.replace(QString::number(index + 1), "1");
    };
    const QString text = asFirst(control.property("text").toString());
    const QString spoken = asFirst(control.accessibleName());
    return QString("%1 %2 %3 %4 %5 %6 \"%7\"%8")
        .arg(kindOf(control), index == 0 ? name : name.section('(', 0, 0) + "(0)")
        .arg(control.x() * 15)
        .arg(control.y() * 15 - index * arrayPitch)
        .arg(control.width() * 15)
        .arg(control.height() * 15)
        .arg(text.contains('\n') ? "" : text, spoken.isEmpty() ? "" : " (" + spoken + ")");
}

QList<QWidget*> controlsOf(const QWidget& form) {
    const auto children = form.findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
    const auto client = std::find_if(children.begin(), children.end(), [](const QWidget* child) {
        return child->metaObject()->className() == std::string("QWidget");
    });
    return (*client)->findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
}

QString linesOf(const QWidget& form) {
    QStringList lines;
    for (const QWidget* control : controlsOf(form)) {
        lines += lineOf(*control, form.objectName() == "frmMain" ? 360 : 480);
    }
    QString text;
    for (const QString& line : QStringList(lines)) {
        const qsizetype count = lines.removeAll(line);
        text += count == 0   ? ""
                : count == 1 ? line + "\n"
                             : QString("%1 x%2\n").arg(line).arg(count);
    }
    return text;
}

QString menusOf(const QMenuBar& bar) {
    QString text;
    for (const QAction* menu : bar.actions()) {
        text += menu->text() + " " + menu->menu()->objectName() + ":";
        for (const QAction* item : menu->menu()->actions()) {
            text += " " + (item->isSeparator() ? "---" : item->text()) + " " + item->objectName();
        }
        text += "\n";
    }
    return text;
}

// The window as the table describes it. What is the same for all windows is checked here.
std::string describe(const QWidget& form) {
    const auto* menus = form.findChild<QMenuBar*>();
    const QSize size = form.size() - QSize(0, menus == nullptr ? 0 : menus->height());
    EXPECT_TRUE(form.minimumSize() == form.size() && form.maximumSize() == form.size());
    EXPECT_TRUE(menus == nullptr || controlsOf(form)[0]->parentWidget()->y() == menus->height());
    EXPECT_NE(form.windowFlags() & Qt::WindowCloseButtonHint, 0);
    EXPECT_EQ(form.isModal(), menus == nullptr);
    const QPoint off = form.frameGeometry().center() - form.screen()->availableGeometry().center();
    EXPECT_LE(off.manhattanLength(), 2) << "not in the middle of the screen";
    EXPECT_EQ(form.windowFlags() & Qt::WindowMinMaxButtonsHint,
              menus == nullptr ? Qt::WindowFlags() : Qt::WindowMinimizeButtonHint);
    return QString("\n%1 %2 %3 \"%4\" %5\n%6%7")
        .arg(form.objectName())
        .arg(size.width() * 15)
        .arg(size.height() * 15)
        .arg(form.windowTitle(),
             form.focusWidget() == nullptr ? "" : form.focusWidget()->objectName(),
             menus == nullptr ? "" : menusOf(*menus), linesOf(form))
        .toStdString();
}

// With the usual fonts. A caption that needs a second line must get one.
void expectCaptionsFit(const QWidget& form) {
    // The offscreen platform has no fonts on Windows.
    for (QWidget* control :
         QFontDatabase::families().isEmpty() ? QList<QWidget*>() : controlsOf(form)) {
        const QString text = control->property("text").toString();
        if (text.isEmpty() || control->inherits("QLineEdit")) {
            continue;
        }
        SCOPED_TRACE(text.toStdString());
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
                << family;
            EXPECT_LE(needed.height(), control->height()) << family;
        }
        auto* button = qobject_cast<QAbstractButton*>(control);
        if (button != nullptr && button->fontMetrics().horizontalAdvance(text) > inner.width()) {
            const QImage before = button->grab().toImage();
            button->setText(QString(text).replace(text.lastIndexOf(' '), 1, "\n"));
            EXPECT_EQ(before, button->grab().toImage()) << "does not wrap";
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
    std::string found = describe(window());
    const std::pair<const char*, std::function<void()>> dialogs[] = {
        {"frmSettings", [&] { desk.openEmailSettings(); }},
        {"frmMessage", [&] { desk.openMessageEditor(); }},
        {"frmAtch", [&] { desk.openAttachments(); }},
        {"frmStore", [&] { desk.openStoredGames(); }},
        {"frmOpen", [&] { desk.app().openGame(); }},
        {"frmProgRept", [&] { desk.openReport(); }},
        {"frmAbout", [&] { desk.openAbout(); }},
    };
    for (const auto& [name, open] : dialogs) {
        host().watcher().expect(name, [this, &found](QWidget& form) {
            EXPECT_EQ(form.parentWidget(), &window()) << "it might open behind the main window";
            found += describe(form);
            expectCaptionsFit(form);
            form.close();
        });
        open();
    }
    EXPECT_EQ(found, controlTable);
    desk.setProgress(1);
    EXPECT_EQ(findControl<QFrame>(window(), "Shape1")->width(), 2640 / 15);
    expectCaptionsFit(window());
}

} // namespace turnpost::automation
