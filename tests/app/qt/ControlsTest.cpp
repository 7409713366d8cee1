#include "app/qt/ControlTable.h"
#include "automation/SampleGame.h"
#include "support/WindowTest.h"

#include <QAbstractButton>
#include <QFontDatabase>
#include <QLabel>
#include <QMenuBar>
#include <QScreen>

namespace turnpost::automation {

namespace {

QString kindOf(const QWidget& control) {
    const auto has = [&control](const char* property, int value) {
        return control.property(property).toInt() == value;
    };
    const bool label = qobject_cast<const QLabel*>(&control) != nullptr;
    QString kind = control.metaObject()->className();
    kind += control.isHidden() ? ",hidden" : "";
    kind += control.isEnabled() ? "" : ",unavailable";
    kind += control.property("readOnly").toBool() ? ",readOnly" : "";
    kind += control.property("checked").toBool() ? ",checked" : "";
    kind += label && has("frameShape", QFrame::Box) ? ",framed" : "";
    kind += label && has("alignment", Qt::AlignCenter) ? ",centred" : "";
    kind += label && !has("textFormat", Qt::PlainText) ? ",rich" : "";
    kind += has("verticalScrollBarPolicy", Qt::ScrollBarAlwaysOn) ? ",scrolled" : "";
    kind += has("verticalScrollBarPolicy", Qt::ScrollBarAlwaysOff) ? ",unscrolled" : "";
    const int pixels = control.font().pixelSize();
    kind += pixels == 11 ? QString() : QString(",%1px").arg(pixels);
    return kind + (control.font().bold() ? ",bold" : "");
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
    std::map<QString, int> counts;
    for (const QWidget* control : controlsOf(form)) {
        const QString line = lineOf(*control, form.objectName() == "frmMain" ? 360 : 480);
        if (++counts[line] == 1) {
            lines += line;
        }
    }
    for (QString& line : lines) {
        line += counts[line] == 1 ? QString() : QString(" x%1").arg(counts[line]);
    }
    return lines.join('\n');
}

QString tabOrderOf(const QWidget& form) {
    QStringList order;
    const QWidget* start = form.focusWidget() == nullptr ? &form : form.focusWidget();
    const QWidget* control = start;
    do {
        const bool stops = (control->focusPolicy() & Qt::TabFocus) != 0;
        if (stops && control != &form && control->objectName() != "butSend2") {
            order += control->objectName();
        }
        control = control->nextInFocusChain();
    } while (control != start && order.size() < 15);
    return order.join(' ');
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
    return QString("\n%1 %2 %3 \"%4\" %5\n%6%7\n")
        .arg(form.objectName())
        .arg(size.width() * 15)
        .arg(size.height() * 15)
        .arg(form.windowTitle(), tabOrderOf(form), menus == nullptr ? "" : menusOf(*menus),
             linesOf(form))
        .toStdString();
}

// With the usual fonts. A caption that needs a second line must get one.
void expectCaptionFits(QWidget& control) {
    if (QFontDatabase::families().isEmpty()) {
        return; // The offscreen platform has no fonts on Windows.
    }
    const QString text = control.property("text").toString();
    const int markWidth = control.inherits("QLabel") ? 0 : control.inherits("QPushButton") ? 2 : 17;
    const QRect inner(0, 0, control.width() - markWidth, 1000);
    for (const char* family : {"DejaVu Sans", "Liberation Sans"}) {
        QFont font = control.font();
        font.setFamily(family);
        const QFontMetrics metrics(font);
        const QRect needed = metrics.boundingRect(inner, Qt::AlignLeft | Qt::TextWordWrap, text);
        EXPECT_LE(std::min(needed.width(), metrics.horizontalAdvance(text)), inner.width())
            << family << ": " << text.toStdString();
        EXPECT_LE(needed.height(), control.height()) << family << ": " << text.toStdString();
    }
    auto* button = qobject_cast<QAbstractButton*>(&control);
    if (button != nullptr && control.fontMetrics().horizontalAdvance(text) > inner.width()) {
        const QImage before = button->grab().toImage();
        button->setText(QString(text).replace(text.lastIndexOf(' '), 1, "\n"));
        EXPECT_EQ(before, button->grab().toImage()) << "does not wrap: " << text.toStdString();
    }
}

void expectCaptionsFit(QWidget& form) {
    for (QWidget* control : controlsOf(form)) {
        if (!control->inherits("QLineEdit")) {
            expectCaptionFits(*control);
        }
    }
}

} // namespace

class Controls : public WindowTest {};

TEST_F(Controls, EveryWindowMatchesItsTable) {
    std::map<int, size_t> turnFiles;
    for (int player = 1; player <= rowCount; ++player) {
        turnFiles[player] = 1;
    }
    makeSampleGame(folder.path(), turnFiles);
    host().saveSettings("localhost");
    host().desktop().startUp();
    std::string found = describe(window());
    host().findGame();
    host().type("GameName", "Cup");
    EXPECT_EQ(boxBy("mnuSave"), "Details saved to " + folder.path("GAME.NTP"));
    host().click("PlaySel(1)");
    const std::pair<const char*, const char*> dialogs[] = {
        {"frmSettings", "mnuEmailSets"}, {"frmMessage", "mnuMsg"}, {"frmAtch", "butAtch"},
        {"frmStore", "mnuStoredCon"},    {"frmOpen", "mnuOpen"},   {"frmProgRept", "butSend"},
        {"frmAbout", "mnuAbout"},
    };
    for (const auto& [name, opener] : dialogs) {
        in(name, opener, [this, &found](QWidget& form) {
            EXPECT_EQ(form.parentWidget(), &window()) << "it might open behind the main window";
            found += describe(form);
            expectCaptionsFit(form);
            form.close();
        });
    }
    EXPECT_EQ(found, controlTable);
    host().desktop().setProgress(1);
    EXPECT_EQ(findControl<QFrame>(window(), "Shape1")->width(), 2640 / 15);
    expectCaptionsFit(window());
}

} // namespace turnpost::automation
