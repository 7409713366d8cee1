#include "dialogs/qt/frmAbout.h"

#include "dialogs/Credits.h"
#include "text/qt/QtText.h"
#include "widgets/Twips.h"

#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>

namespace turnpost {

namespace {

// Points of 1/72 inch at 96 dots per inch, so that the size fits the pixels of the form.
void setFontSize(QLabel* label, double points, bool bold) {
    QFont font = label->font();
    font.setPixelSize(qRound(points * 96 / 72));
    font.setBold(bold);
    label->setFont(font);
}

} // namespace

frmAbout::frmAbout(QWidget* parent, const Version& version)
    : Form(parent, "frmAbout", QString("About ") + applicationTitle, {6465, 3555}) {
    QLabel* lblTitle = addLabel("lblTitle", applicationTitle, twipsRect(120, 180, 6285, 480));
    setFontSize(lblTitle, 13.5, true);
    QLabel* lblVersion = addLabel("lblVersion", QString("Version ") + toQt(versionText(version)),
                                  twipsRect(120, 720, 6285, 285));
    setFontSize(lblVersion, 12, false);
    QLabel* lblDescription = addLabel("lblDescription", toQt(credits()).replace("\r\n", "\n"),
                                      twipsRect(150, 1125, 6285, 1950));
    setFontSize(lblDescription, 9.75, false);
    QPushButton* cmdOK = addButton("cmdOK", "OK", twipsRect(5160, 3180, 1260, 345));
    cmdOK->setDefault(true);
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
}

void frmAbout::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape || event->key() == Qt::Key_Return ||
        event->key() == Qt::Key_Enter) {
        accept();
        return;
    }
    Form::keyPressEvent(event);
}

} // namespace turnpost
